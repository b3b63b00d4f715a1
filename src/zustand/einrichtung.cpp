#include "einrichtung.h"

#include "ausnahmefilter.h"
#include "befunde.h"
#include "durchgang.h"
#include "fehlersatz.h"
#include "katalog.h"
#include "katalogpflege.h"
#include "lernspeicher.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "oeffnung.h"
#include "offenesprofil.h"
#include "ordnerwahl.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
using Ton = Meldestelle::Ton;

namespace
{
constexpr auto bisZumZaehlen = 300ms; // a path that is being typed changes with every key

/** What the number of files found depends on. */
QStringList zaehlschluessel(const Profil &p)
{
    return QStringList{p.quelle, p.zielWurzel, p.dublettenOrdner, QString::number(int(p.mitUnterordnern))} +
           p.ausnahmen;
}

/** What lies in the source folder; none if that is not there. Blocks. */
std::optional<Quellstand> gezaehlt(const Profil &profil, const std::shared_ptr<Datenbank> &db,
                                   const std::stop_token &ende)
{
    if (profil.quelle.isEmpty() || !istOrdner(QDir::cleanPath(profil.quelle)))
        return std::nullopt;
    return Quellstand::zaehlen(profil, db, [ende] { return ende.stop_requested(); });
}

QList<Ausnahmefilter::Regel> regelnVon(const QString &regel) { return Ausnahmefilter({regel}).regeln(); }
} // namespace

/** Its facts keep up with the profile and the catalogue. */
Einrichtung::Einrichtung(const Nachbarn &nachbarn)
    : m_nachbarn(nachbarn), m_struktur(nachbarn.profilwahl, &m_stand),
      m_ablagelernen(nachbarn.profilwahl, nachbarn.meldestelle), m_zaehlung(this)
{
    m_zaehltakt.setSingleShot(true);
    m_zaehltakt.setInterval(bisZumZaehlen);
    connect(&m_zaehltakt, &QTimer::timeout, this, &Einrichtung::quelleZaehlen);
    connect(m_nachbarn.profilwahl, &Profilwahl::profileGeaendert, this, [this] {
        quelleVerfolgen();
        m_struktur.vergleichen();
    });
    connect(m_nachbarn.profilwahl, &Profilwahl::aktivGeaendert, this, &Einrichtung::wechseln);
    connect(m_nachbarn.profilwahl, &Profilwahl::eingetreten, this, &Einrichtung::gelerntLesen);
    connect(m_nachbarn.pruefung, &Pruefung::zaehlwerkGeaendert, this, [this] {
        if (!m_stand.beispiel && m_nachbarn.pruefung->zaehlwerk().bereit > 0)
            anderesBeispiel();
    });
    connect(m_nachbarn.katalogpflege, &Katalogpflege::geaendert, this, [this] {
        m_stand.katalog = m_nachbarn.katalogpflege->stand();
        Q_EMIT einrichtungGeaendert();
    });
    connect(&m_struktur, &Strukturlesung::gelesen, this, &Einrichtung::einrichtungGeaendert);
    connect(&m_struktur, &Strukturlesung::geordnet, this, &Einrichtung::strukturGeaendert);
    connect(&m_ablagelernen, &Ablagelernen::gelernt, this, [this] {
        gelerntLesen();
        m_nachbarn.pruefung->aktualisieren();
    });
    connect(this, &Einrichtung::staendeGeaendert, this, &Einrichtung::ablageAnbieten);
    connect(m_nachbarn.profilwahl, &Profilwahl::oeffnetGeaendert, this, &Einrichtung::ablageAnbieten);
    staendeVerfolgen();
}

/** A section depends on what all of them know; its own facts come first. */
void Einrichtung::staendeVerfolgen()
{
    for (const auto signal :
         {&Profilwahl::aktivGeaendert, &Profilwahl::profileGeaendert, &Profilwahl::bereitschaftGeaendert})
        connect(m_nachbarn.profilwahl, signal, this, &Einrichtung::staendeGeaendert);
    for (const auto signal :
         {&Einrichtung::einrichtungGeaendert, &Einrichtung::strukturGeaendert, &Einrichtung::gelerntGelesen})
        connect(this, signal, this, &Einrichtung::staendeGeaendert);
    connect(m_nachbarn.modelldienst, &Modelldienst::modellGeaendert, this, &Einrichtung::staendeGeaendert);
    connect(m_nachbarn.pruefung, &Pruefung::zaehlwerkGeaendert, this, &Einrichtung::staendeGeaendert);
}

const Profil *Einrichtung::aktiv() const { return m_nachbarn.profilwahl->aktiv(); }

/** Of another profile nothing is known yet; the programs are the same. */
void Einrichtung::wechseln()
{
    m_zaehlung.verwerfen();
    auto programme = std::exchange(m_stand, {}).programme;
    m_stand.programme = std::move(programme);
    m_stand.katalog = m_nachbarn.katalogpflege->stand();
    m_struktur.wechseln();
    m_ablagelernen.wechseln();
    einrichtungPruefen();
}

void Einrichtung::setzeGewaehlt(bool gewaehlt)
{
    m_gewaehlt = gewaehlt;
    if (!gewaehlt)
        return;
    einrichtungPruefen();
    ablageAnbieten();
}

void Einrichtung::einrichtungPruefen()
{
    m_zaehlschluessel.clear();
    if (!aktiv())
        return;
    programmePruefen();
    quelleVerfolgen();
    m_nachbarn.profilwahl->bereitschaftPruefen();
    gelerntLesen();
    if (!m_stand.beispiel)
        anderesBeispiel();
}

void Einrichtung::programmePruefen()
{
    imHintergrund(
        this, [] { return Programmstand::pruefen(); },
        [this](const Ausgang<Programmstand> &ausgang) {
            if (!ausgang.wert || ausgang.wert == m_stand.programme)
                return;
            m_stand.programme = ausgang.wert;
            Q_EMIT einrichtungGeaendert();
        });
}

void Einrichtung::quelleVerfolgen()
{
    if (!aktiv() || zaehlschluessel(*aktiv()) == m_zaehlschluessel)
        return;
    m_zaehlschluessel = zaehlschluessel(*aktiv());
    m_zaehlung.verwerfen();
    m_zaehltakt.start();
}

/** Only for who looks at it: a large folder is not walked through at every start. */
void Einrichtung::quelleZaehlen()
{
    if (!aktiv())
        return;
    if (!m_gewaehlt)
        return m_zaehlschluessel.clear();
    m_stand.zaehlt = true;
    const OffenesProfil *offenes = m_nachbarn.profilwahl->offenes();
    m_zaehlung.stellen([profil = *aktiv(), db = offenes ? offenes->db() : nullptr](
                           const std::stop_token &ende) { return gezaehlt(profil, db, ende); },
                       [this](const Ausgang<std::optional<Quellstand>> &ausgang) {
                           m_stand.zaehlt = false;
                           m_stand.quelle = ausgang.wert.value_or(std::nullopt);
                           Q_EMIT einrichtungGeaendert();
                       });
    Q_EMIT einrichtungGeaendert();
}

void Einrichtung::setzeAbschnitt(Abschnitt abschnitt)
{
    if (m_abschnitt == abschnitt)
        return;
    m_abschnitt = abschnitt;
    Q_EMIT abschnittGeaendert();
}

Einrichtungslage Einrichtung::lage() const
{
    static const Profil keines;
    return {.profil = aktiv() ? *aktiv() : keines,
            .bereitschaft = m_nachbarn.profilwahl->bereitschaft(),
            .stand = m_stand,
            .modell = m_nachbarn.modelldienst->modellstand(),
            .umgebung = Modelldienst::umgebungshinweis(),
            .ruhende = m_nachbarn.pruefung->ausgenommen(),
            .ohneDokumente = m_nachbarn.pruefung->zaehlwerk() == Zaehlwerk()};
}

Abschnittsstand Einrichtung::abschnittsstand(Abschnitt abschnitt) const
{
    return aktiv() ? zustand::abschnittsstand(abschnitt, lage()) : Abschnittsstand();
}

/** The sections behind @p von first, then from the top; what a run cannot do without goes before the rest. */
std::optional<Abschnitt> Einrichtung::naechsterAbschnitt(Abschnitt von) const
{
    const QList<Abschnitt> reihe = alleAbschnitte().mid(int(von) + 1) + alleAbschnitte().first(int(von));
    for (const bool noetig : {true, false}) {
        for (const Abschnitt abschnitt : reihe) {
            const Abschnittsstand stand = abschnittsstand(abschnitt);
            if (noetig ? stand.hindert() : stand.lage == Abschnittsstand::Lage::Offen)
                return abschnitt;
        }
    }
    return std::nullopt;
}

Einrichtung::Fortsetzung Einrichtung::fortsetzung() const
{
    if (const auto naechster = naechsterAbschnitt(m_abschnitt))
        return {.titel = gefuellt(Sprache::text(u"Weiter zu %@"_s), {abschnittTitel(*naechster)}),
                .grund = fussnote(m_abschnitt, lage())};
    const QString hindernis = starthindernis();
    return {.titel = Sprache::text(u"Durchgang starten"_s),
            .grund = hindernis.isEmpty() ? fussnote(m_abschnitt, lage()) : hindernis,
            .geht = hindernis.isEmpty()};
}

QString Einrichtung::starthindernis() const
{
    if (!m_nachbarn.profilwahl->offen())
        return Sprache::text(u"Der Katalog ist nicht offen."_s);
    if (m_nachbarn.durchgang->laeuft())
        return Sprache::text(u"Der Durchgang läuft schon."_s);
    if (m_stand.katalog.zugang == Zugang::Beschaedigt)
        return Sprache::text(u"Der Katalog ist beschädigt."_s);
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        const Abschnittsstand stand = abschnittsstand(abschnitt);
        if (stand.hindert())
            return gefuellt(Sprache::text(u"Es fehlt noch: %@ (%@)."_s), {abschnittTitel(abschnitt), stand.zeile});
    }
    if (m_nachbarn.modelldienst->modellstand().art == Modellstand::Art::Laedt)
        return Sprache::text(u"Das Sprachmodell wird gerade geladen."_s);
    return m_nachbarn.profilwahl->bereitZumStart() ? QString() : Sprache::text(u"Es wird noch nachgesehen."_s);
}

void Einrichtung::strukturEinlesen() { m_struktur.einlesen(); }

QString Einrichtung::ausnahmeAufnehmen(const QString &regel)
{
    const QList<Ausnahmefilter::Regel> neue = regelnVon(regel);
    if (!aktiv() || neue.isEmpty())
        return {};
    const QList<Ausnahmefilter::Regel> alte = Ausnahmefilter(aktiv()->ausnahmen).regeln();
    if (std::any_of(alte.begin(), alte.end(), [&](const auto &r) { return r.kern == neue.first().kern; }))
        return gefuellt(Sprache::text(u"%@ steht schon in der Liste"_s), {neue.first().roh});
    m_nachbarn.profilwahl->aendern([&](Profil &p) { p.ausnahmen << neue.first().roh; });
    ausnahmenAnwenden();
    return {};
}

QString Einrichtung::ausnahmeWaehlen()
{
    if (!aktiv())
        return {};
    const auto ordner =
        Ordnerwahl::ordnerWaehlen(Sprache::text(u"Ordner wählen, der in Ruhe gelassen wird"_s),
                                  u"ausnahme-"_s + aktiv()->id.toString(QUuid::WithoutBraces), aktiv()->quelle);
    if (!ordner || !aktiv())
        return {};
    const auto regel = aktiv()->regelFuer(*ordner);
    return regel ? ausnahmeAufnehmen(*regel)
                 : Sprache::text(u"Das ist der Herkunftsordner selbst. Dann bliebe nichts zu lesen."_s);
}

void Einrichtung::ausnahmeEntfernen(const QString &regel)
{
    if (!aktiv() || !aktiv()->ausnahmen.contains(regel))
        return;
    m_nachbarn.profilwahl->aendern([&](Profil &p) { p.ausnahmen.removeOne(regel); });
    ausnahmenAnwenden();
}

void Einrichtung::ausnahmenAnwenden()
{
    if (!m_nachbarn.profilwahl->kannHandeln())
        return;
    m_nachbarn.durchgang->ausnahmenBeachten(aktiv()->ausnahmen);
    OffenesProfil *offenes = m_nachbarn.profilwahl->offenes();
    imHintergrund(
        offenes, [db = offenes->db(), profil = *aktiv()] { return ausnahmenDurchsetzen(*db, profil); },
        [this](const Ausgang<QStringList> &ausgang) {
            if (!ausgang.wert)
                m_nachbarn.meldestelle->melden(fehlersatz(ausgang.fehler));
            else if (!ausgang.wert->isEmpty())
                m_nachbarn.meldestelle->melden(ausgang.wert->join(u", "_s), Ton::Gut);
            m_nachbarn.pruefung->aktualisieren();
        });
}

Beispiel Einrichtung::beispiel() const { return aktiv() ? Beispiel::fuer(*aktiv(), m_stand.beispiel) : Beispiel(); }

void Einrichtung::anderesBeispiel()
{
    OffenesProfil *offenes = m_nachbarn.profilwahl->offenes();
    if (!offenes)
        return;
    const qint64 id = m_stand.beispiel ? m_stand.beispiel->id : 0;
    imHintergrund(
        offenes, [db = offenes->db(), id] { return Beispiel::naechstes(*db, id); },
        [this](const Ausgang<std::optional<Dokument>> &ausgang) {
            if (!ausgang.wert || *ausgang.wert == m_stand.beispiel)
                return;
            m_stand.beispiel = *ausgang.wert;
            Q_EMIT einrichtungGeaendert();
        });
}

void Einrichtung::gelerntLesen()
{
    OffenesProfil *offenes = m_nachbarn.profilwahl->offenes();
    if (!offenes)
        return;
    imHintergrund(
        offenes, [db = offenes->db()] { return Lernstand::lesen(*db); },
        [this](const Ausgang<Lernstand> &ausgang) {
            if (!ausgang.wert || *ausgang.wert == m_stand.gelerntes)
                return;
            m_stand.gelerntes = *ausgang.wert;
            Q_EMIT gelerntGelesen();
        });
}

/** Once the setup is complete, and only to who looks at it. */
void Einrichtung::ablageAnbieten()
{
    using Lage = Abschnittsstand::Lage;
    const QList<Abschnitt> &alle = alleAbschnitte();
    const bool fertig = std::all_of(alle.begin(), alle.end(), [this](Abschnitt abschnitt) {
        const Abschnittsstand stand = abschnittsstand(abschnitt);
        return !stand.hindert() && stand.lage != Lage::Prueft && stand.lage != Lage::Offen;
    });
    if (m_gewaehlt && aktiv() && fertig)
        m_ablagelernen.anbieten();
}

void Einrichtung::ortVergessen(const QString &kennung)
{
    lernenAendern([gemeint = Lernstand::gemeint(kennung)](
                      Lernspeicher &speicher) { speicher.ortVergessen(gemeint.first, gemeint.second); },
                  Sprache::text(u"Gelernte Zuordnung verworfen"_s));
}

void Einrichtung::gleichungVergessen(const QString &von)
{
    lernenAendern([von](Lernspeicher &speicher) { speicher.gleichungVergessen(von); },
                  Sprache::text(u"Namensgleichung verworfen"_s));
}

void Einrichtung::allesVergessen()
{
    lernenAendern([](Lernspeicher &speicher) { speicher.leeren(); }, Sprache::text(u"Alles Gelernte verworfen"_s));
}

void Einrichtung::lernenAendern(const std::function<void(Lernspeicher &)> &aenderung, const QString &erfolg)
{
    if (!m_nachbarn.profilwahl->kannHandeln())
        return;
    const auto arbeit = [db = m_nachbarn.profilwahl->offenes()->db(), profil = *aktiv(), aenderung] {
        Lernspeicher speicher(*db, profil);
        aenderung(speicher);
        return true;
    };
    imHintergrund(this, arbeit, [this, erfolg](const Ausgang<bool> &ausgang) {
        m_nachbarn.meldestelle->melden(ausgang.wert ? erfolg : fehlersatz(ausgang.fehler),
                                       ausgang.wert ? Ton::Gut : Ton::Warnung);
        gelerntLesen();
        m_nachbarn.pruefung->aktualisieren();
    });
}

void Einrichtung::spracheVorbereiten()
{
    const auto arbeit = [] {
        Sprache::vorbereiten();
        return Sprache::eigenerOrdner();
    };
    imHintergrund(this, arbeit, [this](const Ausgang<QString> &ausgang) {
        if (ausgang.wert)
            Q_EMIT spracheVorbereitet(*ausgang.wert);
    });
}

void Einrichtung::nachsprechen()
{
    m_stand.strukturmangel = Sprache::nachgesprochen(m_stand.strukturmangel);
    m_ablagelernen.nachsprechen();
}
} // namespace quillmar::zustand
