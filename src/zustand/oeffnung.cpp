#include "oeffnung.h"

#include "ablagewerk.h"
#include "bewegungsgang.h"
#include "fehlersatz.h"
#include "katalog.h"
#include "lernspeicher.h"
#include "profilspeicher.h"
#include "sprache.h"
#include "text.h"
#include "wiederherstellung.h"

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto geduld = 30s;
constexpr auto scheibe = 10ms;

/** Runs what may fail without keeping the catalogue from being used, and collects what it has to say. */
void versuchen(QStringList &hinweise, const std::function<QStringList()> &arbeit)
{
    try {
        hinweise += arbeit();
    } catch (const Fehler &) {
        hinweise << fehlersatz(std::current_exception());
    }
}

QStringList bewegungenKlaeren(const std::shared_ptr<Datenbank> &db)
{
    const QStringList ungeklaert = Bewegungsgang::klaeren(db);
    if (ungeklaert.isEmpty())
        return {};
    return {gefuellt(Sprache::text(u"%@ Bewegungen nach einem Absturz noch ungeklärt: %@"_s),
                     {QString::number(ungeklaert.size()), ungeklaert.join(u", "_s)})};
}
} // namespace

QStringList ausnahmenDurchsetzen(Datenbank &db, const Profil &profil)
{
    const auto wechsel = Ablagewerk::ausnahmenAnwenden(db, profil);
    QStringList teile;
    if (wechsel.ruhen >= 1)
        teile << gefuellt(Sprache::text(u"%@ aus der Warteschlange genommen"_s), {QString::number(wechsel.ruhen)});
    if (wechsel.zurueckgeholt >= 1)
        teile << gefuellt(Sprache::text(u"%@ zurückgeholt"_s), {QString::number(wechsel.zurueckgeholt)});
    return teile;
}

Oeffnung Oeffnung::mitSicherung(const Profil &profil, const QString &datei, const QStringList &andere,
                                const std::function<bool()> &frei)
{
    const auto ende = std::chrono::steady_clock::now() + geduld;
    while (!frei()) {
        if (std::chrono::steady_clock::now() > ende)
            throw Fehler(Sprache::text(u"Der Katalog wird noch benutzt. Bitte gleich noch einmal versuchen."_s));
        std::this_thread::sleep_for(scheibe);
    }
    const auto ergebnis = Wiederherstellung::einsetzen(Profilspeicher::katalogDatei(profil), datei, profil, andere);
    Oeffnung o = von(profil);
    // Without any log nobody knows what was filed since.
    o.gelungen = o.hinweise.isEmpty() && ergebnis.bilanz.protokolle > 0 && ergebnis.bilanz.gescheiterte.isEmpty();
    o.hinweise.prepend(ergebnis.satz());
    return o;
}

Oeffnung Oeffnung::von(const Profil &profil)
{
    Oeffnung o;
    o.db = Katalog::oeffnen(Profilspeicher::katalogDatei(profil));
    if (Katalog::nurLesen(*o.db)) {
        o.hinweise << Katalog::nurLesenSatz(*o.db);
    } else {
        if (const QString satz = Katalog::neuanfangSatz(*o.db); !satz.isEmpty())
            o.hinweise << satz;
        versuchen(o.hinweise, [&] { return bewegungenKlaeren(o.db); });
        versuchen(o.hinweise, [&] {
            Lernspeicher(*o.db).schluesselUebertragen();
            return QStringList();
        });
        versuchen(o.hinweise, [&] { return ausnahmenDurchsetzen(*o.db, profil); });
    }
    // One that can be read in part is shown in part.
    versuchen(o.hinweise, [&] {
        o.blick = Blick::auf(o.db, {});
        return QStringList();
    });
    versuchen(o.hinweise, [&] {
        o.entwuerfe = entwuerfeLesen(*o.db);
        return QStringList();
    });
    return o;
}
} // namespace quillmar::zustand
