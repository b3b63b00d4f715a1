#include "belege.h"
#include "brief.h"
#include "titelfunde.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::fundstellen;

class TestTitelfunde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stellen_data()
    {
        QTest::addColumn<QStringList>("zeilen");
        QTest::addColumn<QString>("titel");
        QTest::addColumn<QStringList>("erwartet"); // the word and where it stands
        const auto zeile = [](const char *was, const QStringList &zeilen, const QString &titel, const QStringList &wo) {
            QTest::newRow(was) << zeilen << titel << wo;
        };
        zeile("Zahlen zuerst", {u"Rechnung Nr. 4711-02"_s}, u"Rechnung 4711-02"_s,
              {u"4711-02=4711-02"_s, u"Rechnung=Rechnung"_s});
        zeile("anders getrennt", {u"Konto 4711/02 und"_s}, u"4711-02"_s, {u"4711-02=4711/02"_s});
        zeile("unvollständig", {u"IBAN DE12 3456 78 und"_s}, u"DE1234567890"_s, {u"DE1234567890="_s});
        zeile("in Gruppen", {u"IBAN DE12 3456 7890"_s}, u"DE1234567890"_s, {u"DE1234567890=DE12 3456 7890"_s});
        zeile("Teil einer Zahl ist keine", {u"Nr. 14711"_s}, u"Beleg 4711"_s, {u"4711="_s, u"Beleg="_s});
        zeile("Jahr in einem Tag", {u"bis 31.12.2023"_s}, u"2023"_s, {u"2023=31.12.2023"_s});
        zeile("Beträge", {u"Summe 1.234,50 EUR"_s}, u"1234,50"_s, {u"1234,50=1.234,50"_s});
        zeile("Füllwörter nicht", {u"Abschlag für Strom"_s}, u"Abschlag für Strom"_s,
              {u"Abschlag=Abschlag"_s, u"Strom=Strom"_s});
        zeile("mit Bindestrich", {u"Ihre Strom-Abrechnung"_s}, u"Stromabrechnung"_s,
              {u"Stromabrechnung=Strom-Abrechnung"_s});
        zeile("falsch erkannt", {u"Jahresabrechnunq"_s}, u"Jahresabrechnung"_s,
              {u"Jahresabrechnung=Jahresabrechnunq"_s});
        zeile("Anfang eines Wortes bei der Zahl", {u"die Rechnung"_s, u"Rechnungsnummer: 17-4"_s}, u"Rechnung 17-4"_s,
              {u"17-4=17-4"_s, u"Rechnung=Rechnungsnummer:"_s});
        zeile("auseinandergeschrieben", {u"Nr. 20240815"_s}, u"Rechnung 2024 0815"_s,
              {u"2024=20240815"_s, u"0815=20240815"_s, u"Rechnung="_s});
        zeile("kein Betrag", {u"10,00 EUR und 20,24 EUR, 1.234,17"_s}, u"1000 2024 17"_s,
              {u"1000="_s, u"2024="_s, u"17="_s});
        zeile("kein Tag", {u"am 12.02.2024 und 5.3.2024"_s}, u"Kontoauszug 12 532024"_s,
              {u"12="_s, u"532024="_s, u"Kontoauszug="_s});
        zeile("keine Stücke", {u"Seite 20 23 vom 20.23.1999"_s}, u"2023"_s, {u"2023="_s});
        zeile("hinter Buchstaben", {u"Rechnungsnr.:RE-4715"_s}, u"RE-4715"_s, {u"RE-4715=Rechnungsnr.:RE-4715"_s});
        zeile("nur eine davon", {u"Nr. 20240815"_s}, u"2024 0816"_s, {u"2024="_s, u"0816="_s});
        zeile("Zahlen nie ungefähr", {u"Nr. 12345678"_s}, u"12345679"_s, {u"12345679="_s});
    }
    void stellen()
    {
        QFETCH(QStringList, zeilen);
        QFETCH(QString, titel);
        const auto seiten = brief(zeilen);
        QStringList gefunden;
        for (const Titelwort &wort : Titelfunde::zu(seiten, titel))
            gefunden << wort.text + u'=' + wortlaut(seiten, wort.stelle);
        QTEST(gefunden, "erwartet");
    }

    // The subject has more of the title than the lines that repeat a word of it.
    void dieZeileMitDemMeisten()
    {
        const auto seiten = brief({u"Rechnung"_s, u"Betreff Rechnung Strom 2024"_s, u"die Rechnung ist"_s});
        QCOMPARE(Titelfunde::zu(seiten, u"Rechnung Strom 2024"_s).at(1).stelle->wort, 2);
    }

    void alleWerte()
    {
        const auto seiten =
            brief({u"Stadtwerke Meißen GmbH"_s, u"Meißen, 31.01.2024"_s, u"Rechnung für Strom Nr. 4711"_s});
        const Belege b = belege(seiten, u"2024-01-31"_s, u"Stadtwerke Meißen"_s, u"Rechnung für Strom 4711 A12"_s);
        QStringList stellen;
        for (const Beleg &beleg : b.stellen)
            stellen << QString::number(int(beleg.wert)) + wortlaut(seiten, beleg.stelle);
        QCOMPARE(stellen, QStringList({u"031.01.2024"_s, u"1Stadtwerke Meißen"_s, u"2Rechnung für Strom Nr. 4711"_s}));
        QVERIFY(!b.datumFehlt && !b.gegenueberFehlt);
        QCOMPARE(b.fehlendeZahlen, QStringList{u"A12"_s});
        const Belege falsche = belege(seiten, u"2024-02-01"_s, u"Telekom"_s, {});
        QVERIFY(falsche.datumFehlt && falsche.gegenueberFehlt && falsche.stellen.isEmpty());
        QVERIFY(!belege(seiten, {}, {}, {}).datumFehlt);
        QCOMPARE(belege(brief({}), u"2024-02-01"_s, u"Telekom"_s, u"Nr. 1"_s), Belege());
    }
};

QTEST_GUILESS_MAIN(TestTitelfunde)
#include "test_titelfunde.moc"
