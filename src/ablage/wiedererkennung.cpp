#include "wiedererkennung.h"

#include "dateibewegung.h"
#include "fehler.h"
#include "pfade.h"
#include "sha256.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
Wiedererkennung::Vergleich Wiedererkennung::vergleich(const Dateinotiz &stand, qint64 groesse, qint64 geaendert)
{
    if (stand.sha256.isEmpty())
        return Vergleich::Dieselbe;
    const bool gleich = stand.notiert ? stand.groesse == groesse && stand.geaendert == geaendert //
                                      : stand.groesse < 0 || stand.groesse == groesse;
    return gleich ? Vergleich::Dieselbe : Vergleich::Offen;
}

bool Wiedererkennung::istDieselbe(Datenbank &db, qint64 id, const QString &pfad)
{
    const auto bekannt = Dateien(db).stand(id);
    const auto jetzt = Dateibewegung::angabenVon(pfad);
    if (!bekannt || !jetzt)
        return true;
    if (bekannt->sha256.isEmpty())
        return bekannt->groesse < 0 || bekannt->groesse == jetzt->groesse;
    const QString summe = sha256Datei(aufDerPlatte(pfad));
    if (summe.isNull())
        throw Fehler(Sprache::text(u"Die Datei lässt sich nicht lesen und mit der gelesenen vergleichen"_s));
    if (summe != bekannt->sha256)
        return false;
    if (!bekannt->geprueft || vergleich(*bekannt, jetzt->groesse, jetzt->zeit) != Vergleich::Dieselbe)
        Dateien(db).standNotieren(id, jetzt->groesse, jetzt->zeit, true);
    return true;
}

void Wiedererkennung::ersetzen(Datenbank &db, qint64 id, const QString &pfad)
{
    const auto jetzt = Dateibewegung::angabenVon(pfad);
    Dateien(db).ersetzen(id, jetzt ? jetzt->groesse : 0);
}
} // namespace quillmar::ablage
