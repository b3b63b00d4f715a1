#include "dubletten.h"

#include "originale.h"
#include "pfade.h"
#include "sha256.h"
#include "stapel.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
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
            stapel.naechstes();
            Dateien(db).alsDubletteMarkieren(m.id, mitglieder.first().id, guete);
            ++anzahl;
        }
    }
    stapel.abschliessen();
    return anzahl;
}

Dubletten::Gruppen Dubletten::gruppen(Datenbank &db, Dateien::Gleichheit gleichheit)
{
    Gruppen alle;
    const auto gleiche = Dateien(db).gleiche(gleichheit, leereSumme());
    for (auto gruppe = gleiche.begin(); gruppe != gleiche.end(); ++gruppe) {
        if (gruppe->size() < 2)
            continue;
        QList<Mitglied> mitglieder;
        for (const Dateien::Gleiches &g : *gruppe)
            mitglieder << Mitglied{.id = g.id, .pfad = g.pfad, .neu = g.neu};
        ansehen(db, mitglieder);
        if (mitglieder.size() > 1)
            alle.insert(gruppe.key(), mitglieder);
    }
    return alle;
}
} // namespace quillmar::analyse
