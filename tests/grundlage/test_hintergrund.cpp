#include "anfrage.h"

#include <QSemaphore>
#include <QTest>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::grundlage;

/** The way to another thread and back. */
class TestHintergrund : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void briefeKommenDerReiheNach_data()
    {
        QTest::addColumn<QString>("eingeworfen"); // a small letter stands by itself, a capital one is about its matter
        QTest::addColumn<QString>("zugestellt");
        QTest::newRow("einzelne") << u"aaba"_s << u"aaba"_s;
        QTest::newRow("einer Sache") << u"AAA"_s << u"A"_s;
        QTest::newRow("zweier Sachen") << u"AABBA"_s << u"ABA"_s;
        QTest::newRow("gemischt") << u"AaAAbA"_s << u"AaAbA"_s;
    }
    void briefeKommenDerReiheNach()
    {
        QFETCH(QString, eingeworfen);
        QString angekommen;
        QObject empfaenger;
        const auto briefe = Briefkasten::fuer(&empfaenger);
        std::jthread([&] {
            for (const QChar c : eingeworfen) {
                const auto brief = [&angekommen, c] {
                    QCOMPARE(QThread::currentThread(), qApp->thread());
                    angekommen += c;
                };
                c.isUpper() ? briefe->fortschreiben(brief, c) : briefe->einwerfen(brief);
            }
        }).join();
        QVERIFY(angekommen.isEmpty());
        QCoreApplication::processEvents();
        QTEST(angekommen, "zugestellt");
    }

    /** A letter that runs an event loop of its own does not hold up those behind it. */
    void einBriefDerWartet()
    {
        QObject empfaenger;
        const auto briefe = Briefkasten::fuer(&empfaenger);
        bool zweiter = false;
        bool erster = false;
        briefe->einwerfen([&] {
            briefe->einwerfen([&] { zweiter = true; });
            QTRY_VERIFY(zweiter);
            erster = true;
        });
        QTRY_VERIFY(erster);
    }

    void werWegIstBekommtNichts()
    {
        auto empfaenger = std::make_unique<QObject>();
        const auto briefe = Briefkasten::fuer(empfaenger.get());
        bool gekommen = false;
        briefe->einwerfen([&] { gekommen = true; });
        QSemaphore frei;
        imHintergrund(
            empfaenger.get(),
            [&frei] {
                frei.acquire();
                return 1;
            },
            [&](const Ausgang<int> &) { gekommen = true; });
        empfaenger.reset();
        frei.release();
        QVERIFY(Hintergrund::warten(10s));
        briefe->einwerfen([&] { gekommen = true; });
        QCoreApplication::processEvents();
        QVERIFY(!gekommen);
    }

    void wasGeworfenWirdKommtAn()
    {
        QString satz;
        imHintergrund(
            this, []() -> int { throw std::runtime_error("voll"); },
            [&](const Ausgang<int> &ausgang) {
                QVERIFY(!ausgang.wert);
                QVERIFY_THROWS_EXCEPTION(std::runtime_error, std::rethrow_exception(ausgang.fehler));
                satz = u"da"_s;
            });
        QTRY_COMPARE(satz, u"da"_s);
    }

    void nurDieNeuesteAnfrageZaehlt()
    {
        QSemaphore frei;
        QList<int> antworten;
        QObject empfaenger;
        Anfrage anfrage(&empfaenger);
        for (const int nummer : {1, 2}) {
            anfrage.stellen(
                [&frei, nummer] {
                    frei.acquire();
                    return nummer;
                },
                [&](const Ausgang<int> &ausgang) { antworten << *ausgang.wert; });
        }
        QVERIFY(anfrage.laeuft());
        frei.release(2);
        QTRY_COMPARE(antworten, QList<int>{2});
        QVERIFY(!anfrage.laeuft());
        QVERIFY(Hintergrund::warten(10s));
        QCoreApplication::processEvents();
        QCOMPARE(antworten, QList<int>{2});
    }

    void verworfenesHoertAufUndMeldetSichNicht_data()
    {
        QTest::addColumn<bool>("zerstoeren");
        QTest::newRow("verworfen") << false;
        QTest::newRow("Eigentümer weg") << true;
    }
    void verworfenesHoertAufUndMeldetSichNicht()
    {
        QFETCH(bool, zerstoeren);
        bool gekommen = false;
        QObject empfaenger;
        auto anfrage = std::make_unique<Anfrage>(&empfaenger);
        anfrage->stellen(
            [](const std::stop_token &ende) {
                while (!ende.stop_requested())
                    std::this_thread::yield();
                return true;
            },
            [&](const Ausgang<bool> &) { gekommen = true; });
        zerstoeren ? anfrage.reset() : anfrage->verwerfen();
        QVERIFY(Hintergrund::warten(10s));
        QCoreApplication::processEvents();
        QVERIFY(!gekommen);
    }
};

QTEST_GUILESS_MAIN(TestHintergrund)
#include "test_hintergrund.moc"
