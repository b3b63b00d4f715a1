#pragma once

#include "handlung.h"
#include "namensraeume.h"

#include <QObject>

namespace quillmar::analyse
{
class Analyse;
} // namespace quillmar::analyse

namespace quillmar::zustand
{
/**
 * A profile whose catalogue is open, with all that belongs to it: made when it is opened, destroyed when it is left.
 * What is asked for on its behalf has it as receiver, so that a late answer finds nobody.
 */
class OffenesProfil : public QObject
{
    Q_OBJECT

public:
    OffenesProfil(const Profil &profil, std::shared_ptr<Datenbank> db);
    ~OffenesProfil() override;

    /** As its settings are now. */
    [[nodiscard]] const Profil &profil() const { return m_profil; }
    void setzeProfil(const Profil &profil) { m_profil = profil; }
    [[nodiscard]] const std::shared_ptr<Datenbank> &db() const { return m_db; }
    /** What a deed works with. */
    [[nodiscard]] Arbeitsplatz arbeitsplatz() const { return {.db = m_db, .profil = m_profil, .buch = m_buch}; }

    [[nodiscard]] Analyse *analyse() const { return m_analyse.get(); }
    /** Hands the analysis over to who lets its run come to an end; there is none afterwards. */
    [[nodiscard]] std::unique_ptr<Analyse> analyseAbgeben();

    /** The running session's log; null before the first movement. */
    [[nodiscard]] const std::shared_ptr<Protokollbuch> &buch() const { return m_buch; }
    void setzeBuch(const std::shared_ptr<Protokollbuch> &buch) { m_buch = buch; }
    /** Why that log does not hold its last movement, for the user; empty when it does. */
    [[nodiscard]] const QString &protokollmangel() const { return m_protokollmangel; }
    void setzeProtokollmangel(const QString &satz) { m_protokollmangel = satz; }

    /** How exactly the last deed is taken back, if it can be. */
    [[nodiscard]] const std::optional<Rueckweg> &rueckweg() const { return m_rueckweg; }
    void setzeRueckweg(const std::optional<Rueckweg> &weg) { m_rueckweg = weg; }

private:
    Profil m_profil;
    std::shared_ptr<Datenbank> m_db;
    std::unique_ptr<Analyse> m_analyse;
    std::shared_ptr<Protokollbuch> m_buch;
    QString m_protokollmangel;
    std::optional<Rueckweg> m_rueckweg;
};
} // namespace quillmar::zustand
