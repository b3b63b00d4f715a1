#pragma once

#include "absicht.h"
#include "namensraeume.h"
#include "protokollbuch.h"

namespace quillmar::ablage
{
class Bewegungsgang;

/** The turning back of one whole session; see Protokollbuch::zurueckdrehen(). */
class Rueckbau
{
public:
    Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
             std::stop_token ende, const QStringList &grenzen, Profil profil);
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
    void inGruppen();
    void gruppe(const QList<Eintrag> &eintraege);
    void verbuchen(const QList<qsizetype> &stellen, const QStringList &fehler);
    [[nodiscard]] QString pruefen(const Protokollzeile &zeile, Absicht &absicht) const;
    [[nodiscard]] bool istErlaubt(const Protokollzeile &zeile) const;
    [[nodiscard]] QStringList zuruecknehmen(const QList<Absicht> &absichten);

    QList<Eintrag> m_eintraege; ///< newest first
    QString m_herkunft;
    Profil m_profil;
    QStringList m_grenzen; ///< folders between which lines that the catalogue does not know may move files
    std::shared_ptr<Datenbank> m_db;
    std::unique_ptr<Bewegungsgang> m_gang;
    Protokollbuch::Fortschritt m_fortschritt;
    std::stop_token m_ende;
    Bilanz m_bilanz;
    qint64 m_fertig = 0;
};
} // namespace quillmar::ablage
