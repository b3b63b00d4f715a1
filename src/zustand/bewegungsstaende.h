#pragma once

#include "anfrage.h"
#include "namensraeume.h"
#include "protokollzeile.h"

#include <QObject>

namespace quillmar::zustand
{
/** Where the file of a movement is found today. */
enum class Bewegungsstand {
    Unbekannt, ///< not looked at yet
    AmZiel,
    Zurueck, ///< at its old place; a copy that is gone again
    Verschwunden,
    Fehler,       ///< the disk does not say, or it could not be turned back
    Uebersprungen ///< at its new place, and passed over when its session was turned back
};

/** Looks at the disk; blocks as long as that takes. */
[[nodiscard]] Bewegungsstand bewegungsstand(const Protokollzeile &zeile);

/**
 * Finds out where the files of a session are, away from the main thread, and only of the movements that somebody looks
 * at: a session may have a hundred thousand of them, and the target a slow network drive.
 */
class Bewegungsstaende : public QObject
{
    Q_OBJECT

public:
    explicit Bewegungsstaende(QObject *vater = nullptr) : QObject(vater), m_frage(this) {}

    /** Another session; nothing is known of it yet. */
    void setzen(const QList<Protokollzeile> &zeilen);
    /** The same session with more movements at its end. */
    void fortsetzen(const QList<Protokollzeile> &zeilen);
    /** Files may have moved: what is known is told until it has been looked at again. */
    void veralten();
    /** The movements from @p von to @p bis (included) are in view; only the last call counts. */
    void ansehen(qsizetype von, qsizetype bis);
    [[nodiscard]] Bewegungsstand stand(qsizetype stelle) const;

Q_SIGNALS:
    /** Something was found out about the movements from @p von to @p bis. */
    void erkannt(qsizetype von, qsizetype bis);

private:
    struct Eintrag {
        Bewegungsstand stand = Bewegungsstand::Unbekannt;
        bool frisch = false;
    };
    void weiter();
    void eintragen(const QList<qsizetype> &stellen, const QList<Bewegungsstand> &staende);

    QList<Protokollzeile> m_zeilen;
    QList<Eintrag> m_eintraege;
    qsizetype m_von = 0;
    qsizetype m_bis = -1;
    Anfrage m_frage;
};
} // namespace quillmar::zustand
