#include "ablagewerk.h"
#include "dateibewegung.h"
#include "dateigriff.h"
#include "datenbank.h"
#include "kommando.h"
#include "messung.h"
#include "pfade.h"
#include "probe.h"
#include "protokollbuch.h"
#include "reihen.h"
#include "stapel.h"
#include "zeit.h"

#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int accepts = 1000;
constexpr int bewegungen = 10000;

double median(QList<double> werte)
{
    std::sort(werte.begin(), werte.end());
    return werte.at(werte.size() / 2);
}

Profil profilIn(const QString &ordner)
{
    Profil p;
    p.quelle = ordner + u"/quelle"_s;
    p.zielWurzel = ordner + u"/ziel"_s;
    p.zweige = {{.name = u"Privat"_s, .ablagen = {{.name = u"Post"_s, .mitJahr = false, .rubriken = {u"Briefe"_s}}}}};
    QDir().mkpath(p.quelle);
    QDir().mkpath(p.zielWurzel + u"/Privat/Post/Briefe"_s);
    return p;
}

/** @p alle documents, the last @p wartend of them waiting, @p mitDatei of these with a file. */
void belegen(Datenbank &db, const Profil &p, int alle, int wartend, int mitDatei)
{
    const QStringList namen = Probe::namen(2000);
    Stapel stapel(db);
    for (int i = 1; i <= alle; ++i) {
        const bool wartet = i > alle - wartend;
        const QString pfad = p.quelle + u"/%1.pdf"_s.arg(i);
        if (wartet && i <= alle - wartend + mitDatei)
            Probe::schreiben(pfad, QByteArray::number(i));
        stapel.naechstes();
        db.schreiben(
            u"INSERT INTO dokumente (id, pfad, dateiname, alt_ordner, status, datum, gegenueber, titel,\n"
            "zweig, ablage, rubrik, jahr) VALUES (?,?,?,'',?,'2024-05-17',?,?,'Privat','Post','Briefe','2024')"_s,
            {i, pfad, nameVon(pfad), wartet ? u"bereit"_s : u"erledigt"_s, namen.at(i % namen.size()),
             u"Brief %1"_s.arg(i)});
    }
    stapel.abschliessen();
}

void sichern(const QString &ordner)
{
    const Dateigriff griff(::open(ordner.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ::fsync(griff.nummer());
}

void zeileSichern(const Dateigriff &datei, const QByteArray &zeile)
{
    if (::write(datei.nummer(), zeile.constData(), size_t(zeile.size())) != zeile.size())
        throw std::runtime_error("the bare tool cannot write");
    ::fdatasync(datei.nummer());
}

/** The same rename, flushes, log line and transaction as an accept, without anything around them. */
void blankesUebernehmen(Datenbank &db, const Profil &p, qint64 id, const Dateigriff &absicht, const Dateigriff &log)
{
    const QString von = p.quelle + u"/%1.pdf"_s.arg(id);
    const QString nach = p.zielWurzel + u"/Privat/Post/Briefe/b%1.pdf"_s.arg(id);
    const QByteArray zeile = QByteArray(400, 'x') + '\n';
    zeileSichern(absicht, zeile);
    if (::rename(von.toUtf8().constData(), nach.toUtf8().constData()) != 0)
        throw std::runtime_error("the bare tool cannot rename");
    sichern(p.quelle);
    sichern(p.zielWurzel + u"/Privat/Post/Briefe"_s);
    db.ausfuehren(u"BEGIN IMMEDIATE"_s);
    db.ausfuehren(u"UPDATE dokumente SET datum=?, gegenueber=?, titel=? WHERE id=?"_s,
                  {u"2024-05-17"_s, u"X"_s, u"Y"_s, id});
    db.ausfuehren(u"INSERT INTO protokoll (dokument_id, zeit, aktion, von_pfad, nach_pfad, alt_status, kopiert)\n"
                  "VALUES (?,?,?,?,?,?,?)"_s,
                  {id, jetztIso(), u"einsortiert"_s, von, nach, u"bereit"_s, false});
    db.ausfuehren(u"UPDATE dokumente SET status=?, pfad=?, dateiname=? WHERE id=?"_s,
                  {u"erledigt"_s, nach, nameVon(nach), id});
    db.ausfuehren(u"COMMIT"_s);
    zeileSichern(log, zeile);
    if (::ftruncate(absicht.nummer(), 0) != 0)
        throw std::runtime_error("the bare tool cannot truncate");
}

Dateigriff neueDatei(const QString &pfad)
{
    return Dateigriff(::open(pfad.toUtf8().constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
}

/** @p anzahl documents that a session has moved; ready to be turned back. */
QString sitzungAnlegen(Datenbank &db, const Profil &p, int anzahl)
{
    const QString ziel = p.zielWurzel + u"/Privat/Post/Briefe/"_s;
    QByteArray log = Protokollkopf::fuer(p).json() + '\n';
    Stapel stapel(db);
    for (int i = 1; i <= anzahl; ++i) {
        const Protokollzeile z{.zeit = jetztIso(),
                               .aktion = u"einsortiert"_s,
                               .dokument = i,
                               .von = p.quelle + u"/%1.pdf"_s.arg(i),
                               .nach = ziel + u"%1.pdf"_s.arg(i),
                               .altStatus = u"bereit"_s,
                               .kopiert = false};
        Probe::schreiben(z.nach, "x");
        log += z.json() + '\n';
        stapel.naechstes();
        db.schreiben(u"INSERT INTO dokumente (id, pfad, dateiname, status) VALUES (?,?,?,'erledigt')"_s,
                     {i, z.nach, nameVon(z.nach)});
        stapel.naechstes();
        db.schreiben(u"INSERT INTO protokoll (dokument_id, von_pfad, nach_pfad, alt_status) VALUES (?,?,?,'bereit')"_s,
                     {i, z.von, z.nach});
    }
    stapel.abschliessen();
    const QString datei = p.zielWurzel + u"/log.jsonl"_s;
    Probe::schreiben(datei, log);
    return datei;
}

void blankZurueck(Datenbank &db, const Profil &p, int anzahl)
{
    Stapel stapel(db);
    for (int i = 1; i <= anzahl; ++i) {
        const QString von = p.quelle + u"/%1.pdf"_s.arg(i);
        const QString nach = p.zielWurzel + u"/Privat/Post/Briefe/%1.pdf"_s.arg(i);
        ::rename(nach.toUtf8().constData(), von.toUtf8().constData());
        stapel.naechstes();
        db.schreiben(u"UPDATE protokoll SET rueckgaengig=1 WHERE id=?"_s, {i});
        stapel.naechstes();
        db.schreiben(u"UPDATE dokumente SET status=?, pfad=?, dateiname=? WHERE id=?"_s,
                     {u"bereit"_s, von, nameVon(von), i});
    }
    stapel.abschliessen();
}
} // namespace

void Reihen::uebernehmen()
{
    const QTemporaryDir ordner;
    const Profil p = profilIn(ordner.path());
    const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
    belegen(*db, p, 100000, 20000, 2 * accepts);
    const auto buch = Protokollbuch::anlegen(*p.protokollURL(), p);
    const Dateigriff absicht = neueDatei(ordner.filePath(u"absicht"_s));
    const Dateigriff log = neueDatei(ordner.filePath(u"log"_s));
    QList<double> unser;
    QList<double> blank;
    for (int i = 0; i < accepts; ++i) {
        const qint64 id = 80001 + 2 * i;
        Ablagewerk werk(db, p, buch);
        const Dokument d = *werk.dokument(id);
        unser << Messung::dauer([&] { werk.uebernehmen(d); });
        blank << Messung::dauer([&] { blankesUebernehmen(*db, p, id + 1, absicht, log); });
    }
    Messung::Paar paar{.unser = median(unser), .blank = median(blank)};
    // The learning memory has 12 ms of its own.
    paar.verhaeltnis = std::max(0.0, paar.unser - 0.012) / paar.blank;
    Messung::drucken("accept (less 12 ms for learning)", paar, 1.5);
    Messung::mitteilen("accept, plain ratio", paar.unser / paar.blank, "x");
}

void Reihen::datentraeger()
{
    const QTemporaryDir ordner;
    const QTemporaryDir fern(u"/dev/shm/quillmar-bench-XXXXXX"_s);
    const Profil p = profilIn(ordner.path());
    constexpr int anzahl = 16;
    const QByteArray bytes(64 * 1024 * 1024, 'q');
    const auto anlegen = [&] {
        for (int i = 0; i < anzahl; ++i)
            Probe::schreiben(p.quelle + u"/%1.pdf"_s.arg(i), bytes);
        Kommando::laufen({"/bin/sync"});
    };
    const auto unser = [&] {
        anlegen();
        return Messung::dauer([&] {
            for (int i = 0; i < anzahl; ++i)
                Q_UNUSED(Dateibewegung::ausfuehren(
                    {.von = p.quelle + u"/%1.pdf"_s.arg(i), .ordner = fern.path(), .name = u"u%1.pdf"_s.arg(i)},
                    [](const Dateibewegung::Schritt &) {}));
        });
    };
    const auto blank = [&] {
        anlegen();
        QList<QByteArray> von = {"/usr/bin/openssl", "dgst", "-sha256"};
        QList<QByteArray> nach = von;
        QList<QByteArray> kopieren = {"/bin/cp", "-p"};
        for (int i = 0; i < anzahl; ++i) {
            von << (p.quelle + u"/%1.pdf"_s.arg(i)).toUtf8();
            kopieren << von.last();
            nach << (fern.path() + u"/%1.pdf"_s.arg(i)).toUtf8();
        }
        kopieren << fern.path().toUtf8();
        return Messung::dauer([&] {
            Kommando::laufen(kopieren);
            Kommando::laufen({"/bin/sync"});
            Kommando::laufen(von);
            Kommando::laufen(nach);
        });
    };
    const auto mitAufraeumen = [&](const Messung::Lauf &lauf) {
        const double sekunden = lauf();
        for (const QString &name : QDir(fern.path()).entryList(QDir::Files))
            QFile::remove(fern.filePath(name));
        return sekunden;
    };
    Messung::drucken("1 GiB to another file system",
                     Messung::paarweise(
                         3, [&] { return mitAufraeumen(unser); }, [&] { return mitAufraeumen(blank); }),
                     1.3);
}

void Reihen::rueckbau()
{
    const auto vorbereitet =
        [](const std::function<void(const std::shared_ptr<Datenbank> &, const Profil &, const QString &)> &arbeit) {
            const QTemporaryDir ordner;
            const Profil p = profilIn(ordner.path());
            const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
            const QString log = sitzungAnlegen(*db, p, bewegungen);
            return Messung::dauer([&] { arbeit(db, p, log); });
        };
    const auto unser = [&](const std::shared_ptr<Datenbank> &db, const Profil &, const QString &log) {
        if (Protokollbuch::zurueckdrehen(log, db, [](qint64, qint64) {}).zurueckgedreht != bewegungen)
            throw std::runtime_error("the session was not turned back whole");
    };
    const auto blank = [&](const std::shared_ptr<Datenbank> &db, const Profil &p, const QString &) {
        blankZurueck(*db, p, bewegungen);
    };
    Messung::drucken("turning back 10,000 movements",
                     Messung::paarweise(
                         3, [&] { return vorbereitet(unser); }, [&] { return vorbereitet(blank); }),
                     3.0);
}

void Reihen::protokolle()
{
    const QTemporaryDir ordner;
    for (int i = 0; i < 1000; ++i)
        Probe::schreiben(ordner.filePath(u"Protokoll %1.jsonl"_s.arg(i)), "x");
    const auto blankListe = [&] {
        QList<std::pair<qint64, QByteArray>> logs;
        DIR *offen = ::opendir(ordner.path().toUtf8().constData());
        while (const dirent *e = ::readdir(offen)) {
            struct stat s = {};
            if (QByteArrayView(e->d_name).endsWith(".jsonl") && ::fstatat(::dirfd(offen), e->d_name, &s, 0) == 0)
                logs.emplace_back(s.st_mtim.tv_sec, QByteArray(e->d_name));
        }
        ::closedir(offen);
        std::sort(logs.begin(), logs.end());
    };
    Messung::drucken("listing 1,000 logs",
                     Messung::paarweise(
                         51, [&] { return Messung::dauer([&] { Q_UNUSED(Protokollbuch::dateien(ordner.path())); }); },
                         [&] { return Messung::dauer(blankListe); }),
                     1.5);
    QByteArray log;
    for (int i = 0; i < 100000; ++i)
        log +=
            Protokollzeile{
                .zeit = jetztIso(),
                .aktion = u"einsortiert"_s,
                .dokument = i,
                .von = u"/home/anna/Scans/Inbox/Scan %1.pdf"_s.arg(i),
                .nach = u"/home/anna/Ablage/Privat/Post/2024/Briefe/2024-05-17 Stadtwerke - Abschlag %1.pdf"_s.arg(i),
                .altStatus = u"bereit"_s,
                .kopiert = false}
                .json() +
            '\n';
    const QString datei = ordner.filePath(u"gross.jsonl"_s);
    Probe::schreiben(datei, log);
    const auto blankLesen = [&] {
        QFile eingabe(datei);
        if (!eingabe.open(QIODevice::ReadOnly))
            throw std::runtime_error("cannot read the log");
        qsizetype anzahl = 0;
        while (!eingabe.atEnd())
            anzahl += QJsonDocument::fromJson(eingabe.readLine()).isObject() ? 1 : 0;
        if (anzahl != 100000)
            throw std::runtime_error("lines are missing");
    };
    Messung::drucken("reading a log of 100,000 lines",
                     Messung::paarweise(
                         7, [&] { return Messung::dauer([&] { Q_UNUSED(Protokollbuch::lesen(datei)); }); },
                         [&] { return Messung::dauer(blankLesen); }),
                     1.5);
}
