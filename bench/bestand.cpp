#include "bestand.h"

#include "datenbank.h"
#include "kommando.h"
#include "messung.h"
#include "probe.h"
#include "reihen.h"
#include "schema.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr qint64 ordnerzahl = 200;
constexpr qint64 jeOrdner = 500;

void dateienAnlegen(const QString &quelle)
{
    for (qint64 i = 0; i < ordnerzahl; ++i) {
        const QString ordner = quelle + u"/Jahrgang %1/Eingang %2"_s.arg(1990 + i / 10).arg(i % 10);
        QDir().mkpath(ordner);
        for (qint64 j = 0; j < jeOrdner; ++j)
            Probe::schreiben(ordner + u"/Müller, Rechnung vom 12. März %1.pdf"_s.arg(j), {});
    }
}

double unser(const QTemporaryDir &ordner)
{
    const auto db = Probe::katalog(ordner.filePath(u"unser.db"_s));
    Lauf lauf = Probe::lauf(db, ordner.filePath(u"Scans"_s));
    const double dauer = Messung::dauer([&] { Bestand::verzeichnen(lauf); });
    if (db->abfragen(u"SELECT COUNT(*) n FROM dokumente"_s).first().ganz(u"n") != ordnerzahl * jeOrdner)
        throw std::runtime_error("not every file was taken in");
    return dauer;
}

/** An empty catalogue with the program's own tables and settings. */
sqlite3 *blankerKatalog(const QByteArray &datei)
{
    sqlite3 *db = nullptr;
    sqlite3_open(datei.constData(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
    for (const QString &sql : schemaAnweisungen())
        sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    return db;
}

/** One line of find, "SIZE PATH", becomes a row. */
void einfuegen(sqlite3_stmt *anweisung, char *zeile, size_t wurzel)
{
    zeile[std::strcspn(zeile, "\n")] = '\0';
    char *pfad = nullptr;
    sqlite3_bind_int64(anweisung, 4, std::strtoll(zeile, &pfad, 10));
    ++pfad;
    const char *name = std::strrchr(pfad, '/') + 1;
    sqlite3_bind_text(anweisung, 1, pfad, -1, SQLITE_STATIC);
    sqlite3_bind_text(anweisung, 2, name, -1, SQLITE_STATIC);
    sqlite3_bind_text(anweisung, 3, pfad + wurzel + 1, int(name - pfad - ptrdiff_t(wurzel) - 2), SQLITE_STATIC);
    sqlite3_step(anweisung);
    sqlite3_reset(anweisung);
}

void findUndEinfuegen(sqlite3 *db, const QByteArray &quelle)
{
    sqlite3_stmt *anweisung = nullptr;
    sqlite3_prepare_v2(db, "INSERT OR IGNORE INTO dokumente (pfad, dateiname, alt_ordner, groesse) VALUES (?,?,?,?)",
                       -1, &anweisung, nullptr);
    std::FILE *funde = ::popen(("LC_ALL=C.UTF-8 find '" + quelle + "' -type f -printf '%s %p\\n'").constData(), "re");
    char zeile[4096];
    sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (int i = 1; std::fgets(zeile, sizeof zeile, funde) != nullptr; ++i) {
        einfuegen(anweisung, zeile, size_t(quelle.size()));
        if (i % 1000 == 0)
            sqlite3_exec(db, "COMMIT; BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    ::pclose(funde);
    sqlite3_finalize(anweisung);
}

double blank(const QTemporaryDir &ordner)
{
    const QString datei = ordner.filePath(u"blank.db"_s);
    QFile::remove(datei);
    sqlite3 *db = blankerKatalog(datei.toUtf8());
    const double dauer = Messung::dauer([&] { findUndEinfuegen(db, ordner.filePath(u"Scans"_s).toUtf8()); });
    sqlite3_close(db);
    return dauer;
}
} // namespace

void Reihen::bestand()
{
    const QTemporaryDir ordner;
    dateienAnlegen(ordner.filePath(u"Scans"_s));
    const auto paar = Messung::paarweise(
        7, [&] { return unser(ordner); }, [&] { return blank(ordner); });
    Messung::drucken("inventory of 100,000 files", paar, 2.5);
}
