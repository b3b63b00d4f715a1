#include "baumwissen.h"

#include "gelernteorte.h"
#include "gelerntes.h"
#include "ortswahl.h"
#include "stapel.h"
#include "transaktion.h"
#include "vorschlaege.h"

#include <QSet>
#include <algorithm>

namespace quillmar::lernen
{
namespace
{
/** The keys of the counterparts of waiting documents. */
QSet<QString> wartendeSchluessel(Datenbank &db)
{
    QSet<QString> alle;
    for (const QString &name : Vorschlaege(db).wartendeGegenueber())
        alle.insert(Lernregeln::schluessel(name));
    return alle;
}

bool trifftEinen(const QSet<QString> &wartende, const QString &schluessel)
{
    return wartende.contains(schluessel) || std::any_of(wartende.begin(), wartende.end(), [&](const QString &w) {
               return Lernregeln::passt(w, schluessel);
           });
}

bool kenntDerBaum(const QList<Ortszahl> &orte)
{
    return std::any_of(orte.begin(), orte.end(), [](const Ortszahl &o) { return o.baum > 0; });
}

bool hatOrt(const QList<Ortszahl> &orte, const Ort &ort)
{
    return std::any_of(orte.begin(), orte.end(), [&](const Ortszahl &o) { return o.ort == ort; });
}

/** The reviewer has taught nothing of the counterpart of this entry. */
bool istNurAusDemBaum(const Eintrag &eintrag, const QList<Ortszahl> &orte)
{
    return hatOrt(orte, eintrag.ort) &&
           std::all_of(orte.begin(), orte.end(), [](const Ortszahl &o) { return o.anzahl == 0; });
}
} // namespace

bool Baumwissen::istUebernommen() const { return GelernteOrte(m_db).kenntBaum(); }

/** @p kenntnisse, and an empty one for each counterpart that the tree told of before. */
QList<Baumkenntnis> Baumwissen::mitVergessenen(const QList<Baumkenntnis> &kenntnisse) const
{
    QSet<QString> neue;
    for (const Baumkenntnis &k : kenntnisse)
        neue.insert(k.schluessel);
    QList<Baumkenntnis> alle = kenntnisse;
    const auto bisher = GelernteOrte(m_db).alle();
    for (auto orte = bisher.begin(); orte != bisher.end(); ++orte) {
        if (!neue.contains(orte.key()) && kenntDerBaum(orte.value()))
            alle << Baumkenntnis{.schluessel = orte.key(), .anzeige = {}, .plaetze = {}};
    }
    return alle;
}

qint64 Baumwissen::uebernehmen(const QList<Baumkenntnis> &kenntnisse, Wartende wartende, const Fortschritt &fortschritt)
{
    const QSet<QString> wartendeVorher = wartende == Wartende::Nachrechnen ? wartendeSchluessel(m_db) : QSet<QString>();
    const QList<Baumkenntnis> alle = mitVergessenen(kenntnisse);
    QSet<qint64> geaenderte;
    Stapel stapel(m_db);
    for (qsizetype n = 0; n < alle.size(); ++n) {
        if (fortschritt)
            fortschritt(n, alle.size());
        if (trifftEinen(wartendeVorher, alle.at(n).schluessel)) {
            stapel.abschliessen();
            geaenderte += mitWartenden(alle.at(n));
        } else {
            stapel.naechstes();
            setzen(alle.at(n));
        }
    }
    stapel.abschliessen();
    return geaenderte.size();
}

/** One counterpart with its waiting documents in one transaction. Returns those that changed. */
QSet<qint64> Baumwissen::mitWartenden(const Baumkenntnis &kenntnis)
{
    m_nachrechnung.vorlesen({kenntnis.schluessel}, kenntnis.plaetze.value(0).ort.rubrik);
    Transaktion transaktion(m_db);
    setzen(kenntnis);
    QSet<qint64> geaenderte = m_nachrechnung.rechnen({kenntnis.schluessel}, Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
    return geaenderte;
}

void Baumwissen::setzen(const Baumkenntnis &kenntnis)
{
    GelernteOrte orte(m_db);
    const auto vorher = Gelerntes(m_db).zuordnung(kenntnis.schluessel);
    const QList<Ortszahl> bisherige = orte.orte(kenntnis.schluessel);
    const bool nurAusDemBaum = vorher && istNurAusDemBaum(*vorher, bisherige);
    // What an earlier version has confirmed was never counted by itself.
    if (vorher && Ortswahl::istVollstaendig(vorher->ort) && !hatOrt(bisherige, vorher->ort))
        orte.zaehlen(kenntnis.schluessel, vorher->ort, vorher->anzahl, 0);
    plaetzeSetzen(kenntnis, bisherige);
    if (!vorher || nurAusDemBaum)
        eintragSetzen(kenntnis, vorher, nurAusDemBaum);
}

void Baumwissen::plaetzeSetzen(const Baumkenntnis &kenntnis, const QList<Ortszahl> &bisherige)
{
    GelernteOrte orte(m_db);
    const auto &neue = kenntnis.plaetze;
    for (const Ortszahl &o : bisherige) {
        const bool bleibt = std::any_of(neue.begin(), neue.end(), [&](const auto &p) { return p.ort == o.ort; });
        if (o.baum > 0 && !bleibt)
            orte.setzeBaum(kenntnis.schluessel, o.ort, 0);
    }
    for (const Baumkenntnis::Platz &platz : neue)
        orte.setzeBaum(kenntnis.schluessel, platz.ort, platz.dokumente);
}

void Baumwissen::eintragSetzen(const Baumkenntnis &kenntnis, const std::optional<Eintrag> &vorher, bool nurAusDemBaum)
{
    if (kenntnis.plaetze.isEmpty()) {
        if (nurAusDemBaum)
            Gelerntes(m_db).zuordnungStreichen(kenntnis.schluessel);
        return;
    }
    const Baumkenntnis::Platz &haeufigster = kenntnis.plaetze.first();
    const Eintrag eintrag{.schluessel = kenntnis.schluessel,
                          .anzeige = kenntnis.anzeige,
                          .ort = haeufigster.ort,
                          .anzahl = haeufigster.dokumente};
    if (vorher != eintrag)
        Gelerntes(m_db).setzeZuordnung(eintrag);
}
} // namespace quillmar::lernen
