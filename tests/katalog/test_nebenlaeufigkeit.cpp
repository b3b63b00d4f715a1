#include "datenbank.h"
#include "stapel.h"
#include "transaktion.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <cstring>
#include <sqlite3.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::katalog;

namespace
{
const QString einfuegen = u"INSERT INTO texte (text) VALUES (?)"_s;

qint64 anzahl(Datenbank &db) { return db.abfragen(u"SELECT COUNT(*) n FROM texte"_s).first().ganz(u"n"); }

QString reihenfolge(Datenbank &db)
{
    QString folge;
    for (const Zeile &z : db.abfragen(u"SELECT text FROM texte ORDER BY dokument_id"_s))
        folge += z.text(u"text");
    return folge;
}

/** Another program's hold on the catalogue. */
class FremdeSperre
{
public:
    explicit FremdeSperre(const QString &pfad)
    {
        sqlite3_open(pfad.toUtf8().constData(), &m_griff);
        if (sqlite3_exec(m_griff, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("cannot lock");
    }
    ~FremdeSperre() { sqlite3_close(m_griff); }
    Q_DISABLE_COPY_MOVE(FremdeSperre)

    void freigeben() { sqlite3_exec(m_griff, "COMMIT", nullptr, nullptr, nullptr); }

private:
    sqlite3 *m_griff = nullptr;
};
} // namespace

class TestNebenlaeufigkeit : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    QString m_pfad;

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_pfad = m_ordner->filePath(u"k.db"_s);
    }

    void zweiFaedenAufEinerVerbindung()
    {
        Datenbank db(m_pfad);
        std::atomic<int> fehler = 0;
        const auto arbeiten = [&] {
            for (int i = 0; i < 200; ++i) {
                fehler += db.ausfuehren(einfuegen, {u"x"_s}) == 0 ? 0 : 1;
                fehler += db.abfragen(u"SELECT text FROM texte LIMIT ?"_s, {1}).size() == 1 ? 0 : 1;
            }
        };
        {
            const std::jthread erster(arbeiten);
            const std::jthread zweiter(arbeiten);
        }
        QCOMPARE(fehler.load(), 0);
        QCOMPARE(anzahl(db), 400);
    }

    void zweiVerbindungenZugleich()
    {
        std::atomic<int> fehler = 0;
        const auto arbeiten = [&] {
            Datenbank db(m_pfad); // both find no file and make the tables
            for (int i = 0; i < 100; ++i)
                fehler += db.ausfuehren(einfuegen, {u"x"_s}) == 0 ? 0 : 1;
        };
        {
            const std::jthread erster(arbeiten);
            const std::jthread zweiter(arbeiten);
        }
        QCOMPARE(fehler.load(), 0);
        Datenbank db(m_pfad);
        QCOMPARE(anzahl(db), 200);
    }

    void warteWaehrendGelesenWird()
    {
        Datenbank db(m_pfad);
        FremdeSperre sperre(m_pfad);
        std::atomic<bool> geschrieben = false;
        int code = -1;
        std::jthread schreiber([&] {
            code = db.ausfuehren(einfuegen, {u"x"_s});
            geschrieben = true;
        });
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(anzahl(db), 0);
        QVERIFY(!geschrieben);
        sperre.freigeben();
        schreiber.join();
        QCOMPARE(code, 0);
        QCOMPARE(anzahl(db), 1);
    }

    void eineTransaktionWartetAuch()
    {
        Datenbank db(m_pfad);
        FremdeSperre sperre(m_pfad);
        std::jthread schreiber([&] {
            Transaktion t(db);
            db.ausfuehren(einfuegen, {u"x"_s});
            t.abschliessen();
        });
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(anzahl(db), 0);
        sperre.freigeben();
        schreiber.join();
        QCOMPARE(anzahl(db), 1);
    }

    void ohneAbschlussBleibtNichts()
    {
        Datenbank db(m_pfad);
        {
            const Transaktion t(db);
            db.ausfuehren(einfuegen, {u"x"_s});
            QCOMPARE(anzahl(db), 1);
        }
        QCOMPARE(anzahl(db), 0);
        QCOMPARE(db.ausfuehren(einfuegen, {u"y"_s}), 0);
    }

    void verschachtelt()
    {
        Datenbank db(m_pfad);
        {
            Transaktion aussen(db);
            db.ausfuehren(einfuegen, {u"a"_s});
            {
                const Transaktion verworfen(db);
                db.ausfuehren(einfuegen, {u"b"_s});
            }
            {
                Transaktion behalten(db);
                db.ausfuehren(einfuegen, {u"c"_s});
                behalten.abschliessen();
            }
            aussen.abschliessen();
        }
        QCOMPARE(reihenfolge(db), u"ac"_s);
        {
            const Transaktion aussen(db);
            Transaktion innen(db);
            db.ausfuehren(einfuegen, {u"d"_s});
            innen.abschliessen();
        }
        QCOMPARE(reihenfolge(db), u"ac"_s);
    }

    void andereFaedenKommenNichtDazwischen()
    {
        Datenbank db(m_pfad);
        std::jthread anderer;
        {
            Transaktion t(db);
            db.ausfuehren(einfuegen, {u"1"_s});
            std::atomic<bool> gestartet = false;
            anderer = std::jthread([&] {
                gestartet = true;
                db.ausfuehren(einfuegen, {u"3"_s});
            });
            while (!gestartet)
                std::this_thread::yield();
            for (int i = 0; i < 1000; ++i) // time enough to come in between
                QCOMPARE(anzahl(db), 1);
            db.ausfuehren(einfuegen, {u"2"_s});
            t.abschliessen();
        }
        anderer.join();
        QCOMPARE(reihenfolge(db), u"123"_s);
    }

    void stapelTeiltAufUndVerwirftDenRest()
    {
        Datenbank db(m_pfad);
        {
            Stapel stapel(db);
            // One more than a transaction takes, however fast it is.
            for (int i = 0; i < 1001; ++i) {
                stapel.naechstes();
                QCOMPARE(db.schreiben(einfuegen, {u"x"_s}), 1);
            }
        }
        QVERIFY2(anzahl(db) > 0 && anzahl(db) < 1001, qPrintable(QString::number(anzahl(db))));
        QVERIFY_EXCEPTION_THROWN(db.schreiben(u"UNFUG ?"_s, {1}), Katalogfehler);
        QVERIFY_EXCEPTION_THROWN(Q_UNUSED(db.lesen(u"SELECT unfug FROM dokumente"_s)), Katalogfehler);
        QVERIFY(db.lesen(u"SELECT id FROM dokumente WHERE id=-1"_s).isEmpty()); // no rows are no failure
    }

    // Closing any descriptor of a file drops the locks of the whole process: the last program to close would then take
    // the journal away from under the one that still writes.
    void zweitesOeffnenNimmtDerErstenVerbindungNichtDieSperre()
    {
        Datenbank db(m_pfad);
        {
            const Datenbank zweite(m_pfad);
        }
        QCOMPARE(QProcess::execute(QCoreApplication::applicationFilePath(), {u"--schreiben"_s, m_pfad}), 0);
        QVERIFY(QFile::exists(m_pfad + u"-wal"_s));
        QCOMPARE(db.ausfuehren(einfuegen, {u"z"_s}), 0);
        QCOMPARE(QProcess::execute(QCoreApplication::applicationFilePath(), {u"--schreiben"_s, m_pfad}), 0);
        QCOMPARE(reihenfolge(db), u"aza"_s);
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--schreiben") == 0) {
        Datenbank db(QString::fromUtf8(argv[2]));
        return db.ausfuehren(einfuegen, {u"a"_s});
    }
    QCoreApplication app(argc, argv);
    TestNebenlaeufigkeit test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_nebenlaeufigkeit.moc"
