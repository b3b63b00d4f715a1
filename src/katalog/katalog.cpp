#include "katalog.h"

#include "datenbank.h"
#include "sprache.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
std::shared_ptr<Datenbank> Katalog::oeffnen(const QString &pfad) { return std::make_shared<Datenbank>(pfad); }

const QString &Katalog::pfad(const Datenbank &db) { return db.pfad(); }

bool Katalog::nurLesen(const Datenbank &db) { return db.nurLesen(); }

QString Katalog::nichtBeschreibbar()
{
    return Sprache::text(u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s);
}

void Katalog::kopieren(Datenbank &db, const QString &ziel) { db.schreiben(u"VACUUM INTO ?"_s, {ziel}); }

QString Katalog::sqliteFassung() { return QString::fromLatin1(sqlite3_libversion()); }
} // namespace quillmar::katalog
