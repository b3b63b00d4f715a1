#pragma once

#include "absicht.h"
#include "absichtsdatei.h"
#include "namensraeume.h"

#include <functional>

namespace quillmar::ablage
{
/** Movements that are taken back together: announced at once, their folders flushed once, recorded in one transaction.
 */
class Ruecknahme
{
public:
    /** @p herkunft is the source folder, which is never made itself. */
    Ruecknahme(Datenbank &db, Absichtsdatei &datei, const QList<Absicht> &absichten, QString herkunft);

    /**
     * Returns a text for each movement that failed, empty for success, in order; what failed lies where it was.
     * @p jeweils is called after each.
     */
    [[nodiscard]] QStringList ausfuehren(const std::function<void()> &jeweils);

    /** Intents that must stay until a settling has looked at them. */
    [[nodiscard]] const QList<QByteArray> &offene() const { return m_offene; }

private:
    struct Posten {
        Absicht absicht;
        QString imKorb; ///< where a copy went
        QString fehler;
        bool zurueck = false;
    };

    void vormerken();
    void zuruecknehmen(Posten &posten);
    void sichern();
    void aufzeichnen();
    void zuruecksetzen(Posten &posten, const QString &fehler);

    Datenbank &m_db;
    Absichtsdatei &m_datei;
    QString m_herkunft;
    QList<Posten> m_posten;
    QSet<QByteArray> m_ordner;
    QList<QByteArray> m_offene;
};

/**
 * Takes one movement back: a copy to the trash, a moved file to its old place. @p ankuendigung as for
 * Dateibewegung::ausfuehren(). Returns the place in the trash. Throws Fehler.
 */
QString bewegungZuruecknehmen(const Protokollzeile &zeile, const QString &herkunft,
                              const Dateibewegung::Ankuendigung &ankuendigung, QSet<QByteArray> *spaeterSichern);

/**
 * For a movement that has to be undone since it could not be recorded: both ends are announced already, so only a
 * temporary file is, and a full disk does not keep the file from going back.
 */
[[nodiscard]] Dateibewegung::Ankuendigung nurZwischendatei(Absichtsdatei &datei, Absicht &absicht);
} // namespace quillmar::ablage
