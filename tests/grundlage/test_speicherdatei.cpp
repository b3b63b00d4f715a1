#include "dateiinhalt.h"
#include "speicherdatei.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <sys/mman.h>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;

namespace
{
QByteArray gelesen(int griff)
{
    QFile datei;
    return datei.open(griff, QIODevice::ReadOnly) && datei.seek(0) ? datei.readAll() : QByteArray();
}

bool beschreibbarAbgebildet(int griff)
{
    void *ort = ::mmap(nullptr, 1, PROT_READ | PROT_WRITE, MAP_SHARED, griff, 0);
    return ort != MAP_FAILED && ::munmap(ort, 1) == 0;
}
} // namespace

class SpeicherdateiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void groesseBleibt()
    {
        const Dateigriff datei = Speicherdatei::neue(100);
        QVERIFY(datei.offen() && Speicherdatei::versiegeln(datei, false));
        QCOMPARE(::ftruncate(datei.nummer(), 50), -1);
        QCOMPARE(::ftruncate(datei.nummer(), 200), -1);
        QVERIFY(beschreibbarAbgebildet(datei.nummer()));
        QVERIFY2(!Speicherdatei::versiegeln(datei, true), "nobody can add a seal later");
        QCOMPARE(gelesen(datei.nummer()), QByteArray(100, '\0'));
    }

    // What another process gets of a file is a copy that it cannot change; the file may change meanwhile.
    void abzugIstUnveraenderlich()
    {
        const QTemporaryDir ordner;
        QFile datei(ordner.filePath(u"Brief.pdf"_s));
        const QByteArray bytes = QByteArray("Brief ").repeated(100'000);
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write(bytes) == bytes.size());
        datei.close();
        const Dateiinhalt inhalt = dateiinhalt(datei.fileName(), bytes.size());
        QVERIFY(inhalt.befund == Dateiinhalt::Befund::Gelesen && inhalt.bytes);
        QVERIFY(datei.resize(10));
        QCOMPARE(gelesen(inhalt.bytes->nummer()), bytes);
        QCOMPARE(::ftruncate(inhalt.bytes->nummer(), 0), -1);
        QCOMPARE(::pwrite(inhalt.bytes->nummer(), "x", 1, 0), -1);
        QVERIFY(!beschreibbarAbgebildet(inhalt.bytes->nummer()));
        QVERIFY(dateiinhalt(datei.fileName(), 9).befund == Dateiinhalt::Befund::ZuGross);
        const Dateiinhalt neu = dateiinhalt(datei.fileName(), 10, inhalt.stand);
        QVERIFY(neu.befund == Dateiinhalt::Befund::Gelesen);
        QVERIFY(dateiinhalt(datei.fileName(), 10, neu.stand).befund == Dateiinhalt::Befund::Unveraendert);
    }
};

QTEST_APPLESS_MAIN(SpeicherdateiTest)
#include "test_speicherdatei.moc"
