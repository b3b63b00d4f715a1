#include "sperrdatei.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::grundlage;

namespace
{
/** Another process that takes the lock, reports through the pipe and holds it until it is killed. */
pid_t halterStarten(const QString &pfad, int meldung)
{
    const pid_t kind = ::fork();
    if (kind != 0)
        return kind;
    const auto sperre = Sperrdatei::nehmen(pfad, 0ms);
    const char antwort = sperre ? 'j' : 'n';
    if (::write(meldung, &antwort, 1) == 1)
        ::pause();
    ::_exit(0);
}
} // namespace

class TestSperrdatei : public QObject
{
    Q_OBJECT
    QTemporaryDir m_ordner;
    QString m_pfad = m_ordner.filePath(u"sperre"_s);

private Q_SLOTS:
    void einZweiterBekommtSieErstNachDemErsten()
    {
        auto erste = Sperrdatei::nehmen(m_pfad, 0ms);
        QVERIFY(erste);
        QCOMPARE(QFileInfo(m_pfad).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(!Sperrdatei::nehmen(m_pfad, 30ms));
        erste.reset();
        QVERIFY(Sperrdatei::nehmen(m_pfad, 0ms));
    }

    void eineVerschobeneSperreHaelt()
    {
        auto erste = Sperrdatei::nehmen(m_pfad, 0ms);
        std::optional<Sperrdatei> zweite(std::move(*erste));
        erste.reset();
        QVERIFY(!Sperrdatei::nehmen(m_pfad, 0ms));
        auto andere = Sperrdatei::nehmen(m_ordner.filePath(u"andere"_s), 0ms);
        *zweite = std::move(*andere);
        andere.reset();
        QVERIFY(Sperrdatei::nehmen(m_pfad, 0ms));
        QVERIFY(!Sperrdatei::nehmen(m_ordner.filePath(u"andere"_s), 0ms));
    }

    void einToterHalterGibtSieFrei()
    {
        int rohr[2];
        QCOMPARE(::pipe(rohr), 0);
        const pid_t kind = halterStarten(m_pfad, rohr[1]);
        char antwort = 0;
        QCOMPARE(::read(rohr[0], &antwort, 1), 1);
        QCOMPARE(antwort, 'j');
        QVERIFY(!Sperrdatei::nehmen(m_pfad, 30ms));
        QCOMPARE(::kill(kind, SIGKILL), 0);
        QVERIFY(Sperrdatei::nehmen(m_pfad, 10s));
        QCOMPARE(::waitpid(kind, nullptr, 0), kind);
        ::close(rohr[0]);
        ::close(rohr[1]);
    }

    void niemalsZweiZugleich()
    {
        std::atomic<int> drinnen = 0;
        std::atomic<int> zuviel = 0;
        std::atomic<int> gehalten = 0;
        const auto arbeiten = [&] {
            for (int runde = 0; runde < 5; ++runde) {
                const auto sperre = Sperrdatei::nehmen(m_pfad, 30s);
                gehalten += sperre ? 1 : 0;
                zuviel += ++drinnen > 1 ? 1 : 0;
                std::this_thread::yield();
                --drinnen;
            }
        };
        std::vector<std::thread> faeden;
        for (int n = 0; n < 4; ++n)
            faeden.emplace_back(arbeiten);
        for (std::thread &faden : faeden)
            faden.join();
        QCOMPARE(gehalten, 20);
        QCOMPARE(zuviel, 0);
    }

    void einVerweisWirdNichtVerfolgt()
    {
        const QString ziel = m_ordner.filePath(u"ziel"_s);
        const QString verweis = m_ordner.filePath(u"verweis"_s);
        QVERIFY(QFile::link(ziel, verweis));
        QVERIFY(!Sperrdatei::nehmen(verweis, 0ms));
        QVERIFY(!QFile::exists(ziel));
    }

    void ohneOrdnerKeineSperre() { QVERIFY(!Sperrdatei::nehmen(m_ordner.filePath(u"fehlt/sperre"_s), 0ms)); }
};

QTEST_GUILESS_MAIN(TestSperrdatei)
#include "test_sperrdatei.moc"
