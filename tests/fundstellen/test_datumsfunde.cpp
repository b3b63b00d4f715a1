#include "brief.h"
#include "datumsfunde.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::fundstellen;

class TestDatumsfunde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("wert");
        QTest::addColumn<QString>("wortlaut");
        const auto zeile = [](const QString &text, const QString &wert, const QString &wortlaut) {
            QTest::addRow("%s", qPrintable(text)) << text << wert << wortlaut;
        };
        zeile(u"vom 31.01.2024 an"_s, u"2024-01-31"_s, u"31.01.2024"_s);
        zeile(u"am 31.1.24, Meißen"_s, u"2024-01-31"_s, u"31.1.24,"_s);
        zeile(u"31. 01. 2024"_s, u"2024-01-31"_s, u"31. 01. 2024"_s);
        zeile(u"Datum:31.01.2024"_s, u"2024-01-31"_s, u"Datum:31.01.2024"_s);
        zeile(u"(2024-01-31)"_s, u"2024-01-31"_s, u"(2024-01-31)"_s);
        zeile(u"2024/01/31"_s, u"2024-01-31"_s, u"2024/01/31"_s);
        zeile(u"den 31. Januar 2024"_s, u"2024-01-31"_s, u"31. Januar 2024"_s);
        zeile(u"3. März 2024 und"_s, u"2024-03-03"_s, u"3. März 2024"_s);
        zeile(u"3.Maerz 24"_s, u"2024-03-03"_s, u"3.Maerz 24"_s);
        zeile(u"12 Dez. 1998"_s, u"1998-12-12"_s, u"12 Dez. 1998"_s);
        zeile(u"January 31st, 2024"_s, u"2024-01-31"_s, u"January 31st, 2024"_s);
        zeile(u"31 January 2024"_s, u"2024-01-31"_s, u"31 January 2024"_s);
        zeile(u"the 3rd of May 2024"_s, u"2024-05-03"_s, u"3rd of May 2024"_s);
        zeile(u"le 1er février 2024"_s, u"2024-02-01"_s, u"1er février 2024"_s);
        zeile(u"14 AOÛT 2023"_s, u"2023-08-14"_s, u"14 AOÛT 2023"_s);
        zeile(u"Abrechnung Januar 2024"_s, u"2024-01"_s, u"Januar 2024"_s);
        zeile(u"für 01/2024."_s, u"2024-01"_s, u"01/2024."_s);
        zeile(u"31/01/2024"_s, u"2024-01-31"_s, u"31/01/2024"_s);
        zeile(u"01/31/2024"_s, u"2024-01-31"_s, u"01/31/2024"_s);
        zeile(u"7.7.77"_s, u"1977-07-07"_s, u"7.7.77"_s);
        zeile(u"31-Jan-2024"_s, u"2024-01-31"_s, u"31-Jan-2024"_s);
        zeile(u"31. Januar ’24"_s, u"2024-01-31"_s, u"31. Januar ’24"_s);
        zeile(u"15 . Dezember 2023"_s, u"2023-12-15"_s, u"15 . Dezember 2023"_s);
        zeile(u"31,01.2024"_s, u"2024-01-31"_s, u"31,01.2024"_s);
        for (const QString &keines : {u"02.02. 50,00 Miete"_s, u"05.02. 05.02. 12,50"_s, u"15.02. 19 Stück"_s,
                                      u"Termin 3. Mai 10 Uhr"_s, u"5. Juni 14:30"_s, u"Stück 12\nMai 24"_s})
            zeile(keines, {}, {});
        zeile(u"Rechnung Nr. 14               März 2024"_s, u"2024-03"_s, u"März 2024"_s);
        zeile(u"Stück 12\nMai 2024"_s, u"2024-05"_s, u"Mai 2024"_s);
        zeile(u"31.02.2024"_s, {}, {});
        zeile(u"IP 10.1.24.31"_s, {}, {});
        zeile(u"Konto 4711.01.2024"_s, {}, {});
        zeile(u"Paragraph 12.3.4 und 1.234,56"_s, {}, {});
        zeile(u"Maier 2024 12 Mai"_s, {}, {});
    }
    void formen()
    {
        QFETCH(QString, text);
        const auto seiten = brief(text.split(u'\n'));
        const auto alle = Datumsfunde::alle(seiten);
        QTEST(alle.isEmpty() ? QString() : alle.first().wert, "wert");
        QTEST(wortlaut(seiten, alle.isEmpty() ? std::nullopt : std::optional(alle.first().stelle)), "wortlaut");
        QVERIFY(alle.size() <= 1);
    }

    void dasWahrscheinlichste_data()
    {
        QTest::addColumn<QStringList>("zeilen");
        QTest::addColumn<QString>("umfeld"); // the word in front of the one that is taken
        QTest::newRow("hinter Datum") << QStringList{u"Auftrag vom 02.01.2024"_s, u"Rechnungsdatum: 02.01.2024"_s}
                                      << u"Rechnungsdatum:"_s;
        QTest::newRow("hinter dem Ort") << QStringList{u"Bestellt 02.01.2024"_s, u"Meißen, 02.01.2024"_s}
                                        << u"Meißen,"_s;
        QTest::newRow("Ort, den") << QStringList{u"Bestellt 02.01.2024"_s, u"Meißen, den 2. Januar 2024"_s} << u"den"_s;
        QTest::newRow("nicht die Frist") << QStringList{u"zahlbar bis 02.01.2024"_s, u"wie am 02.01.2024 besprochen"_s}
                                         << u"am"_s;
        QTest::newRow("nicht das Lieferdatum")
            << QStringList{u"Lieferdatum: 02.01.2024"_s, u"Ihr Schreiben 02.01.2024"_s} << u"Schreiben"_s;
        QTest::newRow("keine Geburt") << QStringList{u"zahlbar bis 02.01.2024"_s, u"meine letzte Rechnung 02.01.2024"_s}
                                      << u"Rechnung"_s;
        QTest::newRow("im Kopf der Tabelle")
            << QStringList{u"Menge 02.01.2024"_s, u"Nummer     Datum"_s, u"A-17       02.01.2024"_s} << u"A-17"_s;
        QStringList lang{u"Kopf 02.01.2024"_s};
        lang.resize(50);
        QTest::newRow("weiter oben") << (lang << u"Fuß 02.01.2024"_s) << u"Kopf"_s;
    }
    void dasWahrscheinlichste()
    {
        QFETCH(QStringList, zeilen);
        const auto seiten = brief(zeilen);
        const auto stelle = Datumsfunde::zu(Datumsfunde::alle(seiten), u"2024-01-02"_s);
        QVERIFY(stelle && stelle->wort > 0);
        QTEST(seiten.first().worte().at(stelle->wort - 1).text, "umfeld");
    }

    void zuEinemWert_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("datum");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("Monat am Ersten") << u"Abschlag Januar 2024"_s << u"2024-01-01"_s << u"Januar 2024"_s;
        QTest::newRow("Monat am Letzten") << u"Abschlag Februar 2024"_s << u"2024-02-29"_s << u"Februar 2024"_s;
        QTest::newRow("Monat mittendrin") << u"Abschlag Januar 2024"_s << u"2024-01-15"_s << u""_s;
        QTest::newRow("Tag und Monat getauscht") << u"on 03/04/2024"_s << u"2024-03-04"_s << u"03/04/2024"_s;
        QTest::newRow("anderes") << u"31.01.2024"_s << u"2024-01-30"_s << u""_s;
        QTest::newRow("kein Tag") << u"31.01.2024"_s << u"2024-13-45"_s << u""_s;
    }
    void zuEinemWert()
    {
        QFETCH(QString, text);
        QFETCH(QString, datum);
        const auto seiten = brief({text});
        QTEST(wortlaut(seiten, Datumsfunde::zu(Datumsfunde::alle(seiten), datum)), "erwartet");
    }
};

QTEST_GUILESS_MAIN(TestDatumsfunde)
#include "test_datumsfunde.moc"
