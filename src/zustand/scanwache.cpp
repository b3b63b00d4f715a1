#include "scanwache.h"

#include "abgleich.h"
#include "ausfuehrung.h"
#include "durchgang.h"
#include "einstellungen.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "offenesprofil.h"
#include "pfade.h"
#include "profilwahl.h"
#include "sitzungen.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
using std::chrono::steady_clock;

namespace
{
constexpr auto takt = 1min;
constexpr std::chrono::milliseconds kuerzestePause = 1s;
constexpr std::chrono::milliseconds laengstePause = 1min;
constexpr auto grobeZeit = 2s; // of the coarsest file systems
constexpr int pausenmass = 10; // looking around takes at most such a part of the time, however much happens

QString schluessel(const Profil &profil) { return u"neueScans/"_s + profil.id.toString(QUuid::WithoutBraces); }

/**
 * Another file under a known name is a new scan too: many scanners use one name over and over. A document that came
 * back to a disk whose times are coarse is none.
 */
bool istNeu(const Dateien::Bekanntes *bekannt, const Bestand::Fund &fund)
{
    const auto fall = Abgleich::fall(bekannt, fund);
    if (fall != Abgleich::Fall::Offen)
        return fall == Abgleich::Fall::Neu;
    const auto abstand = std::chrono::nanoseconds(std::abs(bekannt->stand.geaendert - fund.geaendert));
    return bekannt->stand.groesse != fund.groesse || abstand > grobeZeit;
}
} // namespace

/** What a look has found. */
struct Scanwache::Fund {
    QList<Neuzugang::Datei> neue;
    QStringList ordner;
};

Scanwache::Scanwache(const Nachbarn &nachbarn) : m_nachbarn(nachbarn), m_wache(this), m_blick(this)
{
    m_takt.setInterval(takt);
    m_bald.setInterval(kuerzestePause);
    m_bald.setSingleShot(true);
    m_ruhefrist.setSingleShot(true);
    for (QTimer *timer : {&m_takt, &m_bald, &m_ruhefrist})
        connect(timer, &QTimer::timeout, this, &Scanwache::schauen);
    connect(&m_wache, &Ordnerwache::geaendert, this, &Scanwache::bald);
    connect(m_nachbarn.profilwahl, &Profilwahl::gewechselt, this, [this] { setzeStand({}); });
    connect(m_nachbarn.profilwahl, &Profilwahl::eingetreten, this, &Scanwache::wechseln);
    connect(m_nachbarn.profilwahl, &Profilwahl::bereitschaftGeaendert, this, &Scanwache::bald);
    connect(m_nachbarn.profilwahl, &Profilwahl::einstellungenGeaendert, this, &Scanwache::bald);
    connect(m_nachbarn.durchgang, &Durchgang::laufBeendet, this, &Scanwache::beendet);
    connect(m_nachbarn.durchgang, &Durchgang::vonSelbstBegonnen, this, &Scanwache::begonnen);
    connect(m_nachbarn.durchgang, &Durchgang::vonSelbstVerhindert, this, &Scanwache::verhindert);
    connect(m_nachbarn.sitzungen, &Sitzungen::zurueckgeholt, this,
            [this](const QStringList &pfade) { m_neuzugang.eigene(pfade); });
    connect(m_nachbarn.ausfuehrung, &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (m_nachbarn.ausfuehrung->beschaeftigt())
            m_blick.verwerfen(); // of files that move meanwhile
        else
            bald();
    });
    connect(m_nachbarn.modelldienst, &Modelldienst::modellGeaendert, this, [this] {
        if (m_stand.ohneModell && m_nachbarn.modelldienst->modellBereit())
            bald();
    });
}

/** Of another profile nothing has been seen yet. */
void Scanwache::wechseln()
{
    m_blick.verwerfen();
    m_neuzugang = {};
    m_gesagt = false;
    m_einlesesatz.clear();
    const Profil *profil = m_nachbarn.profilwahl->offen() ? m_nachbarn.profilwahl->aktiv() : nullptr;
    setzeStand({.an = profil && Einstellungen::wert(schluessel(*profil), false).toBool()});
    if (!m_stand.an) {
        for (QTimer *timer : {&m_takt, &m_bald, &m_ruhefrist})
            timer->stop();
        return m_wache.beobachten({});
    }
    m_takt.start();
    bald();
}

void Scanwache::setzeAn(bool an)
{
    const Profil *profil = m_nachbarn.profilwahl->aktiv();
    if (!profil || an == m_stand.an)
        return;
    Einstellungen::setzen(schluessel(*profil), an ? QVariant(true) : QVariant());
    wechseln();
}

void Scanwache::bald()
{
    if (m_stand.an && !m_bald.isActive())
        m_bald.start();
}

bool Scanwache::beschaeftigt() const
{
    return m_nachbarn.durchgang->laeuft() || m_nachbarn.durchgang->startErbeten() ||
           m_nachbarn.ausfuehrung->beschaeftigt();
}

void Scanwache::schauen()
{
    if (!m_stand.an || !m_nachbarn.profilwahl->kannHandeln() || beschaeftigt())
        return; // what is under way says when it is over
    if (m_blick.laeuft())
        return bald();
    m_blickbeginn = steady_clock::now();
    m_blick.stellen([profil = *m_nachbarn.profilwahl->aktiv(), db = m_nachbarn.profilwahl->offenes()->db()](
                        const std::stop_token &ende) { return umsehen(profil, db, ende); },
                    [this](const Ausgang<std::optional<Fund>> &ausgang) {
                        if (ausgang.wert) // else the catalogue cannot tell just now
                            gefunden(*ausgang.wert);
                        Q_EMIT umgesehen();
                    });
}

/** None when the folder is not there. Throws Fehler when the catalogue cannot be asked. */
std::optional<Scanwache::Fund> Scanwache::umsehen(const Profil &profil, const std::shared_ptr<Datenbank> &db,
                                                  const std::stop_token &ende)
{
    if (profil.quelle.isEmpty() || !istOrdner(QDir::cleanPath(profil.quelle)))
        return std::nullopt;
    const auto ergebnis =
        Bestand::suchen(profil, Bestand::eigenesVon(*db, profil.quelle), [ende] { return ende.stop_requested(); });
    const Dateien::Verzeichnis bekannte = Dateien(*db).verzeichnis();
    Fund fund{.neue = {}, .ordner = ergebnis.ordner};
    for (const Bestand::Fund &f : ergebnis.funde) {
        const auto bekannt = bekannte.constFind(f.pfad);
        if (istNeu(bekannt == bekannte.constEnd() ? nullptr : &*bekannt, f))
            fund.neue << Neuzugang::Datei{.pfad = f.pfad, .groesse = f.groesse, .geaendert = f.geaendert};
    }
    return fund;
}

/** Of a folder that is away: a run that has begun with what lay there has not taken it in. */
void Scanwache::vergessen()
{
    m_neuzugang.gesehen({}, m_uhr());
    setzeStand({.an = true});
}

void Scanwache::gefunden(const std::optional<Fund> &fund)
{
    const auto dauer = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - m_blickbeginn);
    m_bald.setInterval(std::clamp(dauer * pausenmass, kuerzestePause, laengstePause));
    if (!fund)
        return vergessen();
    m_wache.beobachten(fund->ordner);
    m_neuzugang.gesehen(fund->neue, m_uhr());
    entscheiden();
}

void Scanwache::entscheiden()
{
    const qsizetype wartende = m_neuzugang.wartende();
    setzeStand({.an = true, .wartende = wartende, .ohneModell = m_stand.ohneModell && wartende > 0});
    const auto jetzt = m_uhr();
    if (m_neuzugang.istSoweit(jetzt)) {
        if (m_nachbarn.profilwahl->bereitZumStart())
            m_nachbarn.durchgang->vonSelbstErbitten();
        else
            m_nachbarn.profilwahl->bereitschaftPruefen(); // a folder may be back that was away
    } else if (const auto naechster = m_neuzugang.naechsterBlick()) {
        m_ruhefrist.start(std::chrono::ceil<std::chrono::milliseconds>(std::max(*naechster - jetzt, 0ns)));
    }
}

void Scanwache::begonnen()
{
    const qsizetype anzahl = m_neuzugang.wartende();
    m_neuzugang.aufgenommen();
    m_gesagt = false;
    setzeStand({.an = m_stand.an});
    m_eingelesene = anzahl;
    m_einlesesatz = gefuellt(Sprache::text(anzahl, u"%@ neuer Scan ist da und wird eingelesen"_s,
                                           u"%@ neue Scans sind da und werden eingelesen"_s),
                             {QString::number(anzahl)});
    m_nachbarn.meldestelle->melden(m_einlesesatz, Meldestelle::Ton::Ruhig);
}

/** A notice that is still to be seen does not go on telling of a run that is over. */
void Scanwache::beendet()
{
    const qsizetype anzahl = std::exchange(m_eingelesene, 0);
    const QString satz =
        gefuellt(Sprache::text(anzahl, u"%@ neuer Scan ist eingelesen"_s, u"%@ neue Scans sind eingelesen"_s),
                 {QString::number(anzahl)});
    const bool fertig = m_nachbarn.durchgang->laufende().abgeschlossen;
    m_nachbarn.meldestelle->ersetzen(std::exchange(m_einlesesatz, {}), fertig ? satz : QString());
    bald();
}

/** Said once; tried again with every look. */
void Scanwache::verhindert(bool ohneModell)
{
    Scanstand stand = m_stand;
    stand.ohneModell = ohneModell;
    setzeStand(stand);
    if (!ohneModell || std::exchange(m_gesagt, true))
        return;
    m_nachbarn.meldestelle->anhaengen(
        gefuellt(Sprache::text(stand.wartende, u"%@ neuer Scan wartet: %@"_s, u"%@ neue Scans warten: %@"_s),
                 {QString::number(stand.wartende), m_nachbarn.modelldienst->modellMeldung()}));
}

void Scanwache::setzeStand(const Scanstand &stand)
{
    if (stand == m_stand)
        return;
    m_stand = stand;
    Q_EMIT geaendert();
}
} // namespace quillmar::zustand
