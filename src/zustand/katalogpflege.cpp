#include "katalogpflege.h"

#include "dokumente.h"
#include "katalogpruefung.h"
#include "meldestelle.h"
#include "offenesprofil.h"
#include "profilwahl.h"

using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto takt = 1h; // a day of the clock: timers stand still while the computer sleeps

/**
 * Why there is no copy of today; empty where there is one. A catalogue that knows nothing, since it was lost and began
 * afresh perhaps, does not push out what is left of the former one.
 */
QString sichern(Datenbank &db, const std::stop_token &ende)
{
    const QString &pfad = Katalog::pfad(db);
    try {
        if (Dokumente(db).anzahl() > 0 && Sicherungen::istFaellig(pfad, QDateTime::currentDateTime()))
            Sicherungen::anlegen(pfad, ende);
        return {};
    } catch (const Fehler &f) {
        return f.text();
    }
}

/** Only what is whole is copied: a damaged catalogue must not push out a copy of the sound one. */
Katalogstand gepflegt(const std::shared_ptr<Datenbank> &db, const std::stop_token &ende)
{
    const QString pfad = Katalog::pfad(*db);
    Katalogstand stand;
    Hintergrund::hintanstellen([&] {
        const auto befund = Katalog::zugang(*db) == Zugang::Beschaedigt ? Katalogpruefung::Befund::Beschaedigt
                                                                        : Katalogpruefung::pruefen(pfad, ende);
        if (befund == Katalogpruefung::Befund::Beschaedigt)
            Katalog::sperren(*db);
        else if (befund == Katalogpruefung::Befund::Heil)
            stand.mangel = sichern(*db, ende);
    });
    stand.zugang = Katalog::zugang(*db);
    stand.sicherungen = Sicherungen::alle(pfad);
    return stand;
}
} // namespace

Katalogpflege::Katalogpflege(Profilwahl *profilwahl, Meldestelle *meldestelle)
    : m_profilwahl(profilwahl), m_meldestelle(meldestelle), m_pflege(this), m_liste(this)
{
    m_takt.setInterval(takt);
    connect(&m_takt, &QTimer::timeout, this, &Katalogpflege::nachsehen);
    connect(profilwahl, &Profilwahl::gewechselt, this, [this] {
        m_pflege.verwerfen();
        m_takt.stop();
        m_stand = {};
    });
    connect(profilwahl, &Profilwahl::eingetreten, this, &Katalogpflege::beginnen);
    connect(profilwahl, &Profilwahl::oeffnetGeaendert, this, &Katalogpflege::auflisten);
}

void Katalogpflege::beginnen()
{
    const OffenesProfil *offenes = m_profilwahl->offenes();
    setzeStand({.zugang = offenes ? Katalog::zugang(*offenes->db()) : Zugang::Schreiben,
                .sicherungen = m_stand.sicherungen,
                .mangel = {}});
    pflegen();
}

void Katalogpflege::pflegen()
{
    const OffenesProfil *offenes = m_profilwahl->offenes();
    if (!offenes)
        return;
    m_takt.start();
    stellen([db = offenes->db()](const std::stop_token &ende) { return gepflegt(db, ende); });
}

/** Once a day is enough. */
void Katalogpflege::nachsehen()
{
    const OffenesProfil *offenes = m_profilwahl->offenes();
    if (!offenes || m_pflege.laeuft())
        return;
    stellen([db = offenes->db(), bisher = m_stand](const std::stop_token &ende) {
        return Sicherungen::istFaellig(Katalog::pfad(*db), QDateTime::currentDateTime()) ? gepflegt(db, ende) : bisher;
    });
}

void Katalogpflege::stellen(const std::function<Katalogstand(const std::stop_token &)> &arbeit)
{
    m_pflege.stellen(arbeit, [this](const Ausgang<Katalogstand> &ausgang) {
        if (ausgang.wert)
            aufnehmen(*ausgang.wert);
    });
}

/** Copies there are also of a catalogue that does not open. */
void Katalogpflege::auflisten()
{
    if (m_profilwahl->oeffnet() || m_profilwahl->offen() || !m_profilwahl->aktiv())
        return;
    m_liste.stellen([pfad = m_profilwahl->katalogdatei()] { return Sicherungen::alle(pfad); },
                    [this](const Ausgang<QList<Sicherung>> &ausgang) {
                        if (ausgang.wert && !m_profilwahl->offen())
                            setzeStand({.zugang = Zugang::Schreiben, .sicherungen = *ausgang.wert, .mangel = {}});
                    });
}

/** What is new is said once. */
void Katalogpflege::aufnehmen(const Katalogstand &stand)
{
    const Katalogstand vorher = m_stand;
    setzeStand(stand);
    if (stand.zugang == Zugang::Beschaedigt && vorher.zugang != stand.zugang)
        m_meldestelle->melden(Katalog::nurLesenSatz(*m_profilwahl->offenes()->db()));
    else if (!stand.mangel.isEmpty() && stand.mangel != vorher.mangel)
        m_meldestelle->anhaengen(stand.mangel);
}

void Katalogpflege::setzeStand(const Katalogstand &stand)
{
    if (stand == m_stand)
        return;
    m_stand = stand;
    Q_EMIT geaendert();
}
} // namespace quillmar::zustand
