#include "vorlage.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;
using Werte = Vorlage::Werte;

namespace
{
const QString namensVorlage = u"{datum} {gegenueber} - {titel}"_s;
const QString pfadVorlage = u"{zweig}/{ablage}/{jahr}/{rubrik}"_s;

Werte name(const QString &datum, const QString &gegenueber, const QString &titel)
{
    return {{Baustein::Datum, datum}, {Baustein::Gegenueber, gegenueber}, {Baustein::Titel, titel}};
}

Werte pfad(const QString &zweig, const QString &jahr, const QString &rubrik)
{
    return {{Baustein::Zweig, zweig},
            {Baustein::Ablage, u"Versicherungen"_s},
            {Baustein::Jahr, jahr},
            {Baustein::Rubrik, rubrik}};
}
} // namespace

class TestVorlage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fuellen_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<Werte>("werte");
        QTest::addColumn<QString>("erwartet");
        const QString tag = u"2024-03-05"_s;
        const QString werk = u"Stadtwerke"_s;
        QTest::newRow("Name") << namensVorlage << name(tag, werk, u"Abschlag"_s)
                              << u"2024-03-05 Stadtwerke - Abschlag"_s;
        QTest::newRow("ohne Gegenüber") << namensVorlage << name(tag, u""_s, u"Abschlag"_s) << u"2024-03-05 Abschlag"_s;
        QTest::newRow("ohne Titel") << namensVorlage << name(tag, werk, u""_s) << u"2024-03-05 Stadtwerke"_s;
        QTest::newRow("ohne Datum") << namensVorlage << name(u""_s, werk, u"Abschlag"_s) << u"Stadtwerke - Abschlag"_s;
        QTest::newRow("nur Datum") << namensVorlage << name(tag, u""_s, u""_s) << tag;
        QTest::newRow("gar nichts") << namensVorlage << Werte() << u""_s;
        QTest::newRow("Pfad") << pfadVorlage << pfad(u"Privat"_s, u"2024"_s, u"Kfz"_s)
                              << u"Privat/Versicherungen/2024/Kfz"_s;
        QTest::newRow("ohne Jahr") << pfadVorlage << pfad(u"Privat"_s, u""_s, u"Kfz"_s)
                                   << u"Privat/Versicherungen/Kfz"_s;
        QTest::newRow("ohne Rubrik") << pfadVorlage << pfad(u"Privat"_s, u"2024"_s, u""_s)
                                     << u"Privat/Versicherungen/2024"_s;
        QTest::newRow("ohne Zweig") << pfadVorlage << pfad(u""_s, u"2024"_s, u"Kfz"_s) << u"Versicherungen/2024/Kfz"_s;
        QTest::newRow("ohne Klammern") << u" .-Scan   vom\t\nAmt/-. "_s << Werte() << u"Scan vom Amt"_s;
        QTest::newRow("unbekannter Baustein") << u"{Datum} - {titel}"_s << name(tag, u""_s, u"x"_s) << u"x"_s;
        QTest::newRow("Leerzeichen im Wort") << u"{ datum }{titel}"_s << name(tag, u""_s, u"x"_s) << u"x"_s;
        QTest::newRow("offene Klammer") << u"Scan {"_s << Werte() << u"Scan {"_s;
        QTest::newRow("offen nach Baustein") << u"{titel} {datum"_s << name(tag, u""_s, u"x"_s) << u"x {datum"_s;
        QTest::newRow("verschachtelt") << u"x{a{datum}}y"_s << name(tag, u""_s, u""_s) << u"x}y"_s;
        QTest::newRow("Klammern im Wert") << u"{titel}!"_s << name(u""_s, u""_s, u"{datum}"_s) << u"{datum}!"_s;
        QTest::newRow("andere Trenner") << u"{datum}—{titel} | {rubrik}_{zweig}–x"_s << name(tag, u""_s, u"t"_s)
                                        << u"2024-03-05—t–x"_s;
        QTest::newRow("Punkt ist kein Trenner") << u"{gegenueber}. {titel}"_s << name(u""_s, u""_s, u"t"_s) << u"t"_s;
        QTest::newRow("geschütztes Leerzeichen am Trenner")
            << u"{titel}\u00a0-\u00a0{rubrik}"_s << name(u""_s, u""_s, u"t"_s) << u"t"_s;
        QTest::newRow("doppelte Striche") << u"a//{jahr}///b"_s << Werte{{Baustein::Jahr, u"7"_s}} << u"a/7/b"_s;
    }
    void fuellen()
    {
        QFETCH(QString, vorlage);
        QFETCH(Werte, werte);
        QTEST(Vorlage::fuellen(werte, vorlage), "erwartet");
    }

    void saeubern_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("grenze");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("verbotene Zeichen") << u"A/B: C*D"_s << 60 << u"A B C D"_s;
        QTest::newRow("alle verbotenen") << u"a\\/:*?\"<>|\x01\x1f\tb"_s << 60 << u"a b"_s;
        QTest::newRow("nur Punkte") << u"..."_s << 60 << u""_s;
        QTest::newRow("Ränder") << u"/ -.a.b-c.- :"_s << 60 << u"a.b-c"_s;
        QTest::newRow("Umlaut zusammengesetzt") << u"Gebu\u0308hr"_s << 60 << u"Gebühr"_s;
        QTest::newRow("Leerraum aller Art") << u"a\u00a0\u2003\r\nb"_s << 60 << u"a b"_s;
        QTest::newRow("Schnitt hinter Strich") << u"abc - def"_s << 5 << u"abc"_s;
        QTest::newRow("genau passend") << u"abcde"_s << 5 << u"abcde"_s;
        QTest::newRow("zu lang") << QString(120, u'x') << 90 << QString(90, u'x');
        QTest::newRow("wahrgenommene Zeichen")
            << u"👨‍👩‍👧e\u0301e\u0304\u0301x"_s << 3 << u"👨‍👩‍👧éḗ"_s;
        QTest::newRow("umgekehrte Schreibrichtung") << u"gpj.\u202Efdp\u2066x"_s << 60 << u"gpj.fdpx"_s;
        QTest::newRow("unsichtbar") << u"\uFEFFRech\u00ADnung\u200B \u200Dneu\U000E0041"_s << 60 << u"Rechnung neu"_s;
        QTest::newRow("Steuerzeichen") << u"a\u007Fb\u0085c\u009Bd"_s << 60 << u"a b c d"_s;
        QTest::newRow("NUL") << u"a"_s + QChar(u'\0') + u"b"_s << 60 << u"a b"_s;
    }
    void saeubern()
    {
        QFETCH(QString, text);
        QFETCH(int, grenze);
        QTEST(Vorlage::saeubern(text, grenze), "erwartet");
    }

    void bausteine()
    {
        QStringList woerter;
        for (const Baustein baustein : alleBausteine) {
            woerter << bausteinWort(baustein);
            QVERIFY(bausteinAus(bausteinWort(baustein)) == baustein);
        }
        QCOMPARE(woerter.join(u' '), u"datum jahr monat gegenueber titel zweig ablage rubrik altname"_s);
        for (const QString &fremd : {u""_s, u"Datum"_s, u" datum"_s, u"gegenüber"_s})
            QVERIFY(!bausteinAus(fremd));
        QCOMPARE(bausteinAnzeige(Baustein::Altname), u"Bisheriger Name"_s);
        QCOMPARE(bausteinErklaerung(Baustein::Ablage), u"Zweite Ebene, etwa Jahresablage oder Stammdaten"_s);
    }
};

QTEST_GUILESS_MAIN(TestVorlage)
#include "test_vorlage.moc"
