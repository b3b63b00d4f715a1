#include "urteiler.h"

#include "gelernteorte.h"
#include "gelerntes.h"
#include "lernregeln.h"
#include "namenskette.h"

#include <algorithm>

namespace quillmar::lernen
{
namespace
{
constexpr int hoechstensGesucht = 20;         // names
constexpr qsizetype hoechstensEinzeln = 2000; // words
constexpr double sichereKonfidenz = 0.75;     // from here on a place is not doubtful
constexpr double mindestensGelernt = 0.85;    // confidence of a place that the user has taught
} // namespace

bool Urteiler::istBekannt(const Ort &ort) const
{
    return Ortswahl::istVollstaendig(ort) && (m_profil.zweige.isEmpty() || m_profil.kennt(ort));
}

bool Urteiler::istSicher(const Ort &ort, double konfidenz) const
{
    return konfidenz >= sichereKonfidenz && istBekannt(ort);
}

std::optional<Eintrag> Urteiler::eintrag(const QString &schluessel)
{
    if (const auto bekannt = m_eintraege.constFind(schluessel); bekannt != m_eintraege.constEnd())
        return *bekannt;
    // Mostly there is one of the same key: then the others need not be read.
    std::optional<Eintrag> gefunden;
    if (m_regeln.genaueZuerst)
        gefunden = Gelerntes(m_db).zuordnung(schluessel);
    if (!gefunden) {
        if (const Eintrag *naher = naechster(moegliche(schluessel), schluessel))
            gefunden = *naher;
    }
    return *m_eintraege.insert(schluessel, gefunden);
}

/** A name that was misread is still the same one; only then does one count that merely contains it. */
const Eintrag *Urteiler::naechster(const QList<Eintrag> &alle, const QString &schluessel) const
{
    if (const Eintrag *gemeinter = m_regeln.verlesene ? Lernregeln::verlesener(alle, schluessel) : nullptr)
        return gemeinter;
    const auto nachrangig = [this](const Eintrag &e) { return istNurAusDemBaum(e); };
    return Lernregeln::passender(alle, schluessel, m_regeln.genaueZuerst, nachrangig);
}

/** The filing tree alone tells of the counterpart: that goes behind all that the reviewer has taught. */
bool Urteiler::istNurAusDemBaum(const Eintrag &eintrag) const
{
    const QList<Ortszahl> orte = GelernteOrte(m_db).orte(eintrag.schluessel);
    return !orte.isEmpty() && std::all_of(orte.begin(), orte.end(), [](const auto &o) { return o.anzahl == 0; });
}

/** Those that may fit. The catalogue finds them sooner than it could tell all; for many names all are read once. */
const QList<Eintrag> &Urteiler::moegliche(const QString &schluessel)
{
    if (m_gesucht < hoechstensGesucht) {
        m_verwandte = Gelerntes(m_db).verwandte(schluessel);
        ++m_gesucht;
        return m_verwandte;
    }
    if (!m_alle)
        m_alle = Gelerntes(m_db).zuordnungen();
    return *m_alle;
}

const QList<Ortszahl> &Urteiler::orte(const Eintrag &eintrag)
{
    if (const auto bekannte = m_orte.constFind(eintrag.schluessel); bekannte != m_orte.constEnd())
        return *bekannte;
    QList<Ortszahl> orte = GelernteOrte(m_db).orte(eintrag.schluessel);
    if (!m_regeln.alleOrte)
        orte.clear();
    // Of equals the one that was confirmed last goes first.
    const auto letzter = std::stable_partition(orte.begin(), orte.end(), [&](auto &o) { return o.ort == eintrag.ort; });
    if (letzter == orte.begin())
        orte.prepend({.ort = eintrag.ort, .anzahl = eintrag.anzahl}); // of an earlier version
    orte.removeIf([this](const Ortszahl &o) { return !istBekannt(o.ort); });
    return *m_orte.insert(eintrag.schluessel, orte);
}

const QList<Wortstimmen::Platz> &Urteiler::plaetze(const Eintrag &eintrag, const QStringList &worte)
{
    const QList<Ortszahl> &bekannte = orte(eintrag);
    Wortschatz &schatz = m_wortschaetze[eintrag.schluessel];
    if (schatz.plaetze.isEmpty()) {
        for (const Ortszahl &o : bekannte)
            schatz.plaetze << Wortstimmen::Platz{.dokumente = std::max<qint64>(0, o.belesen)};
    }
    if (!schatz.ganz)
        nachschlagen(schatz, bekannte, worte);
    return schatz.plaetze;
}

/** Word by word for a few documents; for many it is quicker to read all. */
void Urteiler::nachschlagen(Wortschatz &schatz, const QList<Ortszahl> &orte, const QStringList &worte)
{
    QStringList neue;
    for (const QString &wort : worte) {
        const QString gleich = Wortstimmen::gefaltetesWort(wort);
        if (!schatz.gefragte.contains(gleich))
            neue << gleich;
        schatz.gefragte.insert(gleich);
    }
    schatz.ganz = schatz.gefragte.size() > hoechstensEinzeln;
    const GelernteOrte gelernte(m_db);
    for (qsizetype i = 0; i < orte.size(); ++i) {
        const qint64 id = orte.at(i).id;
        if (id == 0)
            continue;
        if (schatz.ganz)
            schatz.plaetze[i].worte = gelernte.alleWorte(id);
        else
            schatz.plaetze[i].worte.insert(gelernte.worte(id, neue));
    }
}

Urteiler::Urteil Urteiler::urteilen(const Modellantwort &antwort, Anlass anlass, const Worte &worte)
{
    Urteil urteil{.gegenueber = antwort.gegenueber, .ort = antwort.ort, .konfidenz = antwort.konfidenz, .von = {}};
    if (antwort.gegenueber.isEmpty())
        return urteil;
    if (const auto gleich = Namenskette::ende(antwort.gegenueber, Namenskette::gelernte(m_db))) {
        urteil.von = Lernregeln::schluessel(antwort.gegenueber);
        urteil.gegenueber = *gleich;
        urteil.nameGelernt = true;
    }
    const QString schluessel = Lernregeln::schluessel(urteil.gegenueber);
    if (schluessel.isEmpty() || (anlass == Anlass::Einordnen && schluessel.size() < Lernregeln::kuerzesterSchluessel))
        return urteil;
    if (const auto gefunden = eintrag(schluessel))
        ortUrteilen(urteil, *gefunden, antwort, anlass, worte);
    return urteil;
}

void Urteiler::ortUrteilen(Urteil &urteil, const Eintrag &eintrag, const Modellantwort &antwort, Anlass anlass,
                           const Worte &worte)
{
    const QString schluessel = Lernregeln::schluessel(urteil.gegenueber);
    const bool verlesen = m_regeln.verlesene && Lernregeln::istVerlesen(schluessel, eintrag.schluessel);
    const bool ganzes = !m_regeln.ganzeWoerter || verlesen || Lernregeln::istGanzesWort(eintrag.schluessel, schluessel);
    if (!ganzes && istBekannt(antwort.ort))
        return;
    const QList<Ortszahl> &bekannte = orte(eintrag);
    if (verlesen || (ganzes && Lernregeln::darfErsetzen(eintrag.anzeige, urteil.gegenueber)))
        urteil.gegenueber = eintrag.anzeige;
    Wortstimmen::Ergebnis stimme;
    if (m_regeln.stimmen && bekannte.size() > 1) {
        const QStringList eigene = worte();
        stimme = Wortstimmen::abstimmen(eigene, plaetze(eintrag, eigene));
    }
    const bool nurKorrigierte = m_regeln.nurKorrekturen && anlass == Anlass::Nachrechnen && antwort.sicher;
    const qsizetype wahl = Ortswahl::waehlen(bekannte, stimme, antwort.ort, nurKorrigierte);
    if (wahl < 0)
        return;
    urteil.ort = bekannte.at(wahl).ort;
    urteil.konfidenz = std::max(urteil.konfidenz, mindestensGelernt);
    urteil.von = eintrag.schluessel;
    urteil.ortGelernt = true;
    urteil.stimme = stimme;
}
} // namespace quillmar::lernen
