#include "profilwahl.h"

#include "analyse.h"
#include "fehlersatz.h"
#include "meldestelle.h"
#include "oeffnung.h"
#include "offenesprofil.h"
#include "profilsicherung.h"
#include "programmordner.h"
#include "sprache.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
template <typename Liste>
auto nachId(Liste &liste, const QUuid &id)
{
    return std::find_if(liste.begin(), liste.end(), [&](const Profil &p) { return p.id == id; });
}
} // namespace

Profilwahl::Profilwahl(Meldestelle *meldestelle)
    : m_meldestelle(meldestelle), m_sicherung(new Profilsicherung(this)), m_oeffnung(this), m_bereitschaftsfrage(this)
{
    const Profilspeicher::Gefunden gefunden = Profilspeicher::lesen();
    m_profile = gefunden.profile;
    if (gefunden.unlesbar)
        m_unlesbareProfile = Profilspeicher::unlesbareSichern();
    m_sicherung->setzeStand(m_profile);
    m_vorab = gefunden.anmerkungen;
    if (gefunden.unlesbar) // nothing will open that could say it
        m_meldestelle->melden(m_vorab.join(u", "_s));
    connect(m_sicherung, &Profilsicherung::gesichert, this, &Profilwahl::uebernehmen);
    connect(m_sicherung, &Profilsicherung::gemeldet, this, [this](const QString &satz) {
        if (oeffnet())
            m_vorab << satz;
        m_meldestelle->melden(satz);
    });
}

Profilwahl::~Profilwahl() = default;

QString Profilwahl::datenordner() { return programmOrdner(); }

const Profil *Profilwahl::aktiv() const
{
    if (m_offenes)
        return &m_offenes->profil();
    return m_geschlossenes ? &*m_geschlossenes : nullptr;
}

void Profilwahl::beginnen(const QString &name)
{
    if (aktiv() || oeffnet() || m_profile.isEmpty())
        return;
    auto gewaehlt = std::find_if(m_profile.cbegin(), m_profile.cend(), [&](const Profil &p) { return p.name == name; });
    if (gewaehlt == m_profile.cend()) {
        if (!name.isEmpty())
            m_vorab << gefuellt(Sprache::text(u"Profil nicht gefunden: %@"_s), {name});
        gewaehlt = m_profile.cbegin();
    }
    aktivieren(gewaehlt->id);
}

void Profilwahl::aktivieren(const QUuid &id)
{
    const auto gewaehlt = nachId(m_profile, id);
    if (gewaehlt == m_profile.end() || (m_offenes && m_offenes->profil().id == id && !oeffnet()))
        return;
    if (!m_offenes) {
        m_geschlossenes = *gewaehlt;
        Q_EMIT aktivGeaendert();
    }
    oeffnen(*gewaehlt);
}

void Profilwahl::oeffnen(const Profil &profil)
{
    m_setztEin = false;
    oeffnen(profil.id, [profil] { return Oeffnung::von(profil); });
}

void Profilwahl::oeffnen(const QUuid &id, const std::function<Oeffnung()> &arbeit)
{
    m_oeffnung.stellen(arbeit, [this, id](const Ausgang<Oeffnung> &ausgang) {
        if (ausgang.wert) {
            geoeffnet(id, *ausgang.wert);
        } else {
            const QString satz = fehlersatz(ausgang.fehler);
            m_katalogfehler = m_offenes ? QString() : satz; // else the former one stays in use
            m_meldestelle->melden(satz);
        }
        Q_EMIT oeffnetGeaendert();
    });
    m_katalogfehler.clear();
    Q_EMIT oeffnetGeaendert();
}

void Profilwahl::geoeffnet(const QUuid &id, const Oeffnung &oeffnung)
{
    const auto gewaehlt = nachId(m_profile, id);
    if (gewaehlt == m_profile.end()) // another program has removed it meanwhile
        return m_meldestelle->melden(Sprache::text(u"Profil nicht gefunden"_s));
    if (m_offenes && m_offenes->analyse()->laeuft())
        m_vorab << gefuellt(Sprache::text(u"Der Durchgang von %@ wurde angehalten, der nächste Start setzt ihn fort"_s),
                            {aktiv()->name});
    wechseln(std::make_unique<OffenesProfil>(*gewaehlt, oeffnung.db));
    using Ton = Meldestelle::Ton;
    const Ton ton = oeffnung.gelungen && m_vorab.isEmpty() ? Ton::Gut : Ton::Warnung;
    m_meldestelle->berichten({}, (std::exchange(m_vorab, {}) + oeffnung.hinweise).join(u", "_s), ton);
    Q_EMIT eingetreten(oeffnung);
    bereitschaftPruefen();
}

void Profilwahl::wechseln(std::unique_ptr<OffenesProfil> neues)
{
    m_bereitschaftsfrage.verwerfen();
    m_bereitschaft.reset();
    m_geschlossenes.reset();
    const auto verlassenes = std::exchange(m_offenes, std::move(neues));
    Q_EMIT gewechselt(verlassenes.get());
    Q_EMIT aktivGeaendert();
}

/** As before the first profile was opened. */
void Profilwahl::schliessen()
{
    m_katalogfehler.clear();
    wechseln(nullptr);
    Q_EMIT eingetreten({});
    m_meldestelle->berichten({}, {}, Meldestelle::Ton::Ruhig);
    Q_EMIT bereitschaftGeaendert();
}

QString Profilwahl::katalogdatei() const { return aktiv() ? Profilspeicher::katalogDatei(*aktiv()) : QString(); }

void Profilwahl::erneutOeffnen()
{
    if (m_geschlossenes && !oeffnet())
        oeffnen(*m_geschlossenes);
}

QString Profilwahl::oeffnungssatz() const
{
    return m_setztEin ? Sprache::text(u"Die Sicherung wird eingesetzt"_s)
                      : Sprache::text(u"Der Katalog wird geöffnet"_s);
}

void Profilwahl::sicherungEinsetzen(QString datei)
{
    if (!aktiv() || oeffnet())
        return;
    if (m_inArbeit || (m_offenes && m_offenes->analyse()->laeuft()))
        return m_meldestelle->melden(Sprache::text(u"Das geht erst, wenn fertig ist, was gerade läuft"_s));
    const Profil profil = *aktiv();
    QStringList andere;
    for (const Profil &p : std::as_const(m_profile)) {
        if (p.id != profil.id)
            andere << p.name;
    }
    const std::weak_ptr<Datenbank> benutzter = m_offenes ? m_offenes->db() : nullptr;
    schliessen();
    m_geschlossenes = profil;
    Q_EMIT aktivGeaendert();
    m_setztEin = true;
    oeffnen(profil.id, [profil, datei = std::move(datei), andere, benutzter] {
        return Oeffnung::mitSicherung(profil, datei, andere, [benutzter] { return benutzter.expired(); });
    });
}

void Profilwahl::neuesProfil()
{
    Profil neu;
    neu.name = gefuellt(Sprache::text(u"Ablage %@"_s), {QString::number(m_profile.size() + 1)});
    m_profile << neu;
    sichern();
    Q_EMIT profileGeaendert();
    aktivieren(neu.id);
    Q_EMIT angelegt();
}

void Profilwahl::setzeAktives(const Profil &profil)
{
    if (m_offenes)
        m_offenes->setzeProfil(profil);
    else
        m_geschlossenes = profil;
}

void Profilwahl::setzeProfil(const Profil &profil)
{
    if (!aktiv() || aktiv()->id != profil.id || *aktiv() == profil)
        return;
    const Profil vorher = *aktiv();
    setzeAktives(profil);
    sichern();
    folgen(vorher);
}

/** Whatever depends on the settings of the active profile, which were @p vorher. */
void Profilwahl::folgen(const Profil &vorher)
{
    Q_EMIT profileGeaendert();
    Q_EMIT einstellungenGeaendert(vorher);
    bereitschaftPruefen();
}

void Profilwahl::aendern(const std::function<void(Profil &)> &aenderung)
{
    if (!aktiv())
        return;
    Profil neu = *aktiv();
    aenderung(neu);
    setzeProfil(neu);
}

void Profilwahl::setzeKopieren(bool kopieren)
{
    aendern([kopieren](Profil &p) { p.kopieren = kopieren; });
}

void Profilwahl::profilEntfernen(const QUuid &id)
{
    const auto stelle = nachId(m_profile, id);
    if (stelle == m_profile.end())
        return;
    if (m_inArbeit || oeffnet())
        return m_meldestelle->melden(Sprache::text(u"Das geht erst, wenn fertig ist, was gerade läuft"_s));
    m_profile.erase(stelle);
    const bool warAktiv = aktiv() && aktiv()->id == id;
    if (warAktiv)
        schliessen();
    sichern();
    Q_EMIT profileGeaendert();
    if (warAktiv && !m_profile.isEmpty())
        aktivieren(m_profile.first().id);
}

void Profilwahl::sichern()
{
    if (aktiv()) {
        if (const auto stelle = nachId(m_profile, aktiv()->id); stelle != m_profile.end())
            *stelle = *aktiv();
    }
    m_sicherung->sichern(m_profile);
}

void Profilwahl::nachlesen() { m_sicherung->nachlesen(); }

/** What other programs have changed meanwhile. A profile that one of them removed stays while it is in use here. */
void Profilwahl::uebernehmen(const QList<Profil> &profile)
{
    if (profile == m_profile)
        return;
    m_profile = profile;
    if (!aktiv())
        return Q_EMIT profileGeaendert();
    const Profil vorher = *aktiv();
    if (const auto stelle = nachId(m_profile, vorher.id); stelle != m_profile.end())
        setzeAktives(*stelle);
    else
        m_profile << vorher;
    if (vorher == *aktiv())
        Q_EMIT profileGeaendert();
    else
        folgen(vorher);
}

void Profilwahl::bereitschaftPruefen()
{
    if (!aktiv())
        return;
    m_bereitschaftsfrage.stellen([profil = *aktiv()] { return Bereitschaft::pruefen(profil); },
                                 [this](const Ausgang<Bereitschaft> &ausgang) {
                                     if (!ausgang.wert || m_bereitschaft == ausgang.wert)
                                         return;
                                     m_bereitschaft = ausgang.wert;
                                     Q_EMIT bereitschaftGeaendert();
                                 });
}

void Profilwahl::nachsprechen()
{
    m_katalogfehler = Sprache::nachgesprochen(m_katalogfehler);
    if (m_offenes)
        m_offenes->setzeProtokollmangel(Sprache::nachgesprochen(m_offenes->protokollmangel()));
}
} // namespace quillmar::zustand
