#include "wiedererkennung.h"

#include "dateibewegung.h"
#include "datenbank.h"
#include "pfade.h"
#include "sha256.h"
#include "sprache.h"
#include "stapel.h"
#include "zeit.h"

using namespace Qt::StringLiterals;

Wiedererkennung::Vergleich Wiedererkennung::vergleich(const Notiz &notiz, qint64 groesse, qint64 geaendert)
{
    if (notiz.sha256.isEmpty())
        return Vergleich::Dieselbe;
    const bool gleich = notiz.notiert ? notiz.groesse == groesse && notiz.geaendert == geaendert //
                                      : notiz.groesse < 0 || notiz.groesse == groesse;
    return gleich ? Vergleich::Dieselbe : Vergleich::Offen;
}

std::optional<Wiedererkennung::Notiz> Wiedererkennung::notiz(Datenbank &db, qint64 id)
{
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT d.sha256, coalesce(s.groesse, d.groesse, -1) AS bytes, s.geaendert, s.geprueft,\n"
                    "s.dokument_id IS NOT NULL AS notiert\n"
                    "FROM dokumente d LEFT JOIN dateistand s ON s.dokument_id=d.id WHERE d.id=?"_s,
                    {id});
    if (zeilen.isEmpty())
        return std::nullopt;
    const Zeile &z = zeilen.first();
    return Notiz{.sha256 = z.text(u"sha256"),
                 .groesse = z.ganz(u"bytes"),
                 .geaendert = z.ganz(u"geaendert"),
                 .notiert = z.ganz(u"notiert") == 1,
                 .geprueft = z.ganz(u"geprueft") == 1};
}

void Wiedererkennung::notieren(Stapel &stapel, qint64 id, qint64 groesse, qint64 geaendert, bool geprueft)
{
    stapel.schreiben(u"INSERT OR REPLACE INTO dateistand (dokument_id, groesse, geaendert, geprueft)\n"
                     "VALUES (?,?,?,?)"_s,
                     {id, groesse, geaendert, geprueft});
}

bool Wiedererkennung::istDieselbe(Datenbank &db, qint64 id, const QString &pfad)
{
    const auto bekannt = notiz(db, id);
    const auto jetzt = Dateibewegung::angabenVon(pfad);
    if (!bekannt || !jetzt || bekannt->sha256.isEmpty())
        return true;
    if (bekannt->geprueft && vergleich(*bekannt, jetzt->groesse, jetzt->zeit) == Vergleich::Dieselbe)
        return true;
    const QString summe = sha256Datei(aufDerPlatte(pfad));
    if (summe.isNull())
        throw Fehler(Sprache::text(u"Die Datei lässt sich nicht lesen und mit der gelesenen vergleichen"_s));
    if (summe != bekannt->sha256)
        return false;
    Stapel stapel(db);
    notieren(stapel, id, jetzt->groesse, jetzt->zeit, true);
    stapel.abschliessen();
    return true;
}

bool Wiedererkennung::pfadFreigeben(Stapel &stapel, qint64 id, const QString &pfad)
{
    const int frei = stapel.schreiben(
        u"UPDATE dokumente SET pfad=NULL, status=CASE WHEN status IN\n"
        "('neu','laeuft','bereit','zurueckgestellt','dublette') THEN 'fehlt' ELSE status END WHERE id=? AND pfad=?"_s,
        {id, pfad});
    if (frei == 0)
        return false;
    stapel.schreiben(u"INSERT INTO fruehere_pfade (dokument_id, pfad, zeit) VALUES (?,?,?)"_s, {id, pfad, jetztIso()});
    stapel.schreiben(u"DELETE FROM dateistand WHERE dokument_id=?"_s, {id});
    return true;
}

void Wiedererkennung::ersetzen(Datenbank &db, qint64 id)
{
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT pfad, dateiname, alt_ordner FROM dokumente WHERE id=? AND pfad IS NOT NULL"_s, {id});
    if (zeilen.isEmpty())
        return;
    const Zeile &z = zeilen.first();
    const auto jetzt = Dateibewegung::angabenVon(z.text(u"pfad"));
    Stapel stapel(db);
    if (pfadFreigeben(stapel, id, z.text(u"pfad")))
        stapel.schreiben(u"INSERT OR IGNORE INTO dokumente (pfad, dateiname, alt_ordner, groesse)\nVALUES (?,?,?,?)"_s,
                         {z.text(u"pfad"), z.text(u"dateiname"), z.text(u"alt_ordner"), jetzt ? jetzt->groesse : 0});
    stapel.abschliessen();
}
