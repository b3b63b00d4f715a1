#include "angebote.h"
#include "brief.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::fundstellen;

namespace
{
/** What a letter with a window looks like. */
QStringList einBrief()
{
    return {u"Stadtwerke Meißen GmbH                              Kundennummer: 4711-02"_s,
            u"Karl-Niesner-Str. 1, 01662 Meißen"_s,
            u""_s,
            u"Stadtwerke Meißen GmbH · Karl-Niesner-Str. 1 · 01662 Meißen"_s,
            u"Frau Anna Müller"_s,
            u"Herrn Peter Lenz"_s,
            u"Hauptstraße 12"_s,
            u"01662 Meißen"_s,
            u""_s,
            u"                                                    Meißen, 31.01.2024"_s,
            u"Rechnungsnummer     Az."_s,
            u"RE 2024 0815        12 C 34/24"_s,
            u"Jahresabrechnung Strom 2023"_s,
            u"Sehr geehrte Frau Müller,"_s,
            u"zahlbar bis 14.02.2024, Auftrag vom 31.01.2024, im Dezember 2023"_s,
            u"Elbtal Bank eG"_s,
            u"Gesellschafter: Meier Bau GmbH & Co. KG, Funkhaus Mobil GmbH"_s};
}
} // namespace

class TestAngebote : public QObject
{
    Q_OBJECT

    static QStringList werte(const QList<Angebot> &angebote)
    {
        QStringList alle;
        for (const Angebot &a : angebote)
            alle << a.wert;
        return alle;
    }

private Q_SLOTS:
    void daten()
    {
        const auto angebote = Angebote::daten(brief(einBrief()));
        QCOMPARE(werte(angebote), QStringList({u"2024-01-31"_s, u"2024-02-14"_s, u"2023-12-01"_s}));
        QCOMPARE(angebote.first().umfeld, u"Meißen, 31.01.2024"_s);
        QCOMPARE(angebote.at(1).umfeld, u"zahlbar bis 14.02.2024, Auftrag vom 31.01.2024, im"_s);
    }

    void namen()
    {
        const auto namen =
            werte(Angebote::namen(brief(einBrief()), {u"Anna Müller GmbH"_s, u"Hauptstraße und Partner GmbH"_s}));
        QCOMPARE(namen.first(), u"Stadtwerke Meißen"_s);
        for (const QString &einer : {u"Meier Bau"_s, u"Funkhaus Mobil"_s, u"Peter Lenz"_s})
            QVERIFY2(namen.contains(einer), qPrintable(einer));
        for (const QString &keiner :
             {u"Anna Müller"_s, u"01662 Meißen"_s, u"Hauptstraße 12"_s, u"Karl-Niesner-Str. 1"_s})
            QVERIFY2(!namen.contains(keiner), qPrintable(keiner));
    }

    void titel()
    {
        const auto angebote = Angebote::titel(brief(einBrief()));
        QCOMPARE(werte(angebote),
                 QStringList({u"Jahresabrechnung Strom 2023"_s, u"RE 2024 0815"_s, u"12 C 34/24"_s, u"4711-02"_s}));
        QCOMPARE(angebote.last().umfeld, u"Kundennummer: 4711-02"_s);
    }

    void nummern_data()
    {
        QTest::addColumn<QString>("zeile");
        QTest::addColumn<QStringList>("erwartet");
        const auto zeile = [](const QString &text, const QStringList &erwartet) {
            QTest::addRow("%s", qPrintable(text)) << text << erwartet;
        };
        zeile(u"Rechnung Nr.4712"_s, {u"4712"_s});
        zeile(u"Rechnungsnr.:RE-4715"_s, {u"RE-4715"_s});
        zeile(u"Az.:4 O 7/24"_s, {u"4 O 7/24"_s});
        zeile(u"Facture n°89"_s, {u"89"_s});
        zeile(u"Geschäftszeichen: VI B 3"_s, {u"VI B 3"_s});
        zeile(u"Nr. 4717 31.01.2024"_s, {u"4717"_s});
        zeile(u"Rechnungsnummer 31.01.2024"_s, {});
        for (const QString &keine : {u"Graz 8010"_s, u"Casino 5"_s, u"Livorno 57100"_s, u"Piano 3"_s})
            zeile(keine, {});
    }
    void nummern()
    {
        QFETCH(QString, zeile);
        QTEST(werte(Angebote::titel(brief({zeile}))), "erwartet");
    }

    // Own names hide themselves, not whatever shares a word with them.
    void eigeneNamen()
    {
        const QStringList eigene{u"Fotostudio Müller GmbH"_s, u"Anna und Peter Müller"_s, u"Dr. Anna von Müller"_s};
        const auto namen = werte(Angebote::namen(
            brief({u"Stadtwerke Meißen GmbH"_s, u"Sparkasse Ost und West"_s, u"Anna Müller"_s, u"Dr. Karl Arzt"_s}),
            eigene));
        QCOMPARE(namen, QStringList({u"Stadtwerke Meißen"_s, u"Sparkasse Ost und West"_s, u"Dr. Karl Arzt"_s}));
    }

    // A receipt is long and narrow: what makes a line does not depend on the shape of the page.
    void aufEinemKassenbon()
    {
        Seitenworte worte = getippt({u"Meier Bau GmbH     Beleg-Nr. 17 4"_s, u"Datum: 29.02.2024"_s});
        for (Seitenwort &wort : worte)
            wort.ort = {wort.ort.x(), wort.ort.y() / 5, wort.ort.width(), wort.ort.height() / 5};
        const auto seiten = wortfolgen({worte});
        QCOMPARE(werte(Angebote::namen(seiten, {})).first(), u"Meier Bau"_s);
        QCOMPARE(werte(Angebote::titel(seiten)), QStringList{u"17 4"_s});
    }

    void betreff_data()
    {
        QTest::addColumn<QString>("zeile");
        QTest::addColumn<QString>("betreff");
        QTest::newRow("schlicht") << u"Rechnung Nr. 4711"_s << u"Rechnung Nr. 4711"_s;
        QTest::newRow("Betreff:") << u"Betreff: Kündigung"_s << u"Kündigung"_s;
        QTest::newRow("Betr.") << u"Betr. Kündigung"_s << u"Kündigung"_s;
        QTest::newRow("Re:") << u"Re: Notice"_s << u"Notice"_s;
    }
    void betreff()
    {
        QFETCH(QString, zeile);
        QTEST(Angebote::titel(brief({u"Bank"_s, zeile, u"Sehr geehrte Frau Muster,"_s})).first().wert, "betreff");
    }

    void ohneAnrede()
    {
        const QStringList zeilen = {u"Sparbank"_s, u"Datum: 29.02.2024"_s, u"Kontonummer: 17 4"_s,
                                    u"Kontoauszug 2/2024"_s, u"Miete 100 EUR"_s};
        QCOMPARE(werte(Angebote::titel(brief(zeilen))), QStringList({u"Kontoauszug 2/2024"_s, u"17 4"_s}));
    }

    void insFeld_data()
    {
        QTest::addColumn<QString>("ist");
        QTest::addColumn<QString>("soll");
        const auto zeile = [](const char *was, const QString &ist, const QString &soll) {
            QTest::newRow(was) << ist << soll;
        };
        zeile("Datum", Uebernahme::alsDatum(u"Meißen, 31.1.24"_s), u"2024-01-31"_s);
        zeile("Monat", Uebernahme::alsDatum(u"Januar 2024"_s), u"2024-01-01"_s);
        const Wortfolge seite(0, getippt({u"Meißen, 31. Januar 2024 und 2023"_s}));
        zeile("Tag und Jahr um ein Wort", Uebernahme::alsDatum(seite, 2, 1), u"2024-01-31"_s);
        zeile("auch um zwei", Uebernahme::alsDatum(seite, 1, 2), u"2024-01-31"_s);
        zeile("ein Teil und mehr", Uebernahme::alsDatum(seite, 2, 3), u"2024-01-31"_s);
        zeile("mehr als das Datum", Uebernahme::alsDatum(seite, 0, 4), u"2024-01-31"_s);
        zeile("keines um das Wort", Uebernahme::alsDatum(seite, 5, 1), u"2023"_s);
        zeile("kein Datum", Uebernahme::alsDatum(u" demnächst "_s), u"demnächst"_s);
        zeile("Name", Uebernahme::alsGegenueber(u"– Meier Bau GmbH & Co. KG,"_s), u"Meier Bau"_s);
        zeile("Klammer", Uebernahme::alsGegenueber(u"(Foo UG (haftungsbeschränkt))"_s), u"Foo"_s);
        zeile("mbH & Co.", Uebernahme::alsGegenueber(u"Müller mbH & Co. KG"_s), u"Müller"_s);
        zeile("Genossenschaft", Uebernahme::alsGegenueber(u"Sparbank Elbtal e.G."_s), u"Sparbank Elbtal"_s);
        zeile("Paar bleibt", Uebernahme::alsGegenueber(u"Verein (Ortsgruppe Nord):"_s), u"Verein (Ortsgruppe Nord)"_s);
        zeile("Zahl dahinter", Uebernahme::zahlImTitel(u"Rechnung"_s, u"17"_s, {}), u"Rechnung 17"_s);
        zeile("statt der falschen", Uebernahme::zahlImTitel(u"Rechnung 18 für 2023"_s, u"17"_s, {u"18"_s}),
              u"Rechnung 17 für 2023"_s);
        zeile("statt der letzten", Uebernahme::zahlImTitel(u"Rechnung 18 Strom"_s, u"17"_s, {}),
              u"Rechnung 17 Strom"_s);
        zeile("in Gruppen", Uebernahme::zahlImTitel(u"Rechnung RE 2024 0816 Strom"_s, u"RE 2024 0815"_s, {u"0816"_s}),
              u"Rechnung RE 2024 0815 Strom"_s);
        zeile("für Gruppen", Uebernahme::zahlImTitel(u"Rechnung 2024 0816"_s, u"20240815"_s, {u"0816"_s}),
              u"Rechnung 20240815"_s);
        zeile("das Jahr bleibt", Uebernahme::zahlImTitel(u"Stromabrechnung 2023"_s, u"4711"_s, {}),
              u"Stromabrechnung 2023 4711"_s);
        zeile("leer", Uebernahme::zahlImTitel({}, u"17"_s, {}), u"17"_s);
    }
    void insFeld()
    {
        QFETCH(QString, ist);
        QTEST(ist, "soll");
    }
};

QTEST_GUILESS_MAIN(TestAngebote)
#include "test_angebote.moc"
