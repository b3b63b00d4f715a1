#pragma once

#include "anfrage.h"
#include "namensraeume.h"
#include "neuzugang.h"
#include "ordnerwache.h"
#include "profil.h"
#include "scanstand.h"

#include <QObject>
#include <QTimer>
#include <functional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
class Ausfuehrung;
class Durchgang;
class Meldestelle;
class Modelldienst;
class Profilwahl;
class Sitzungen;

/**
 * Takes new scans in by itself while the window is open, if the user wants that of the active profile: looks around in
 * the source folder when something happens there and every minute, and asks for a run when Neuzugang says so. Nothing
 * is looked at or begun while a run or a deed is under way.
 */
class Scanwache : public QObject
{
    Q_OBJECT

public:
    /** The models that it works with; all outlive it. */
    struct Nachbarn {
        Meldestelle *meldestelle;
        Profilwahl *profilwahl;
        Modelldienst *modelldienst;
        Ausfuehrung *ausfuehrung;
        Durchgang *durchgang;
        Sitzungen *sitzungen;
    };
    using Uhr = std::function<Neuzugang::Zeitpunkt()>;

    explicit Scanwache(const Nachbarn &nachbarn);

    [[nodiscard]] const Scanstand &stand() const { return m_stand; }
    /** For the active profile; remembered outside of it. */
    void setzeAn(bool an);
    /** Looks around now, if it is on and nothing else is under way. */
    void schauen();
    /** For tests: what the time is. */
    void setzeUhr(Uhr uhr) { m_uhr = std::move(uhr); }

Q_SIGNALS:
    void geaendert();
    void umgesehen(); ///< a look has ended

private:
    struct Fund;
    [[nodiscard]] static std::optional<Fund> umsehen(const Profil &profil, const std::shared_ptr<Datenbank> &db,
                                                     const std::stop_token &ende);
    void wechseln();
    void bald();
    void vergessen();
    void gefunden(const std::optional<Fund> &fund);
    void entscheiden();
    void begonnen();
    void beendet();
    void verhindert(bool ohneModell);
    void setzeStand(const Scanstand &stand);
    [[nodiscard]] bool beschaeftigt() const;

    Nachbarn m_nachbarn;
    Scanstand m_stand;
    Neuzugang m_neuzugang;
    Ordnerwache m_wache;
    Anfrage m_blick;
    QTimer m_takt;      ///< for what the system does not tell of
    QTimer m_bald;      ///< many changes, one look
    QTimer m_ruhefrist; ///< until what came may have lain long enough
    Uhr m_uhr = &std::chrono::steady_clock::now;
    std::chrono::steady_clock::time_point m_blickbeginn;
    bool m_gesagt = false;       ///< that no model can be asked
    qsizetype m_eingelesene = 0; ///< in the run that goes on
    QString m_einlesesatz;       ///< what was said of it
};
} // namespace quillmar::zustand
