#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/** What scripts/texte finds in a source; that the files it writes are up to date is a test of its own. */
class TestTextkatalog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void wasInEinerQuelleSteht_data()
    {
        QTest::addColumn<QByteArray>("quelltext");
        QTest::addColumn<QByteArrayList>("texte");
        QTest::newRow("Literal") << QByteArray("x = Sprache::text(u\"Ja \\\"%@\\\"\\n\"_s);")
                                 << QByteArrayList{"\"Ja \\\"%@\\\"\\n\""};
        QTest::newRow("mehrzeilig") << QByteArray("Sprache::text(\n    u\"Eins \"\n    u\"zwei\"_s)")
                                    << QByteArrayList{"\"Eins zwei\""};
        QTest::newRow("Merker") << QByteArray("QUILLMAR_TEXT(u\"Drei\"), QUILLMAR_TEXT(u\"Vier\"_s)")
                                << QByteArrayList{"\"Drei\"", "\"Vier\""};
        QTest::newRow("eines und mehrere")
            << QByteArray("Sprache::text(liste.size(), u\"%@ Blatt\"_s,\n u\"%@ \" \"Blätter\"_s)")
            << QByteArrayList{"\"%@ Blatt\"", "\"%@ Blätter\""};
        QTest::newRow("leer") << QByteArray("Sprache::text(u\"\"_s)") << QByteArrayList{};
        QTest::newRow("gekennzeichnet") << QByteArray("Sprache::text(/* QUILLMAR_TEXT */ titel)") << QByteArrayList{};
        QTest::newRow("Kommentar") << QByteArray("// Sprache::text(titel)\n/* Sprache::text(b) */") << QByteArrayList{};
        QTest::newRow("Schrägstriche im Text")
            << QByteArray("Sprache::text(u\"http://a\"_s)") << QByteArrayList{"\"http://a\""};
        const QByteArrayList verstoss{"quelle.cpp:1: no literal; mark a variable with /* QUILLMAR_TEXT */"};
        QTest::newRow("Variable") << QByteArray("Sprache::text(titel)") << verstoss;
        QTest::newRow("zwei zur Wahl") << QByteArray("Sprache::text(a ? u\"A\"_s : u\"B\"_s)") << verstoss;
        QTest::newRow("zusammengesetzt") << QByteArray("Sprache::text(u\"A\"_s + b)") << verstoss;
        QTest::newRow("ohne Aufruf") << QByteArray("transform(a, b, Sprache::text)") << verstoss;
    }

    void wasInEinerQuelleSteht()
    {
        QFETCH(QByteArray, quelltext);
        QFETCH(QByteArrayList, texte);
        const QTemporaryDir ordner;
        QFile datei(ordner.filePath(u"quelle.cpp"_s));
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write(quelltext) == quelltext.size());
        datei.close();
        QProcess programm;
        programm.setWorkingDirectory(ordner.path());
        programm.start(QStringLiteral(QUILLMAR_TEXTE), {u"--zeigen"_s, u"quelle.cpp"_s});
        QVERIFY(programm.waitForFinished());
        QCOMPARE(programm.readAllStandardOutput(), texte.isEmpty() ? QByteArray() : texte.join('\n') + '\n');
        QCOMPARE(programm.exitCode(), texte.value(0).startsWith("quelle.cpp") ? 1 : 0);
    }
};

QTEST_GUILESS_MAIN(TestTextkatalog)
#include "test_textkatalog.moc"
