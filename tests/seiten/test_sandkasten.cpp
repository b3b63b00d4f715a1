#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
bool kenntLandlock() { return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) > 0; }
} // namespace

class SandkastenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What the process that draws pages could do to whoever opens a document that has taken it over.
    void nichtsAlsRechnen()
    {
        const QTemporaryDir ordner;
        QFile datei(ordner.filePath(u"Brief.pdf"_s));
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write("bleibt") == 6);
        datei.close();
        QProcess probe;
        probe.start(QStringLiteral(QUILLMAR_SANDKASTENPROBE),
                    {u"/usr/share/fonts"_s, datei.fileName(), ordner.filePath(u"neu"_s)});
        QVERIFY(probe.waitForFinished(60'000));
        QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
        QStringList zeilen = QString::fromUtf8(probe.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(zeilen.size(), 19);
        QCOMPARE(zeilen.takeFirst(), u"geschlossen ja"_s);
        QCOMPARE(zeilen.takeFirst(), u"Schrift lesen ja"_s);
        // Other files it can read where the kernel has nothing to keep it from that.
        QCOMPARE(zeilen.takeFirst(), kenntLandlock() ? u"Brief lesen nein"_s : u"Brief lesen ja"_s);
        for (const QString &zeile : std::as_const(zeilen))
            QVERIFY2(zeile.endsWith(u" nein"), qPrintable(zeile));
        QVERIFY(datei.open(QIODevice::ReadOnly));
        QCOMPARE(datei.readAll(), "bleibt");
        QVERIFY(!QFile::exists(ordner.filePath(u"neu"_s)));
    }
};

QTEST_GUILESS_MAIN(SandkastenTest)
#include "test_sandkasten.moc"
