#include "zustand.h"

#include "analyse.h"
#include "datenbank.h"
#include "einstellungen.h"
#include "fehlersatz.h"
#include "hintergrund.h"
#include "oeffnung.h"
#include "profilsicherung.h"
#include "sprache.h"
#include "text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr auto schluesselTeilung = "teilung"_L1;
constexpr auto schluesselOrdner = "ordner"_L1;
constexpr double halbe = 0.5;
constexpr double kleinsteTeilung = 0.25;
constexpr double groessteTeilung = 0.75;
constexpr auto geduldAmEnde = 1s;

double gespeicherteTeilung()
{
    bool zahl = false;
    const double wert = Einstellungen::wert(schluesselTeilung).toDouble(&zahl);
    return zahl && std::isfinite(wert) ? std::clamp(wert, kleinsteTeilung, groessteTeilung) : halbe;
}

template <typename Liste>
auto nachId(Liste &liste, const QUuid &id)
{
    return std::find_if(liste.begin(), liste.end(), [&](const Profil &p) { return p.id == id; });
}
} // namespace

Zustand::Waehler Zustand::ordnerwaehler;
Zustand::Waehler Zustand::protokollwaehler;

Zustand::Zustand(QObject *vater)
    : QObject(vater), m_sicherung(new Profilsicherung(this)), m_briefe(Briefkasten::fuer(this)),
      m_ladebriefe(Briefkasten::fuer(this)), m_teilung(gespeicherteTeilung())
{
    const Profilspeicher::Gefunden gefunden = Profilspeicher::lesen();
    m_profile = gefunden.profile;
    if (gefunden.unlesbar)
        m_unlesbareProfile = Profilspeicher::unlesbareSichern();
    m_sicherung->standSetzen(m_profile);
    m_vorab = gefunden.anmerkungen;
    if (gefunden.unlesbar) // nothing will open that could say it
        melden(m_vorab.join(u", "_s));
    einrichtungFolgen();
    connect(m_sicherung, &Profilsicherung::gesichert, this, &Zustand::profileUebernehmen);
    connect(m_sicherung, &Profilsicherung::gemeldet, this, [this](const QString &satz) {
        if (m_oeffnet)
            m_vorab << satz;
        melden(satz);
    });
}

Zustand::~Zustand()
{
    m_halt.request_stop();
    m_ladeende.request_stop();
    m_zaehlende.request_stop();
    m_entwuerfe.sichern();
    for (const auto &lauf : m_auslaufende)
        lauf->sofortBeenden();
    if (m_analyse)
        m_analyse->sofortBeenden();
    m_analyse.reset();
    m_auslaufende.clear();
    Hintergrund::warten(geduldAmEnde);
}

void Zustand::beginnen(const QString &name)
{
    if (m_aktiv || m_oeffnet || m_profile.isEmpty())
        return;
    auto gewaehlt = std::find_if(m_profile.cbegin(), m_profile.cend(), [&](const Profil &p) { return p.name == name; });
    if (gewaehlt == m_profile.cend()) {
        if (!name.isEmpty())
            m_vorab << Sprache::text(u"Profil nicht gefunden"_s) + u": "_s + name;
        gewaehlt = m_profile.cbegin();
    }
    aktivieren(gewaehlt->id);
}

void Zustand::aktivieren(const QUuid &id)
{
    const auto gewaehlt = nachId(m_profile, id);
    if (gewaehlt == m_profile.end() || (m_aktiv && m_aktiv->id == id && !m_oeffnet && m_db))
        return;
    // What was asked for meant a document of the other catalogue.
    m_spaeter = {};
    if (!m_db) {
        m_aktiv = *gewaehlt;
        Q_EMIT aktivGeaendert();
    }
    oeffnen(*gewaehlt);
}

void Zustand::oeffnen(const Profil &profil)
{
    m_oeffnet = true;
    m_katalogfehler.clear();
    Q_EMIT oeffnetGeaendert();
    imHintergrund(
        this, [profil] { return Oeffnung::von(profil); },
        [this, profil, nummer = ++m_oeffnung](const Ausgang<Oeffnung> &ausgang) {
            if (nummer != m_oeffnung)
                return; // another profile was chosen meanwhile
            m_oeffnet = false;
            if (ausgang.wert) {
                geoeffnet(profil.id, *ausgang.wert);
            } else {
                m_katalogfehler = m_db ? QString() : fehlersatz(ausgang.fehler); // else the former one stays in use
                melden(fehlersatz(ausgang.fehler));
            }
            Q_EMIT oeffnetGeaendert();
        });
}

void Zustand::geoeffnet(const QUuid &id, const Oeffnung &oeffnung)
{
    const auto gewaehlt = nachId(m_profile, id);
    if (gewaehlt == m_profile.end()) // another program has removed it meanwhile
        return melden(Sprache::text(u"Profil nicht gefunden"_s));
    if (m_analyse && m_analyse->laeuft())
        m_vorab << gefuellt(Sprache::text(u"Der Durchgang von %@ wurde angehalten, der nächste Start setzt ihn fort"_s),
                            {m_aktiv->name});
    analyseAbloesen();
    m_spaeter = {}; // meant a document of the other catalogue
    m_aktiv = *gewaehlt;
    m_db = oeffnung.db;
    m_entwuerfe.wechseln(id, m_db, oeffnung.entwuerfe);
    m_buch.reset();
    m_protokollmangel.clear();
    m_rueckweg.reset();
    m_bereitschaft.reset();
    ++m_blickfrage;
    analyseAnlegen();
    m_nacharbeit = {};
    Q_EMIT nacharbeitGeaendert();
    Q_EMIT aktivGeaendert();
    m_geschehen.clear();
    melden((std::exchange(m_vorab, {}) + oeffnung.hinweise).join(u", "_s));
    zeigen(oeffnung.blick);
    bereitschaftPruefen();
    modellPruefen();
    protokollWaehlen(std::nullopt);
    m_protokollDateien.clear();
    protokolleListen();
    nacharbeitLesen();
    Q_EMIT gelerntGeaendert();
}

QString Zustand::katalogdatei() const { return m_aktiv ? Profilspeicher::katalogDatei(*m_aktiv) : QString(); }

void Zustand::erneutOeffnen()
{
    if (m_aktiv && !m_db && !m_oeffnet)
        oeffnen(*m_aktiv);
}

void Zustand::neuesProfil()
{
    Profil neu;
    neu.name = gefuellt(Sprache::text(u"Ablage %@"_s), {QString::number(m_profile.size() + 1)});
    m_profile << neu;
    sichern();
    Q_EMIT profileGeaendert();
    aktivieren(neu.id);
    setzeReiter(Reiter::einrichtung);
}

void Zustand::profilAendern(const Profil &profil)
{
    if (!m_aktiv || m_aktiv->id != profil.id || *m_aktiv == profil)
        return;
    const Profil vorher = *m_aktiv;
    m_aktiv = profil;
    sichern();
    profilFolgen(vorher);
}

/** Whatever depends on the settings of the active profile, which were @p vorher. */
void Zustand::profilFolgen(const Profil &vorher)
{
    Q_EMIT profileGeaendert();
    if (m_stueck)
        Q_EMIT angabenGeaendert();
    bereitschaftPruefen();
    if (vorher.modell != m_aktiv->modell)
        modellPruefen();
    if (vorher.protokollURL() != m_aktiv->protokollURL())
        protokolleListen();
}

void Zustand::kopierenSetzen(bool kopieren)
{
    if (!m_aktiv)
        return;
    Profil neu = *m_aktiv;
    neu.kopieren = kopieren;
    profilAendern(neu);
}

void Zustand::sichern()
{
    if (m_aktiv) {
        if (const auto stelle = nachId(m_profile, m_aktiv->id); stelle != m_profile.end())
            *stelle = *m_aktiv;
    }
    m_sicherung->sichern(m_profile);
}

/** What other programs have changed meanwhile. A profile that one of them removed stays while it is in use here. */
void Zustand::profileUebernehmen(const QList<Profil> &profile)
{
    if (profile == m_profile)
        return;
    m_profile = profile;
    const auto vorher = m_aktiv;
    if (m_aktiv) {
        if (const auto stelle = nachId(m_profile, m_aktiv->id); stelle != m_profile.end())
            m_aktiv = *stelle;
        else
            m_profile << *m_aktiv;
    }
    if (vorher != m_aktiv)
        return profilFolgen(*vorher);
    Q_EMIT profileGeaendert();
}

void Zustand::bereitschaftPruefen()
{
    if (!m_aktiv)
        return;
    imHintergrund(
        this, [profil = *m_aktiv] { return Bereitschaft::pruefen(profil); },
        [this, nummer = ++m_bereitschaftsfrage](const Ausgang<Bereitschaft> &ausgang) {
            if (nummer != m_bereitschaftsfrage || !ausgang.wert || m_bereitschaft == ausgang.wert)
                return;
            m_bereitschaft = ausgang.wert;
            if (std::exchange(m_ersteWahl, false) && bereitZumStart())
                setzeReiter(Reiter::pruefen);
            Q_EMIT bereitschaftGeaendert();
        });
}

void Zustand::melden(const QString &hinweis, Ton ton)
{
    m_hinweis = hinweis;
    m_hinweisIstNeuer = true;
    m_ton = hinweis.isEmpty() ? Ton::ruhig : ton;
    Q_EMIT hinweisGeaendert();
}

void Zustand::nachsprechen()
{
    for (QString *satz : {&m_hinweis, &m_geschehen, &m_vorgang, &m_rueckbauMeldung, &m_protokollmangel,
                          &m_katalogfehler, &m_einrichtung.strukturmeldung})
        *satz = Sprache::nachgesprochen(*satz);
    for (QList<Rueckbaubefund> *befunde : {&m_rueckbauBilanz.fehler, &m_rueckbauBilanz.uebersprungen}) {
        for (Rueckbaubefund &befund : *befunde)
            befund.grund = Sprache::nachgesprochen(befund.grund);
    }
    Q_EMIT hinweisGeaendert();
    Q_EMIT rueckbauGeaendert();
}

QStringList Zustand::meldungen() const
{
    QStringList beide = m_hinweisIstNeuer ? QStringList{m_hinweis, m_geschehen} : QStringList{m_geschehen, m_hinweis};
    beide.removeAll(QString());
    return beide;
}

void Zustand::ausnahmenAnwenden()
{
    if (!kannHandeln())
        return;
    m_analyse->ausnahmenSetzen(m_aktiv->ausnahmen);
    imHintergrund(
        this, [db = m_db, profil = *m_aktiv] { return ausnahmenDurchsetzen(*db, profil); },
        [this, nummer = m_oeffnung](const Ausgang<QStringList> &ausgang) {
            if (nummer != m_oeffnung)
                return;
            if (!ausgang.wert)
                melden(fehlersatz(ausgang.fehler));
            else if (!ausgang.wert->isEmpty())
                melden(ausgang.wert->join(u", "_s), Ton::gut);
            aktualisieren();
        });
}

void Zustand::setzeReiter(Reiter reiter)
{
    m_ersteWahl = false;
    if (m_reiter == reiter)
        return;
    m_reiter = reiter;
    Q_EMIT reiterGeaendert();
}

void Zustand::setzeTeilung(double teilung)
{
    const double neu = std::clamp(teilung, kleinsteTeilung, groessteTeilung);
    if (neu == m_teilung)
        return;
    m_teilung = neu;
    Einstellungen::setzen(schluesselTeilung, neu);
    Q_EMIT teilungGeaendert();
}

std::optional<QString> Zustand::ordnerWaehlen(const QString &titel, const QString &zweck, const QString &sonst)
{
    if (!ordnerwaehler)
        return std::nullopt;
    const QString eigener = schluesselOrdner + u'/' + zweck;
    QString beginn = zweck.isEmpty() ? QString() : Einstellungen::wert(eigener).toString();
    for (const QString &ordner : {sonst, Einstellungen::wert(schluesselOrdner).toString()}) {
        if (beginn.isEmpty())
            beginn = ordner;
    }
    auto gewaehlt = ordnerwaehler(titel, beginn);
    if (gewaehlt) {
        Einstellungen::setzen(schluesselOrdner, *gewaehlt);
        if (!zweck.isEmpty())
            Einstellungen::setzen(eigener, *gewaehlt);
    }
    return gewaehlt;
}
