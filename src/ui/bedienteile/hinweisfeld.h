#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

class QPushButton;

namespace quillmar::bedienteile
{
class Kette;
class Textschild;

/** A note: a rule at its left edge, a mark, a sentence that wraps, and what can be done about it at its end. */
class Hinweisfeld : public QWidget
{
    Q_OBJECT

public:
    struct Antwort {
        QString name; ///< of the button
        QString text;
        QString hilfe = {};
    };
    /** A warning (Symbol::Warnung) stands on a tinted ground. */
    explicit Hinweisfeld(Symbol symbol, const QString &text = {}, const QList<Antwort> &antworten = {},
                         QWidget *eltern = nullptr);

    void setzeText(const QString &text);
    [[nodiscard]] QPushButton *knopf(int stelle = 0) const { return m_knoepfe.value(stelle); }
    [[nodiscard]] bool hatFokus() const;

Q_SIGNALS:
    /** The button of the answer @p stelle was pressed. */
    void gedrueckt(int stelle);

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    Symbol m_symbol;
    Textschild *m_text;
    QList<QPushButton *> m_knoepfe;
};
} // namespace quillmar::bedienteile
