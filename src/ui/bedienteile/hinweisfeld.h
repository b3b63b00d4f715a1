#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

class QPushButton;

namespace quillmar::bedienteile
{
class Umbruchtext;

/** A note: a rule at its left edge, a mark, a sentence that wraps, at most one button at its end. */
class Hinweisfeld : public QWidget
{
    Q_OBJECT

public:
    /** A warning stands on a tinted ground. @p knopf names the button; none when empty. */
    Hinweisfeld(bool warnung, Symbol symbol, const QString &text, const QString &knopf = {}, QWidget *eltern = nullptr);

    void setzeText(const QString &text);
    [[nodiscard]] QPushButton *knopf() const { return m_knopf; }

Q_SIGNALS:
    void gedrueckt();

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    bool m_warnung;
    Symbol m_symbol = Symbol::Keines;
    Umbruchtext *m_text;
    QPushButton *m_knopf = nullptr;
};
} // namespace quillmar::bedienteile
