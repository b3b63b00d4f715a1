#include "ablagelernen.h"

#include "baumwissen.h"
#include "fehlersatz.h"
#include "gelerntes.h"
#include "meldestelle.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"
#include "zielwurzel.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
using Ablagelesung::Ergebnis;
using Ablagelesung::Vorbehalt;
using lernen::Baumkenntnis;
using lernen::Baumwissen;

namespace
{
const QString angebotsmarke = u"angebot-ablage"_s; // among what happens once for each catalogue

/** What a reading depends on. */
bool liestSichGleich(const Profil &a, const Profil &b)
{
    return a.zielWurzel == b.zielWurzel && a.namensVorlage == b.namensVorlage && a.pfadVorlage == b.pfadVorlage &&
           a.zweige == b.zweige && a.eigenkennungen() == b.eigenkennungen();
}

/** A tree that has gone meanwhile must not look like one that knows little. Blocks. */
Ergebnis vollstaendigGelesen(Datenbank &db, const Profil &profil, const Ablagelesung::Fortschritt &fortschritt,
                             const std::stop_token &ende)
{
    Ergebnis ergebnis = Ablagelesung::lesen(db, profil, fortschritt, ende);
    Zielwurzel::pruefen(db, profil);
    return ergebnis;
}

/** Blocks. */
bool istAnzubieten(Datenbank &db, const Profil &profil, const std::stop_token &ende)
{
    if (Baumwissen(db).istUebernommen() || Gelerntes(db).istUebertragen(angebotsmarke))
        return false;
    Zielwurzel::pruefen(db, profil);
    return Ablagelesung::hatDokumente(profil, ende);
}
} // namespace

Ablagelernen::Ablagelernen(Profilwahl *profilwahl, Meldestelle *meldestelle)
    : m_profilwahl(profilwahl), m_meldestelle(meldestelle), m_lesung(this), m_angebotsfrage(this)
{
    connect(m_profilwahl, &Profilwahl::einstellungenGeaendert, this, &Ablagelernen::einstellungenPruefen);
}

std::shared_ptr<Datenbank> Ablagelernen::db() const
{
    return m_profilwahl->offen() ? m_profilwahl->offenes()->db() : nullptr;
}

void Ablagelernen::setzen(Lage lage, const Befundregel &befund)
{
    m_lage = lage;
    m_regel = befund;
    m_befund = m_regel ? m_regel() : Befund();
    Q_EMIT geaendert();
}

void Ablagelernen::wechseln()
{
    m_lesung.verwerfen();
    m_angebotsfrage.verwerfen();
    m_angebot = false;
    m_angebotGesehen = false;
    m_angebotenFuer.clear();
    setzeFund({});
    setzen(Lage::Ruht);
}

void Ablagelernen::nachsprechen()
{
    m_fehler = Sprache::nachgesprochen(m_fehler);
    if (m_regel)
        m_befund = m_regel();
}

/** What was read by other settings is not what these would find. */
void Ablagelernen::einstellungenPruefen(const Profil &vorher)
{
    const Profil *jetzt = m_profilwahl->aktiv();
    if (!jetzt || liestSichGleich(*jetzt, vorher) || (m_lage != Lage::Liest && m_lage != Lage::Auswahl))
        return;
    abbrechen();
    setzen(Lage::Ruht, [] {
        return Befund{.marke = Befund::Marke::Hinweis,
                      .satz = Sprache::text(u"Die Einstellungen sind andere geworden. Lies die Ablage noch einmal."_s)};
    });
}

void Ablagelernen::lesen()
{
    if (!m_profilwahl->kannHandeln() || m_lage != Lage::Ruht)
        return;
    m_angebot = false;
    const auto briefe = Briefkasten::fuer(this);
    const auto arbeit = [this, briefe, db = db(), profil = *m_profilwahl->aktiv()](const std::stop_token &ende) {
        const auto melden = [this, briefe, ende](qint64 dateien) {
            briefe->fortschreiben([this, ende, dateien] {
                if (!ende.stop_requested() && m_lage == Lage::Liest)
                    setzen(Lage::Liest, [dateien] { return lesebefund(dateien); });
            });
        };
        return vollstaendigGelesen(*db, profil, melden, ende);
    };
    m_lesung.stellen(arbeit, [this](const Ausgang<Ergebnis> &ausgang) { gelesen(ausgang); });
    setzen(Lage::Liest, [] { return lesebefund(0); });
}

void Ablagelernen::gelesen(const Ausgang<Ergebnis> &ausgang)
{
    m_fehler = fehlersatz(ausgang.fehler);
    if (!ausgang.wert)
        return setzen(Lage::Ruht, [this] { return Befund{.marke = Befund::Marke::Warnung, .satz = m_fehler}; });
    setzeFund(*ausgang.wert);
    setzen(m_fund.zeilen.isEmpty() ? Lage::Ruht : Lage::Auswahl,
           [this, vorlage = m_profilwahl->aktiv()->namensVorlage] { return fundbefund(m_fund, vorlage); });
}

void Ablagelernen::setzeFund(const Ergebnis &fund)
{
    m_fund = fund;
    zaehlen();
    Q_EMIT gefunden();
}

void Ablagelernen::zaehlen()
{
    m_angekreuzte =
        std::count_if(m_fund.zeilen.begin(), m_fund.zeilen.end(), [](const auto &z) { return z.angekreuzt; });
    Q_EMIT angekreuztGeaendert();
}

void Ablagelernen::setzeAngekreuzt(const QList<qsizetype> &stellen, bool angekreuzt)
{
    if (m_lage != Lage::Auswahl)
        return;
    for (const qsizetype stelle : stellen) {
        Ablagelesung::Zeile &zeile = m_fund.zeilen[stelle];
        zeile.angekreuzt = angekreuzt && zeile.vorbehalt != Vorbehalt::ZuKurz;
    }
    zaehlen();
}

void Ablagelernen::vorschlagen(const QList<qsizetype> &stellen)
{
    if (m_lage != Lage::Auswahl)
        return;
    for (const qsizetype stelle : stellen)
        m_fund.zeilen[stelle].angekreuzt = m_fund.zeilen.at(stelle).vorbehalt == Vorbehalt::Keiner;
    zaehlen();
}

void Ablagelernen::abbrechen()
{
    if (m_lage != Lage::Liest && m_lage != Lage::Auswahl)
        return;
    m_lesung.verwerfen();
    setzen(Lage::Ruht);
    setzeFund({});
}

void Ablagelernen::uebernehmen()
{
    if (m_lage == Lage::Auswahl && m_angekreuzte > 0)
        schreiben(Lage::Schreibt, Ablagelesung::angekreuzte(m_fund.zeilen));
}

void Ablagelernen::zuruecknehmen()
{
    if (m_lage == Lage::Ruht)
        schreiben(Lage::NimmtZurueck, {});
}

/** Goes to its end whatever profile is shown then; of one that was left only a failure is told. */
void Ablagelernen::schreiben(Lage lage, const QList<Baumkenntnis> &kenntnisse)
{
    if (!m_profilwahl->kannHandeln())
        return;
    m_angebot = false;
    const qint64 gegenueber = kenntnisse.size();
    const auto briefe = Briefkasten::fuer(this);
    const Profil profil = *m_profilwahl->aktiv();
    const auto arbeit = [this, briefe, db = db(), profil, kenntnisse, gegenueber] {
        const auto melden = [&](qint64 erledigt, qint64 gesamt) {
            briefe->fortschreiben([this, woher = db.get(), gegenueber, erledigt, gesamt] {
                fortschreiben(woher, gegenueber, erledigt, gesamt);
            });
        };
        return Baumwissen(*db, profil).uebernehmen(kenntnisse, Baumwissen::Wartende::Nachrechnen, melden);
    };
    imHintergrund(this, arbeit, [this, db = std::weak_ptr(db()), profil, gegenueber](const Ausgang<qint64> &ausgang) {
        if (!db.expired() && db.lock() == this->db())
            geschrieben(gegenueber, ausgang);
        else if (!ausgang.wert)
            m_meldestelle->melden(gefuellt(Sprache::text(u"Profil „%@“: %@"_s),
                                           {profil.name, gescheitert(gegenueber, fehlersatz(ausgang.fehler)).satz}));
    });
    m_anteil = 0;
    setzen(lage, [gegenueber] { return schreibbefund(gegenueber, 0, 0); });
}

void Ablagelernen::fortschreiben(const Datenbank *db, qint64 gegenueber, qint64 erledigt, qint64 gesamt)
{
    if (db != this->db().get() || (m_lage != Lage::Schreibt && m_lage != Lage::NimmtZurueck))
        return;
    m_anteil = double(erledigt) / double(std::max<qint64>(1, gesamt));
    setzen(m_lage, [=] { return schreibbefund(gegenueber, erledigt, gesamt); });
}

/** After a failure the choice stays, so that the same press does the rest. */
void Ablagelernen::geschrieben(qint64 gegenueber, const Ausgang<qint64> &ausgang)
{
    m_fehler = fehlersatz(ausgang.fehler);
    const bool bleibt = !ausgang.wert && m_lage == Lage::Schreibt;
    setzen(bleibt ? Lage::Auswahl : Lage::Ruht, [this, gegenueber, angepasste = ausgang.wert] {
        return angepasste ? gelungen(gegenueber, *angepasste) : gescheitert(gegenueber, m_fehler);
    });
    if (!bleibt)
        setzeFund({});
    m_meldestelle->melden(m_befund.satz, ausgang.wert ? Meldestelle::Ton::Gut : Meldestelle::Ton::Warnung);
    Q_EMIT gelernt();
}

void Ablagelernen::anbieten()
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!m_profilwahl->kannHandeln() || profil->zielWurzel == m_angebotenFuer)
        return;
    m_angebotenFuer = profil->zielWurzel;
    m_angebotsfrage.stellen(
        [db = db(), profil = *profil](const std::stop_token &ende) { return istAnzubieten(*db, profil, ende); },
        [this](const Ausgang<bool> &ausgang) {
            m_angebot = ausgang.wert.value_or(false);
            Q_EMIT geaendert();
        });
}

/** Where that cannot be written, it is offered once more. */
void Ablagelernen::angebotGesehen()
{
    if (!m_profilwahl->offen() || std::exchange(m_angebotGesehen, true))
        return;
    Hintergrund::starten([db = db()] { Gelerntes(*db).uebertragenVermerken(angebotsmarke); });
}

void Ablagelernen::ablehnen()
{
    m_angebot = false;
    Q_EMIT geaendert();
}
} // namespace quillmar::zustand
