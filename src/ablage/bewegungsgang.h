#pragma once

#include "absicht.h"
#include "absichtsdatei.h"
#include "fehler.h"

#include <memory>

class Datenbank;
class Protokollbuch;

/**
 * The right to move files for a catalogue, held while an action lasts. Taking it first settles what a crash has left
 * open; every movement through it is announced, carried out and recorded, in this order.
 */
class Bewegungsgang
{
public:
    /** Waits for another program that is moving. Throws Fehler when that takes over a minute. */
    Bewegungsgang(std::shared_ptr<Datenbank> db, const Profil &profil);

    /** Settles what a crash has left open, if no one is moving at the moment. Throws Fehler. */
    static void klaeren(const std::shared_ptr<Datenbank> &db, const Profil &profil);

    struct Ergebnis {
        QString nach;              ///< where the file lies now
        qint64 angepasst = 0;      ///< waiting documents that the learning memory adjusted
        bool protokolliert = true; ///< the session log has its line, or there is none
    };
    /** Moves or copies and records, also in @p buch (may be null). On failure nothing has changed. Throws Fehler. */
    Ergebnis bewegen(Absicht absicht, const Dateibewegung::Auftrag &auftrag, Protokollbuch *buch);

    /**
     * Turns movements back: announces all at once, takes each back, and records those that worked in one transaction.
     * Returns a text for each that failed, empty for success, in the same order. @p herkunft is the source folder,
     * which is never made itself. Throws Fehler when the catalogue cannot be written; the rest is settled at the next
     * opening.
     */
    QStringList zuruecknehmen(QList<Absicht> absichten, const QString &herkunft);

private:
    Bewegungsgang(std::shared_ptr<Datenbank> db, const Profil &profil, Absichtsdatei datei);
    void offenesKlaeren();
    [[nodiscard]] bool geklaert(const Absicht &absicht);
    void nachholen(const Absicht &absicht);
    void ruecksetzen(const Absicht &absicht);
    void abschliessen() { m_datei.leeren(m_offene); }

    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    Absichtsdatei m_datei;
    QList<QByteArray> m_offene; ///< what cannot be settled yet, since a drive is not there
};

/**
 * Takes one movement back: a copy to the trash, a moved file to its old place. @p ankuendigung as for
 * Dateibewegung::ausfuehren(). Throws Fehler.
 */
void zuruecklegen(const Protokollzeile &zeile, const QString &herkunft, const Dateibewegung::Ankuendigung &ankuendigung,
                  QSet<QByteArray> *spaeterSichern);

/** The text of a failure in the user's language. */
[[nodiscard]] QString inSprache(const Fehler &fehler);
