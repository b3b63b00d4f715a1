#include "dubletten.h"

#include "datenbank.h"
#include "originale.h"
#include "pfade.h"
#include "sha256.h"
#include "stapel.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
using Dubletten::Mitglied;

bool wartet(const QString &pfad) { return pfad.contains(u"prüfen"_s) || pfad.contains("Inbox"_L1); }

bool gehtVor(const Mitglied &a, const Mitglied &b)
{
    if (a.da != b.da)
        return a.da;
    return a.neu != b.neu ? b.neu : Dubletten::istBesser(a, b);
}

/** Of no bytes at all: such files are equal for as long as nothing has been written to them. */
QString leereSumme() { return Sha256::hex(Sha256().von({})); }

/** Finds out which files are there; a known document without one is no use to compare with. */
void ansehen(Datenbank &db, QList<Mitglied> &mitglieder)
{
    for (Mitglied &m : mitglieder)
        m.da = m.neu ? istVorhanden(m.pfad) : !Originale::orte(db, m.id).isEmpty();
    mitglieder.removeIf([](const Mitglied &m) { return !m.neu && !m.da; });
}
} // namespace

bool Dubletten::istBesser(const Mitglied &a, const Mitglied &b)
{
    const bool aWartet = wartet(a.pfad);
    const bool bWartet = wartet(b.pfad);
    return aWartet != bWartet ? bWartet : zeichenAnzahl(a.pfad) < zeichenAnzahl(b.pfad);
}

qsizetype Dubletten::dublettenMarkieren(Datenbank &db, const Gruppen &gruppen, double guete)
{
    Stapel stapel(db);
    qsizetype anzahl = 0;
    for (QList<Mitglied> mitglieder : gruppen) {
        std::stable_sort(mitglieder.begin(), mitglieder.end(), gehtVor);
        for (const Mitglied &m : mitglieder.sliced(std::min<qsizetype>(1, mitglieder.size()))) {
            if (!m.neu)
                continue;
            stapel.schreiben(u"UPDATE dokumente SET status='dublette', dublette_von=?, aehnlichkeit=?\n"
                             "WHERE id=? AND status='neu'"_s,
                             {mitglieder.first().id, guete, m.id});
            ++anzahl;
        }
    }
    stapel.abschliessen();
    return anzahl;
}

Dubletten::Gruppen Dubletten::gruppen(Datenbank &db, const QString &spalte)
{
    Gruppen alle;
    db.durchlaufen(u"SELECT id, pfad, status, %1 AS hash FROM dokumente WHERE ausgenommen=0\n"
                   "AND status IN ('neu','bereit','erledigt','zurueckgestellt') AND coalesce(sha256,'')<>?\n"
                   "AND %1 IN (SELECT %1 FROM dokumente WHERE status='neu' AND ausgenommen=0 AND %1<>'')\n"
                   "ORDER BY id"_s.arg(spalte),
                   {leereSumme()}, [&](const Zeile &z) {
                       alle[z.text(u"hash")] << Mitglied{
                           .id = z.ganz(u"id"), .pfad = z.text(u"pfad"), .neu = z.text(u"status") == u"neu"_s};
                   });
    for (QList<Mitglied> &mitglieder : alle) {
        if (mitglieder.size() > 1)
            ansehen(db, mitglieder);
    }
    alle.removeIf([](const auto &gruppe) { return gruppe.value().size() < 2; });
    return alle;
}
