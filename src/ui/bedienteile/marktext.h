#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

namespace quillmar::bedienteile
{
class Umbruchtext;

/** A sentence that wraps, with a mark before it when there is something to mark; without one it is secondary text. */
class Marktext : public QWidget
{
    Q_OBJECT

public:
    explicit Marktext(QWidget *eltern = nullptr);

    /** @p symbol as in Zeichen; empty for a plain explanation. */
    void setzen(Symbol symbol, const QString &text);
    /** As an explanation. */
    void erklaeren(const QString &text) { setzen({}, text); }
    [[nodiscard]] QString text() const;

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void kleiden();

    Symbol m_symbol = Symbol::Keines;
    Umbruchtext *m_text;
};
} // namespace quillmar::bedienteile
