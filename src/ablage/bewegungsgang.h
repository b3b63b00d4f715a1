#pragma once

#include "absicht.h"
#include "absichtsdatei.h"
#include "fehler.h"
#include "namensraeume.h"

#include <functional>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
class Protokollbuch;

/**
 * The right to move files for a catalogue, held while an action lasts. Taking it first settles what a crash has left
 * open; every movement through it is announced, carried out and recorded, in this order.
 */
class Bewegungsgang
{
public:
    /** Waits for another program that is moving. Throws Fehler when that takes over a minute. */
    explicit Bewegungsgang(const std::shared_ptr<Datenbank> &db);

    /**
     * Settles what a crash has left open, if no one is moving at the moment. Returns the names of the files of which it
     * cannot be told yet what has become of their movement. Throws Fehler.
     */
    static QStringList klaeren(const std::shared_ptr<Datenbank> &db);

    struct Ergebnis {
        QString nach;              ///< where the file lies now
        qint64 protokollId = 0;    ///< its row in the catalogue
        qint64 angepasst = 0;      ///< waiting documents that the learning memory adjusted
        bool protokolliert = true; ///< the session log has its line, or there is none
    };
    /** Moves or copies and records, also in @p buch (may be null). On failure nothing has changed. Throws Fehler. */
    Ergebnis bewegen(Absicht absicht, const Dateibewegung::Auftrag &auftrag, Protokollbuch *buch);

    /**
     * Turns movements back together. Returns a text for each that failed, empty for success, in the same order; what
     * failed lies where it was. @p herkunft is the source folder, which is never made itself; @p jeweils is called
     * after each movement.
     */
    QStringList zuruecknehmen(const QList<Absicht> &absichten, const QString &herkunft,
                              const std::function<void()> &jeweils = {});

private:
    Bewegungsgang(std::shared_ptr<Datenbank> db, Absichtsdatei datei);
    void offenesKlaeren();
    [[nodiscard]] bool geklaert(const Absicht &absicht);
    [[nodiscard]] bool nachgeholt(const Absicht &absicht);
    [[nodiscard]] bool zurueckgesetzt(Absicht absicht);
    void dateiBewegen(Absicht &absicht, const Dateibewegung::Auftrag &auftrag);
    [[nodiscard]] Ergebnis verzeichnen(const Absicht &absicht);
    void abschliessen() { m_datei.leeren(m_offene); }

    std::shared_ptr<Datenbank> m_db;
    Absichtsdatei m_datei;
    QList<QByteArray> m_offene; ///< what cannot be settled yet, since a drive is not there or a disk fails
};
} // namespace quillmar::ablage
