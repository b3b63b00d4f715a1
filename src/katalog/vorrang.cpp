#include "vorrang.h"

#include "katalog.h"
#include "sprache.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::katalog
{
namespace
{
constexpr QByteArrayView rueckbauwort = "rueckbau";

QString sperrort(const Datenbank &db) { return Katalog::pfad(db) + u".lauf"_s; }

QString absage(Vorrang::Art wunsch, bool rueckbauLaeuft)
{
    if (wunsch == Vorrang::Art::Durchgang)
        return rueckbauLaeuft
                   ? Sprache::text(u"Gerade wird eine Sitzung dieses Katalogs zurückgedreht. Erst danach kann ein "
                                   "Durchgang beginnen"_s)
                   : Sprache::text(u"Für diesen Katalog läuft schon eine Analyse"_s);
    return rueckbauLaeuft ? Sprache::text(u"Eine Sitzung dieses Katalogs wird gerade schon zurückgedreht"_s)
                          : Sprache::text(u"Für diesen Katalog läuft gerade ein Durchgang. Ist er fertig oder "
                                          "angehalten, lässt sich die Sitzung zurückdrehen"_s);
}
} // namespace

std::shared_ptr<Vorrang> Vorrang::versuchen(const Datenbank &db, Art art)
{
    if (Katalog::nurLesen(db))
        throw Fehler(Katalog::schreibmangel(db));
    auto sperre = Sperrdatei::nehmen(sperrort(db), 0ms);
    if (!sperre)
        return {};
    sperre->beschriften(art == Art::Rueckbau ? rueckbauwort.toByteArray() : QByteArray());
    return std::make_shared<Vorrang>(std::move(*sperre));
}

std::shared_ptr<Vorrang> Vorrang::nehmen(const Datenbank &db, Art art)
{
    auto vorrang = versuchen(db, art);
    if (!vorrang)
        throw Fehler(absage(art, Sperrdatei::aufschrift(sperrort(db)) == rueckbauwort));
    return vorrang;
}
} // namespace quillmar::katalog
