#pragma once

#include "absicht.h"
#include "protokollbuch.h"

class Bewegungsgang;

/** The turning back of one whole session; see Protokollbuch::zurueckdrehen(). */
class Rueckbau
{
public:
    Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
             std::stop_token ende = {});
    ~Rueckbau();
    Rueckbau(const Rueckbau &) = delete;
    Rueckbau &operator=(const Rueckbau &) = delete;
    [[nodiscard]] Bilanz ausfuehren();

private:
    void weiter();
    struct Eintrag {
        qsizetype stelle = 0; ///< in the log
        Protokollzeile zeile;
    };
    void gruppe(const QList<Eintrag> &eintraege);
    [[nodiscard]] QString pruefen(const Protokollzeile &zeile, Absicht &absicht) const;
    [[nodiscard]] QString hindernis(const Protokollzeile &zeile, qint64 &protokollId) const;
    [[nodiscard]] QStringList zuruecknehmen(const QList<Absicht> &absichten);

    QList<Eintrag> m_eintraege; ///< newest first
    QString m_herkunft;
    std::shared_ptr<Datenbank> m_db;
    std::unique_ptr<Bewegungsgang> m_gang;
    Protokollbuch::Fortschritt m_fortschritt;
    std::stop_token m_ende;
    Bilanz m_bilanz;
    qint64 m_fertig = 0;
};
