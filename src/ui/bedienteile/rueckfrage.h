#pragma once

#include "hinweisfeld.h"

#include <QPointer>

namespace quillmar::bedienteile
{
/**
 * Asks before something that cannot be taken back, in the place where it was asked for, and goes with the answer. The
 * focus is on the last one, which leaves everything as it is, as Esc does.
 */
class Rueckfrage : public Hinweisfeld
{
    Q_OBJECT

public:
    /** @p antworten without the last one, "Abbrechen"; its object is called as the first one, with "-abbrechen". */
    explicit Rueckfrage(const QList<Antwort> &antworten, QWidget *eltern = nullptr);
    /** "Abbrechen" under a name and with a help of its own. */
    Rueckfrage(const QList<Antwort> &antworten, const Antwort &abbrechen, QWidget *eltern = nullptr);

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
