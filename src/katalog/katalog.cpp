#include "katalog.h"

#include "datenbank.h"
#include "katalogpruefung.h"
#include "katalogtausch.h"
#include "sicherungen.h"
#include "sprache.h"

#include <QFileInfo>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
QString beschaedigt()
{
    return Sprache::text(u"Der Katalog ist beschädigt. Im Fenster, Karte Einrichtung, lässt sich eine Sicherung "
                         "einsetzen; bis dahin wird er nur gelesen"_s);
}

void vorpruefen(const QString &pfad, Katalog::Vorpruefung pruefung)
{
    using Katalogpruefung::Befund;
    const bool verdaechtig = Katalogpruefung::istNachAbsturz(pfad) || Katalogpruefung::istVermerkt(pfad);
    if (QFileInfo(pfad).size() == 0 || (!verdaechtig && pruefung != Katalog::Vorpruefung::Immer))
        return;
    const Befund befund = Katalogpruefung::pruefen(pfad);
    if (befund == Befund::Beschaedigt)
        Katalogpruefung::vermerken(pfad);
    else if (befund == Befund::Heil)
        Katalogpruefung::vermerkStreichen(pfad);
}
} // namespace

std::shared_ptr<Datenbank> Katalog::oeffnen(const QString &pfad, Vorpruefung pruefung)
{
    for (;;) {
        Katalogtausch::klaeren(pfad);
        vorpruefen(pfad, pruefung);
        auto db = std::make_shared<Datenbank>(pfad);
        if (!Katalogtausch::istImGange(pfad))
            return db;
        // Begun meanwhile: this would be the former one.
    }
}

std::shared_ptr<Datenbank> Katalog::ungesichertOeffnen(const QString &pfad)
{
    return std::make_shared<Datenbank>(pfad, false);
}

const QString &Katalog::pfad(const Datenbank &db) { return db.pfad(); }

QString Katalog::absichtsdatei(const QString &pfad) { return pfad + u".absicht"_s; }

Zugang Katalog::zugang(const Datenbank &db) { return db.zugang(); }

bool Katalog::nurLesen(const Datenbank &db) { return db.zugang() != Zugang::Schreiben; }

void Katalog::sperren(Datenbank &db) { db.sperren(); }

QString Katalog::nurLesenSatz(const Datenbank &db)
{
    switch (db.zugang()) {
    case Zugang::Beschaedigt:
        return beschaedigt();
    case Zugang::Ungesichert:
        return Sprache::text(u"Der Katalog ist von einer früheren Fassung, lässt sich vor der Umstellung nicht sichern "
                             "und ist nur zum Lesen geöffnet. Ist die Platte voll?"_s);
    case Zugang::Unbeschreibbar:
        return Sprache::text(u"Der Katalog lässt sich nicht beschreiben und ist nur zum Lesen geöffnet"_s);
    case Zugang::Schreiben:
        break;
    }
    return {};
}

QString Katalog::neuanfangSatz(const Datenbank &db)
{
    if (!db.istNeu() || Sicherungen::alle(db.pfad()).isEmpty())
        return {};
    return Sprache::text(
        u"Der Katalog war leer oder nicht mehr da und beginnt von vorn. Im Fenster, Karte Einrichtung, "
        "lässt sich eine Sicherung einsetzen"_s);
}

QString Katalog::schreibmangel(const Datenbank &db)
{
    if (db.zugang() == Zugang::Beschaedigt || db.zugang() == Zugang::Ungesichert)
        return nurLesenSatz(db);
    return Sprache::text(u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s);
}

void Katalog::kopieren(Datenbank &db, const QString &ziel) { db.schreiben(u"VACUUM INTO ?"_s, {ziel}); }

QString Katalog::sqliteFassung() { return QString::fromLatin1(sqlite3_libversion()); }
} // namespace quillmar::katalog
