#pragma once

#include "teile.h"
#include "zeichen.h"

#include <QPointer>
#include <QWidget>

namespace quillmar::bedienteile
{
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

/**
 * Asks before something that cannot be taken back, in the place where it was asked for, and goes with the answer. The
 * focus is on the last one, which leaves everything as it is, as Esc does.
 */
class Rueckfrage : public Hinweisfeld
{
    Q_OBJECT

public:
    /** @p antworten without the last one, "Abbrechen"; its object is called as the first one, with "-abbrechen". */
    explicit Rueckfrage(const QList<Antwort> &antworten);
    /** "Abbrechen" under a name and with a help of its own. */
    Rueckfrage(const QList<Antwort> &antworten, const Antwort &abbrechen);

    /** The focus goes to the answer @p fokus, or to the last one. */
    void fragen(const QString &text, int fokus = -1);
    /** Goes as if nothing had been asked; the focus goes back to where it was. */
    void schliessen();

Q_SIGNALS:
    void bestaetigt(int welche);
    void abgebrochen();

protected:
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    int m_letzte;
    QPointer<QWidget> m_fokusVorher;
};
} // namespace quillmar::bedienteile
