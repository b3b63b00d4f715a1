#include "programmordner.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;

class TestProgrammordner : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void derOrdnerZiehtUm_data()
    {
        QTest::addColumn<QStringList>("vorhanden");
        QTest::addColumn<QString>("uebernommen");
        QTest::addColumn<QStringList>("nachher");
        QTest::newRow("nichts da") << QStringList{} << QString() << QStringList{u"Quillmar"_s};
        QTest::newRow("älterer Name") << QStringList{u"Ablage"_s} << u"Ablage"_s << QStringList{u"Quillmar"_s};
        QTest::newRow("jüngerer Name") << QStringList{u"Hollerbrand"_s} << u"Hollerbrand"_s
                                       << QStringList{u"Quillmar"_s};
        QTest::newRow("beide") << QStringList{u"Ablage"_s, u"Hollerbrand"_s} << u"Hollerbrand"_s
                               << QStringList{u"Ablage"_s, u"Quillmar"_s};
        QTest::newRow("schon umgezogen") << QStringList{u"Quillmar"_s, u"Hollerbrand"_s} << u"Quillmar"_s
                                         << QStringList{u"Hollerbrand"_s, u"Quillmar"_s};
    }

    // Each earlier folder holds a file with its name in it.
    void derOrdnerZiehtUm()
    {
        QFETCH(QStringList, vorhanden);
        QFETCH(QString, uebernommen);
        const QTemporaryDir haus;
        qputenv("XDG_DATA_HOME", haus.path().toUtf8());
        const QDir daten(haus.path());
        for (const QString &name : vorhanden)
            QVERIFY(daten.mkpath(name + u"/von "_s + name));
        if (vorhanden.contains(u"Quillmar"_s))
            QFile::setPermissions(daten.filePath(u"Quillmar"_s), QFile::Permissions(0x7777));
        const QString ordner = programmOrdner();
        QCOMPARE(ordner, daten.filePath(u"Quillmar"_s));
        QTEST(daten.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), "nachher");
        const QStringList inhalt = QDir(ordner).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        QCOMPARE(inhalt, uebernommen.isEmpty() ? QStringList{} : QStringList{u"von "_s + uebernommen});
        // One that others could look into is closed to them.
        QVERIFY(!(QFileInfo(ordner).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther)));
    }

    void derDatenordnerEntstehtMit()
    {
        const QTemporaryDir haus;
        qputenv("XDG_DATA_HOME", haus.filePath(u"tief/unten"_s).toUtf8());
        QVERIFY(QFileInfo(programmOrdner()).isDir());
    }

    void ohneSchreibrechtBleibtDerName()
    {
        qputenv("XDG_DATA_HOME", "/proc/daten");
        QCOMPARE(programmOrdner(), u"/proc/daten/Quillmar"_s);
    }
};

QTEST_GUILESS_MAIN(TestProgrammordner)
#include "test_programmordner.moc"
