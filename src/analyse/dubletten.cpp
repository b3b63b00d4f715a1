#include "dubletten.h"

#include "stapel.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
bool wartet(const QString &pfad) { return pfad.contains(u"prüfen"_s) || pfad.contains("Inbox"_L1); }
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
        std::stable_sort(mitglieder.begin(), mitglieder.end(), istBesser);
        for (qsizetype i = 1; i < mitglieder.size(); ++i, ++anzahl)
            stapel.schreiben(u"UPDATE dokumente SET status='dublette', dublette_von=?, aehnlichkeit=?\n"
                             "WHERE id=? AND status='neu'"_s,
                             {mitglieder.first().id, guete, mitglieder.at(i).id});
    }
    stapel.abschliessen();
    return anzahl;
}
