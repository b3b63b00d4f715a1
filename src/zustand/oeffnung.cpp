#include "oeffnung.h"

#include "ablagewerk.h"
#include "bewegungsgang.h"
#include "fehlersatz.h"
#include "katalog.h"
#include "lernspeicher.h"
#include "profilspeicher.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
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

Oeffnung Oeffnung::von(const Profil &profil)
{
    Oeffnung o;
    o.db = Katalog::oeffnen(Profilspeicher::katalogDatei(profil));
    if (Katalog::nurLesen(*o.db)) {
        o.hinweise << Sprache::text(u"Der Katalog lässt sich nicht beschreiben und ist nur zum Lesen geöffnet"_s);
    } else {
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
