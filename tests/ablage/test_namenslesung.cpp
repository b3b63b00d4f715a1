#include "namenslesung.h"
#include "ziel.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
const QString ueblich = u"{datum} {gegenueber} - {titel}"_s;

QString stueck(const QString &vorlage, const QString &name, Baustein baustein)
{
    const auto stuecke = Namenslesung(vorlage).lesen(name);
    return stuecke ? stuecke->at(size_t(baustein)).toString() : u"passt nicht"_s;
}
} // namespace

class TestNamenslesung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gegenueber_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("erwartet");
        const auto neu = [](const char *was, const QString &vorlage, const QString &name, const QString &erwartet) {
            QTest::newRow(was) << vorlage << name << erwartet;
        };
        const QString werke = u"Stadtwerke Meißen"_s;
        neu("üblich", ueblich, u"2024-01-31 Stadtwerke Meißen - Abschlag.pdf"_s, werke);
        neu("Strich im Titel", ueblich, u"2024-01-31 Stadtwerke Meißen - Abschlag - Januar.pdf"_s, werke);
        neu("Strich im Namen", ueblich, u"2024-01-31 Müller-Lüdenscheidt - Abschlag.pdf"_s, u"Müller-Lüdenscheidt"_s);
        neu("große Endung", ueblich, u"2024-01-31 Stadtwerke Meißen - Abschlag.PDF"_s, werke);
        neu("nummeriert", ueblich, u"2024-01-31 Stadtwerke Meißen - Abschlag (12).pdf"_s, werke);
        neu("ohne Datum", ueblich, u"Stadtwerke Meißen - Abschlag.pdf"_s, werke);
        neu("zerlegt", ueblich, u"2024-01-31 Mu\u0308ller - Abschlag.pdf"_s, u"Müller"_s);
        neu("Zeilenumbruch", ueblich, u"2024-01-31 Stadtwerke\n Meißen - Abschlag\n.pdf"_s, werke);
        neu("Zeichen, die niemand sieht", ueblich, u"2024-01-31 Stadt\u200Bwerke Meißen - x.pdf"_s, werke);
        neu("überall Leerzeichen", ueblich, u"2024-01-31  Stadtwerke Meißen  - Abschlag.pdf"_s, werke);
        neu("ohne Endung", ueblich, u"2024-01-31 Stadtwerke Meißen - Abschlag"_s, werke);

        neu("Titel oder Gegenüber", ueblich, u"2024-01-31 Abschlag.pdf"_s, u""_s);
        neu("irgendein Name", ueblich, u"Scan 0017.pdf"_s, u""_s);
        neu("nur Datum", ueblich, u"2024-01-31.pdf"_s, u""_s);
        neu("halbes Datum", ueblich, u"2024-01 Stadtwerke - Abschlag.pdf"_s, u""_s);
        neu("anderes Datum", ueblich, u"31.01.2024 Stadtwerke - Abschlag.pdf"_s, u""_s);
        neu("Datum statt Gegenüber", ueblich, u"2024-01-31 - Abschlag.pdf"_s, u""_s);
        neu("Monat statt Gegenüber", ueblich, u"2024-01 - Abschlag.pdf"_s, u""_s);
        neu("Ziffern anderer Schrift", ueblich, u"٢٠٢٤-٠١-٣١ Stadtwerke.pdf"_s, u""_s);
        neu("Ziffern im Namen", ueblich, u"2024-01-31 1822direkt Bank - Auszug.pdf"_s, u"1822direkt Bank"_s);
        neu("nur Ziffern", ueblich, u"2024-01-31 4711 - Auszug.pdf"_s, u"4711"_s);
        neu("leer", ueblich, u".pdf"_s, u""_s);

        neu("Gegenüber am Ende", u"{datum}_{gegenueber}"_s, u"2024-01-31_Stadtwerke Meißen (2).pdf"_s, werke);
        neu("Titel zuerst", u"{titel} - {gegenueber}"_s, u"Abschlag - Januar - Stadtwerke Meißen.pdf"_s, werke);
        neu("Klammern der Vorlage", u"{gegenueber} ({altname})"_s, u"Stadtwerke Meißen (2034).pdf"_s, werke);
        neu("und der Nummer", u"{gegenueber} ({altname})"_s, u"Stadtwerke Meißen (Scan (1)) (2).pdf"_s, werke);
        neu("Jahr und Monat", u"{jahr}{monat} {gegenueber}, {titel}"_s, u"202401 Stadtwerke Meißen, x.pdf"_s, werke);
        neu("Monat fehlt", u"{jahr}_{monat}_{gegenueber}"_s, u"2024_Jan_Stadtwerke.pdf"_s, u"Jan_Stadtwerke"_s);
        neu("Wort der Vorlage", u"Post von {gegenueber}"_s, u"Post von Stadtwerke Meißen.pdf"_s, werke);
        neu("Wort fehlt", u"Post von {gegenueber}"_s, u"Brief von Stadtwerke Meißen.pdf"_s, u""_s);
        neu("Schrägstrich der Vorlage", u"{rubrik}/{gegenueber}"_s, u"Strom-Stadtwerke Meißen.pdf"_s, werke);
        neu("unbekannter Baustein", u"{nummer} - {gegenueber}_{titel}"_s, u"Stadtwerke Meißen_x.pdf"_s, werke);
        neu("nur Gegenüber", u"{gegenueber}"_s, u"Stadtwerke Meißen.pdf"_s, werke);
        neu("kein Gegenüber", u"{datum} {titel}"_s, u"2024-01-31 Stadtwerke.pdf"_s, u""_s);
        neu("ohne Grenze", u"{gegenueber} {titel}"_s, u"Stadtwerke Meißen Abschlag.pdf"_s, u""_s);
    }
    void gegenueber()
    {
        QFETCH(QString, vorlage);
        QFETCH(QString, name);
        QTEST(Namenslesung(vorlage).gegenueber(name), "erwartet");
    }

    void dieAnderenBausteine()
    {
        const QString name = u"2024-01-31 Stadtwerke - Abschlag - Januar (2).pdf"_s;
        QCOMPARE(stueck(ueblich, name, Baustein::Datum), u"2024-01-31"_s);
        QCOMPARE(stueck(ueblich, name, Baustein::Titel), u"Abschlag - Januar"_s);
        QCOMPARE(stueck(ueblich, name, Baustein::Rubrik), u""_s);
        QCOMPARE(stueck(u"{gegenueber} ({altname})"_s, u"Werke (Scan (1))"_s, Baustein::Altname), u"Scan (1)"_s);
        QCOMPARE(stueck(u"{jahr}-{monat} {titel}"_s, u"2024-02 x"_s, Baustein::Monat), u"02"_s);
        QCOMPARE(stueck(u"{jahr}-{monat} {titel}"_s, u"2024-02 x"_s, Baustein::Titel), u"x"_s);
    }

    /** What the program writes it reads again, whichever blocks are empty. */
    void dieEigenenNamen()
    {
        for (const QString &vorlage : {ueblich, u"{jahr}_{monat}_{gegenueber}_{titel}"_s, u"{titel} – {gegenueber}"_s,
                                       u"{zweig}/{rubrik} {datum}: {gegenueber}; {altname}"_s}) {
            Profil p;
            p.namensVorlage = vorlage;
            for (const QString &titel : {u"Rechnung"_s, u"a - b _ c"_s}) {
                const Angaben a{.datum = u"2024-03-05"_s,
                                .gegenueber = u"E.ON Energie & Söhne"_s,
                                .titel = titel,
                                .ort = {.zweig = u"Privat"_s, .ablage = u"Stammdaten"_s, .rubrik = u"Auto/Kfz"_s},
                                .jahr = u"2024"_s};
                const QString name = Ziel::dateiname(a, u"Scan 0017.pdf"_s, p);
                QVERIFY2(Namenslesung(vorlage).gegenueber(name) == a.gegenueber, qPrintable(name));
            }
        }
    }

    void vorlagenDieNichtsSagen_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<bool>("kennt");
        QTest::newRow("üblich") << ueblich << true;
        QTest::newRow("ohne Gegenüber") << u"{datum} {titel}"_s << false;
        QTest::newRow("ohne Baustein") << u"Scan"_s << false;
        QTest::newRow("leer") << u""_s << false;
        QTest::newRow("falsches Wort") << u"{Gegenueber}"_s << false;
        QTest::newRow("ohne Grenze") << u"{gegenueber} {titel}"_s << false;
        QTest::newRow("alle") << u"{datum}{jahr}{monat}{zweig}{ablage}{rubrik}{altname}{titel}_{gegenueber}"_s << true;
    }
    void vorlagenDieNichtsSagen()
    {
        QFETCH(QString, vorlage);
        QTEST(Namenslesung(vorlage).kenntGegenueber(), "kennt");
    }

    /** Every way to share the blanks among the blocks would take for ever. */
    void vieleMoeglichkeiten()
    {
        const Namenslesung lesung(u"{zweig} {ablage} {rubrik} {altname} {titel} {datum} - {gegenueber}"_s);
        QCOMPARE(lesung.gegenueber(u"x "_s.repeated(120) + u"x.pdf"_s), u""_s);
        QCOMPARE(lesung.gegenueber(u"x "_s.repeated(100) + u"2024-01-31 - Werke.pdf"_s), u"Werke"_s);
    }
};

QTEST_GUILESS_MAIN(TestNamenslesung)
#include "test_namenslesung.moc"
