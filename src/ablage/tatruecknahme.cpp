#include "tatruecknahme.h"

#include "aufzeichnung.h"
#include "bewegungen.h"
#include "bewegungsgang.h"
#include "bewegungspruefung.h"
#include "lernspeicher.h"
#include "sprache.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
constexpr qsizetype hoechstensGruppe = 100;

/** The intent to take a movement back, and what stands against it. */
struct Vorhaben {
    Absicht absicht;
    QString hindernis; ///< empty if nothing does
};

std::optional<Vorhaben> vorhaben(Datenbank &db, const Profil &profil, qint64 protokollId)
{
    const auto bewegung = Bewegungen(db).eine(protokollId);
    if (!bewegung)
        return std::nullopt;
    Vorhaben v;
    v.absicht.art = Absicht::Art::Ruecknahme;
    v.absicht.protokollId = protokollId;
    v.absicht.profil = profil;
    v.absicht.zeile = Aufzeichnung::zeileAus(*bewegung);
    v.absicht.status = statusZurueck(v.absicht.zeile);
    v.hindernis = Bewegungspruefung::hindernis(v.absicht.zeile, Bewegungspruefung::stand(db, protokollId));
    return v;
}

[[noreturn]] void nichtsDa() { throw Fehler(Sprache::text(u"Es gibt nichts rückgängig zu machen"_s)); }

/** Why nothing of a deed can be taken back; empty if something can. */
QString hindernisVon(Datenbank &db, const Profil &profil, const QList<Taten::Posten> &posten)
{
    QString grund;
    for (const Taten::Posten &p : posten) {
        const auto v = p.protokollId == 0 ? std::nullopt : vorhaben(db, profil, p.protokollId);
        if (!v || v->hindernis.isEmpty())
            return {};
        if (grund.isEmpty())
            grund = v->hindernis;
    }
    return grund;
}

/** One deed on its way back. */
class Ruecknehmer
{
public:
    Ruecknehmer(Bewegungsgang &gang, Datenbank &db, const Profil &profil, const Taten::Tat &tat)
        : m_gang(gang), m_db(db), m_profil(profil), m_tat(tat), m_posten(Taten::offene(db, tat))
    {
    }

    [[nodiscard]] bool istLeer() const { return m_posten.isEmpty(); }

    [[nodiscard]] QString hindernis() const { return hindernisVon(m_db, m_profil, m_posten); }

    [[nodiscard]] Zurueckgenommen ausfuehren(const Tatruecknahme::Fortschritt &fortschritt)
    {
        nurStatus();
        bewegungen(fortschritt);
        if (m_ergebnis.dokumente.isEmpty() && !m_ergebnis.fehler.isEmpty())
            throw Fehler(m_ergebnis.fehler.first());
        schliessen();
        return std::move(m_ergebnis);
    }

private:
    /** What is back is back: a catalogue that fails now leaves the closing to the next time. */
    void schliessen()
    {
        try {
            if (Taten::istErledigt(m_db, m_tat))
                Taten::schliessen(m_db, m_tat);
        } catch (const Fehler &) {
            return;
        }
    }

    /** None when there is no such movement, or the catalogue cannot tell; the latter is noted. */
    [[nodiscard]] std::optional<Vorhaben> vorhabenFuer(const Taten::Posten &posten)
    {
        try {
            return posten.protokollId == 0 ? std::nullopt : vorhaben(m_db, m_profil, posten.protokollId);
        } catch (const Fehler &f) {
            m_ergebnis.fehler << f.text();
            return std::nullopt;
        }
    }

    void nurStatus()
    {
        QList<Taten::Posten> status;
        std::copy_if(m_posten.cbegin(), m_posten.cend(), std::back_inserter(status),
                     [](const Taten::Posten &p) { return p.protokollId == 0; });
        Taten::statusZurueck(m_db, status);
        for (const Taten::Posten &p : std::as_const(status))
            m_ergebnis.dokumente.prepend(p.dokument);
        nachrechnen();
    }

    /** What is back is back, also with the values of before. */
    void nachrechnen()
    {
        try {
            Lernspeicher(m_db, m_profil).nachrechnen(m_ergebnis.dokumente);
        } catch (const Fehler &f) {
            m_ergebnis.fehler << f.text();
        }
    }

    void bewegungen(const Tatruecknahme::Fortschritt &fortschritt)
    {
        QList<Absicht> gruppe;
        qint64 fertig = 0;
        for (const Taten::Posten &p : std::as_const(m_posten)) {
            if (fortschritt && !fortschritt(fertig++, m_posten.size()))
                break;
            const auto v = vorhabenFuer(p);
            if (!v)
                continue;
            if (v->hindernis.isEmpty())
                gruppe << v->absicht;
            else
                m_ergebnis.fehler << v->hindernis;
            if (gruppe.size() >= hoechstensGruppe)
                zuruecknehmen(std::exchange(gruppe, {}));
        }
        zuruecknehmen(gruppe);
    }

    void zuruecknehmen(const QList<Absicht> &gruppe)
    {
        if (gruppe.isEmpty())
            return;
        const QStringList fehler = m_gang.zuruecknehmen(gruppe, m_profil.quelle);
        for (qsizetype i = 0; i < fehler.size(); ++i) {
            if (!fehler.at(i).isEmpty()) {
                m_ergebnis.fehler << fehler.at(i);
                continue;
            }
            m_ergebnis.bewegt = true;
            m_ergebnis.dokumente.prepend(gruppe.at(i).zeile.dokument);
        }
    }

    Bewegungsgang &m_gang;
    Datenbank &m_db;
    const Profil &m_profil;
    Taten::Tat m_tat;
    QList<Taten::Posten> m_posten;
    Zurueckgenommen m_ergebnis;
};

/** The first time the reason is told, from then on the deed is passed over while it lasts. */
void uebergehenOderMelden(Datenbank &db, const Taten::Tat &tat, const QString &hindernis)
{
    if (Taten::istUebergangen(db, tat))
        return;
    Taten::uebergehen(db, tat);
    throw Fehler(hindernis);
}
} // namespace

Zurueckgenommen Tatruecknahme::letzte(const std::shared_ptr<Datenbank> &db, const Profil &profil,
                                      const std::optional<Taten::Tat> &diese, const Fortschritt &fortschritt)
{
    Bewegungsgang gang(db);
    Taten::Folge folge(*db);
    while (const auto tat = folge.naechste()) {
        Ruecknehmer ruecknehmer(gang, *db, profil, *tat);
        if (ruecknehmer.istLeer()) { // taken back on other ways
            if (Taten::istErledigt(*db, *tat))
                Taten::schliessen(*db, *tat);
            continue;
        }
        if (diese && *tat != *diese)
            throw Fehler(Sprache::text(u"Inzwischen wurde schon etwas anderes bewegt"_s));
        if (const QString hindernis = ruecknehmer.hindernis(); !hindernis.isEmpty()) {
            uebergehenOderMelden(*db, *tat, hindernis);
            continue;
        }
        return ruecknehmer.ausfuehren(fortschritt);
    }
    nichtsDa();
}

bool Tatruecknahme::istMoeglich(Datenbank &db)
{
    Taten::Folge folge(db);
    while (const auto tat = folge.naechste()) {
        if (!tat->bewegung && Taten::istErledigt(db, *tat))
            continue;
        if (!Taten::istUebergangen(db, *tat) || hindernisVon(db, {}, Taten::offene(db, *tat)).isEmpty())
            return true;
    }
    return false;
}

qint64 Tatruecknahme::letzteBewegung(const std::shared_ptr<Datenbank> &db, const Profil &profil)
{
    Bewegungsgang gang(db);
    const Bewegungen bewegungen(*db);
    for (auto id = bewegungen.letzte(); id; id = bewegungen.letzte(*id)) {
        const auto v = vorhaben(*db, profil, *id);
        if (!v)
            continue;
        if (!v->hindernis.isEmpty()) {
            uebergehenOderMelden(*db, {.bewegung = true, .id = *id}, v->hindernis);
            continue;
        }
        const QString fehler = gang.zuruecknehmen({v->absicht}, profil.quelle).first();
        if (!fehler.isEmpty())
            throw Fehler(fehler);
        return v->absicht.zeile.dokument;
    }
    nichtsDa();
}
} // namespace quillmar::ablage
