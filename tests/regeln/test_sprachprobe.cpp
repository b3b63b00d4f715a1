#include "sprachprobe.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::regeln;

/** Real outputs of the text recognition, and text layers whose letters mean nothing. */
class TestSprachprobe : public QObject
{
    Q_OBJECT

    static QString lesung(const QString &name)
    {
        QFile datei(u"" QUILLMAR_LESUNGEN "/"_s + name);
        return datei.open(QIODevice::ReadOnly) ? QString::fromUtf8(datei.readAll()) : QString();
    }
    static QString verschoben(const QString &text, int um)
    {
        QString neu;
        for (const QChar c : text)
            neu += c.isSpace() ? c : QChar(c.unicode() + um);
        return neu;
    }

private Q_SLOTS:
    void lesungen_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : QDir(u"" QUILLMAR_LESUNGEN ""_s).entryList({u"aufrecht-*"_s}))
            QTest::newRow(qPrintable(name)) << name.mid(u"aufrecht-"_s.size());
    }
    void lesungen()
    {
        QFETCH(QString, name);
        const Sprachprobe aufrecht(lesung(u"aufrecht-"_s + name), u"deu+eng+fra"_s);
        QVERIFY(!aufrecht.istLeer());
        QVERIFY(aufrecht.istSprache());
        QVERIFY(Sprachprobe(lesung(u"aufrecht-"_s + name), u"pol"_s).istSprache()); // nobody knows its words
        const Sprachprobe kopfueber(lesung(u"kopfueber-"_s + name), u"deu+eng+fra"_s);
        QVERIFY(!kopfueber.istLeer());
        QVERIFY(!kopfueber.istSprache());
        QVERIFY(aufrecht.guete() > kopfueber.guete());
    }

    void leeres()
    {
        for (const QString &text : {u""_s, u" \f\n"_s, u"— | ."_s}) {
            QVERIFY(Sprachprobe(text, u"deu"_s).istLeer());
            QVERIFY(Sprachprobe(text, u"deu"_s).istSprache());
        }
    }

    void textebenen_data()
    {
        const QString brief = lesung(u"aufrecht-vertrag.txt"_s);
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("sprache");
        QTest::newRow("as it is") << brief << true;
        QTest::newRow("no font map") << QString(brief).replace(QRegularExpression(u"\\p{L}"_s), u"(cid:12)"_s) << false;
        QTest::newRow("private use") << QString(brief).replace(u'e', QChar(0xE065)).replace(u'n', QChar(0xE06E))
                                     << false;
        QTest::newRow("glyph numbers") << verschoben(brief, -29) << false;
        QTest::newRow("the next letter") << verschoben(brief, 1) << false;
        QTest::newRow("without vowels") << QString(brief).remove(QRegularExpression(u"[aeiouäöü]"_s)) << false;
        QTest::newRow("one letter") << QString(brief).replace(QRegularExpression(u"\\p{L}"_s), u"x"_s) << false;
        QTest::newRow("UTF-8 as Latin-1")
            << QString::fromLatin1(u"für Grüße über Möbel und Bücher, jährlich größere Lücken"_s.toUtf8()) << false;
        QTest::newRow("Polish") << u"Szanowna Pani, dziękujemy za wpłatę z dnia 12 lutego. W załączeniu przesyłamy "
                                   "roczne rozliczenie. Prosimy o sprawdzenie stanu licznika i odpowiedź w ciągu "
                                   "czterech tygodni, jeżeli coś się nie zgadza. Z poważaniem Jan Kowalski"_s
                                << true;
    }
    void textebenen()
    {
        QFETCH(QString, text);
        QTEST(Sprachprobe(text, u"deu"_s).istSprache(), "sprache");
    }

    // In a language whose frequent words nobody knows their absence says nothing.
    void fremdeSprache()
    {
        const QString viel = lesung(u"aufrecht-vertrag.txt"_s);
        QVERIFY(Sprachprobe(viel, u"pol"_s).istSprache());
        QVERIFY(!Sprachprobe(verschoben(viel, 1), u"fra"_s).istSprache());
        QVERIFY(Sprachprobe(lesung(u"aufrecht-englisch.txt"_s), u"eng"_s).istSprache());
    }
};

QTEST_GUILESS_MAIN(TestSprachprobe)
#include "test_sprachprobe.moc"
