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
constexpr double mindestensGelernt = 0.85; // confidence of a place that the user has taught
} // namespace

bool Urteiler::istBekannt(const Ort &ort) const
{
    return Ortswahl::istVollstaendig(ort) && (m_profil.zweige.isEmpty() || m_profil.kennt(ort));
}

std::optional<Eintrag> Urteiler::eintrag(const QString &schluessel)
{
    if (const auto bekannt = m_eintraege.constFind(schluessel); bekannt != m_eintraege.constEnd())
        return *bekannt;
    // Mostly there is one of the same key: then the others need not be read.
    std::optional<Eintrag> gefunden = Gelerntes(m_db).zuordnung(schluessel);
    if (!gefunden) {
        if (!m_alle)
            m_alle = Gelerntes(m_db).zuordnungen();
        if (const Eintrag *passender = Lernregeln::passender(*m_alle, schluessel))
            gefunden = *passender;
    }
    return *m_eintraege.insert(schluessel, gefunden);
}

const QList<Ortszahl> &Urteiler::orte(const Eintrag &eintrag)
{
    if (const auto bekannte = m_orte.constFind(eintrag.schluessel); bekannte != m_orte.constEnd())
        return *bekannte;
    QList<Ortszahl> orte = GelernteOrte(m_db).orte(eintrag.schluessel);
    // Of equals the one that was confirmed last goes first.
    const auto letzter = std::stable_partition(orte.begin(), orte.end(), [&](auto &o) { return o.ort == eintrag.ort; });
    if (letzter == orte.begin())
        orte.prepend({.ort = eintrag.ort, .anzahl = eintrag.anzahl}); // of an earlier version
    orte.removeIf([this](const Ortszahl &o) { return !istBekannt(o.ort); });
    return *m_orte.insert(eintrag.schluessel, orte);
}

const QList<Wortstimmen::Platz> &Urteiler::plaetze(const Eintrag &eintrag)
{
    if (const auto bekannte = m_plaetze.constFind(eintrag.schluessel); bekannte != m_plaetze.constEnd())
        return *bekannte;
    QList<Wortstimmen::Platz> liste;
    for (const Ortszahl &o : orte(eintrag))
        liste << Wortstimmen::Platz{.dokumente = std::max<qint64>(0, o.belesen),
                                    .worte = o.id == 0 ? QHash<QString, qint64>() : GelernteOrte(m_db).alleWorte(o.id)};
    return *m_plaetze.insert(eintrag.schluessel, liste);
}

Urteiler::Urteil Urteiler::urteilen(const Modellantwort &antwort, Anlass anlass, const Worte &worte)
{
    Urteil urteil{.gegenueber = antwort.gegenueber, .ort = antwort.ort, .konfidenz = antwort.konfidenz, .von = {}};
    if (antwort.gegenueber.isEmpty())
        return urteil;
    const Gelerntes gelerntes(m_db);
    const auto gleichung = [&](const QString &schluessel) -> std::optional<QString> {
        const auto g = gelerntes.gleichung(schluessel);
        return g ? std::optional(g->nach) : std::nullopt;
    };
    if (const auto gleich = Namenskette::ende(antwort.gegenueber, gleichung)) {
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
    const bool ganzes = Lernregeln::istGanzesWort(eintrag.schluessel, Lernregeln::schluessel(urteil.gegenueber));
    if (!ganzes && istBekannt(antwort.ort))
        return;
    const QList<Ortszahl> &bekannte = orte(eintrag);
    if (ganzes && Lernregeln::darfErsetzen(eintrag.anzeige, urteil.gegenueber))
        urteil.gegenueber = eintrag.anzeige;
    const auto stimme =
        bekannte.size() > 1 ? Wortstimmen::abstimmen(worte(), plaetze(eintrag)) : Wortstimmen::Ergebnis();
    const bool nurKorrigierte = anlass == Anlass::Nachrechnen && antwort.sicher;
    const auto wahl = Ortswahl::waehlen(bekannte, stimme, antwort.ort, nurKorrigierte);
    if (wahl.ort < 0)
        return;
    urteil.ort = bekannte.at(wahl.ort).ort;
    urteil.konfidenz = std::max(urteil.konfidenz, mindestensGelernt);
    urteil.von = eintrag.schluessel;
    urteil.ortGelernt = true;
    if (wahl.grund == Ortswahl::Grund::Text)
        urteil.stimme = stimme;
}
} // namespace quillmar::lernen
