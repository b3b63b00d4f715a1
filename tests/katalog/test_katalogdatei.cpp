#include "dateien.h"
#include "datenbank.h"
#include "taten.h"
#include "vorschlaege.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::katalog;

namespace
{
const QString unlesbar = u"Datenbank lässt sich nicht öffnen: "_s;

void mitSqlite(const QString &pfad, const char *sql)
{
    sqlite3 *griff = nullptr;
    QCOMPARE(sqlite3_open(pfad.toUtf8().constData(), &griff), SQLITE_OK);
    QCOMPARE(sqlite3_exec(griff, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(griff);
}

void schreiben(const QString &pfad, const QByteArray &bytes)
{
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    QCOMPARE(datei.write(bytes), bytes.size());
}

QByteArray lesen(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray("unlesbar");
}

/** As another user for a while, since root may write everything. */
class OhneVorrechte
{
public:
    OhneVorrechte() : m_vorher(::geteuid())
    {
        if (m_vorher == 0 && ::seteuid(65534) != 0)
            qFatal("seteuid");
    }
    ~OhneVorrechte()
    {
        if (::seteuid(m_vorher) != 0)
            qFatal("seteuid");
    }
    Q_DISABLE_COPY_MOVE(OhneVorrechte)

private:
    uid_t m_vorher;
};

QByteArray zustand(Datenbank &db)
{
    const auto texte = db.abfragen(u"SELECT text FROM texte ORDER BY dokument_id"_s);
    return (db.nurLesen() ? "nur lesen " : "schreibbar ") + QByteArray::number(texte.size());
}

/** Run on a small disk of its own: what becomes of an old and a new catalogue when it is full. */
int aufVollerPlatte(const QString &ordner)
{
    const QString alt = ordner + u"/alt.db"_s;
    {
        Datenbank db(alt);
        db.ausfuehren(u"INSERT INTO texte VALUES (1,'a')"_s);
    }
    QFile fueller(ordner + u"/fueller"_s);
    if (!fueller.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 2;
    while (fueller.write(QByteArray(1024, 'x')) > 0)
        ;
    QFile ausgabe;
    if (!ausgabe.open(stdout, QIODevice::WriteOnly))
        return 2;
    {
        Datenbank db(alt);
        ausgabe.write(zustand(db) + '\n');
    }
    try {
        const Datenbank neu(ordner + u"/neu.db"_s);
        ausgabe.write("geöffnet\n");
    } catch (const Fehler &f) {
        ausgabe.write(f.text().toUtf8() + '\n');
    }
    fueller.remove();
    Datenbank spaeter(alt);
    Datenbank neu(ordner + u"/neu.db"_s);
    ausgabe.write(zustand(spaeter) + '\n' + zustand(neu) + '\n');
    return 0;
}
} // namespace

class TestKatalogdatei : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    QString m_pfad;

    void katalogAnlegen() const
    {
        Datenbank db(m_pfad);
        QCOMPARE(db.ausfuehren(u"INSERT INTO texte VALUES (1,'a')"_s), 0);
    }

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_pfad = m_ordner->filePath(u"k.db"_s);
    }

    void leereDateiIstNeu()
    {
        schreiben(m_pfad, {});
        Datenbank db(m_pfad);
        QVERIFY(!db.nurLesen());
        QVERIFY(!db.abfragen(u"SELECT 1 FROM sqlite_master WHERE name='gelernt'"_s).isEmpty());
    }

    void fremdeDateiBleibtWieSieIst_data()
    {
        QTest::addColumn<QString>("art");
        for (const auto &art : {u"keine Datenbank"_s, u"nur der Kopf"_s, u"fremde Tabellen"_s})
            QTest::newRow(qPrintable(art)) << art;
    }
    void fremdeDateiBleibtWieSieIst()
    {
        QFETCH(QString, art);
        if (art == u"keine Datenbank"_s) {
            schreiben(m_pfad, QByteArray(5000, 'x'));
        } else if (art == u"fremde Tabellen"_s) {
            mitSqlite(m_pfad, "CREATE TABLE moz_places (id); INSERT INTO moz_places VALUES (1)");
        } else {
            katalogAnlegen();
            schreiben(m_pfad, lesen(m_pfad).first(50));
        }
        QVERIFY(QFile::setPermissions(m_pfad, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        const QByteArray vorher = lesen(m_pfad);
        const auto rechte = QFileInfo(m_pfad).permissions();
        QString fehler;
        try {
            const Datenbank db(m_pfad);
        } catch (const Fehler &f) {
            fehler = f.text();
        }
        QCOMPARE(fehler, unlesbar + m_pfad);
        QCOMPARE(lesen(m_pfad), vorher);
        QVERIFY(QFileInfo(m_pfad).permissions() == rechte);
        QCOMPARE(QDir(m_ordner->path()).entryList(QDir::Files), QStringList{u"k.db"_s});
    }

    void einOrdnerIstKeinKatalog()
    {
        QVERIFY(QDir().mkdir(m_pfad));
        QVERIFY_EXCEPTION_THROWN(Datenbank{m_pfad}, Fehler);
        QVERIFY_EXCEPTION_THROWN(Datenbank{u"/proc/geht/nicht.db"_s}, Fehler);
    }

    void schreibgeschuetztWirdGelesen()
    {
        katalogAnlegen();
        const QByteArray vorher = lesen(m_pfad);
        QCOMPARE(::chmod(m_pfad.toUtf8().constData(), 0444), 0);
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0555), 0);
        {
            const OhneVorrechte ohne;
            Datenbank db(m_pfad);
            QCOMPARE(zustand(db), "nur lesen 1");
            QVERIFY(db.ausfuehren(u"DELETE FROM texte WHERE dokument_id=?"_s, {1}) != 0);
            QCOMPARE(zustand(db), "nur lesen 1");
        }
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0700), 0);
        QCOMPARE(lesen(m_pfad), vorher);
    }

    // Tables of the program's own came later: a catalogue that lacks them can be looked at all the same.
    void schreibgeschuetztVonEinerFrueherenFassung()
    {
        katalogAnlegen();
        mitSqlite(m_pfad, "DROP TABLE nachgeprueft; DROP TABLE zweitfragen; DROP TABLE dateistand; DROP TABLE taten");
        QCOMPARE(::chmod(m_pfad.toUtf8().constData(), 0444), 0);
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0555), 0);
        {
            const OhneVorrechte ohne;
            Datenbank db(m_pfad);
            QCOMPARE(zustand(db), "nur lesen 1");
            QVERIFY(!Vorschlaege(db).istNachgeprueft(1));
            QCOMPARE(Vorschlaege(db).unbeantwortete(), 0);
            QVERIFY(Dateien(db).verzeichnis().isEmpty());
            QVERIFY(!Taten::Folge(db).naechste());
        }
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0700), 0);
    }

    // Read without its journal such a catalogue would show rows that are long replaced.
    void schreibgeschuetztMitOffenemJournalWirdNichtGelesen()
    {
        katalogAnlegen();
        schreiben(m_pfad + u"-wal"_s, QByteArray(100, 'x'));
        QCOMPARE(::chmod(m_pfad.toUtf8().constData(), 0444), 0);
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0555), 0);
        {
            const OhneVorrechte ohne;
            QVERIFY_EXCEPTION_THROWN(Datenbank{m_pfad}, Fehler);
        }
        QCOMPARE(::chmod(m_ordner->path().toUtf8().constData(), 0700), 0);
    }

    void vollePlatte()
    {
        QProcess kind;
        const QString skript = u"mount -t tmpfs -o size=1m tmpfs \"$1\" || exit 77; exec \"$2\" --voll \"$1\""_s;
        kind.start(u"unshare"_s, {u"-Urm"_s, u"sh"_s, u"-c"_s, skript, u"sh"_s, m_ordner->path(),
                                  QCoreApplication::applicationFilePath()});
        QVERIFY(kind.waitForFinished(60000));
        if (kind.error() == QProcess::FailedToStart || kind.exitCode() == 77 || kind.exitCode() == 1)
            QSKIP("no small disk of one's own here: unshare -Urm or mount is not allowed");
        QCOMPARE(kind.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(kind.readAllStandardOutput()),
                 u"nur lesen 1\n"_s + unlesbar + m_ordner->path() + u"/neu.db\nschreibbar 1\nschreibbar 0\n"_s);
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--voll") == 0)
        return aufVollerPlatte(QString::fromUtf8(argv[2]));
    QCoreApplication app(argc, argv);
    TestKatalogdatei test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_katalogdatei.moc"
