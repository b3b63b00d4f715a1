#include "lernregeln.h"
#include "namenskette.h"
#include "ortswahl.h"

#include <QMap>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::lernen;

namespace
{
const Ort firma = {u"Firma"_s, u"Bank"_s, u"Auszüge"_s};
const Ort privat = {u"Privat"_s, u"Bank"_s, u"Auszüge"_s};
const Ort verein = {u"Verein"_s, u"Bank"_s, u"Auszüge"_s};

QStringList sortiert(QStringList worte)
{
    worte.sort();
    return worte;
}
} // namespace

/** The pure rules of the memory: which place, by which words, and where names lead. */
class TestOrtswahl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ort_data()
    {
        QTest::addColumn<Ort>("modell");
        QTest::addColumn<int>("stimme");
        QTest::addColumn<bool>("nurKorrigierte");
        QTest::addColumn<int>("erwartet");
        QTest::newRow("the model names one") << privat << -1 << false << 1;
        QTest::newRow("the texts go before it") << privat << 2 << false << 2;
        QTest::newRow("it names none: the most confirmed")
            << Ort{u"Privat"_s, u"Wohnung"_s, u"Strom"_s} << -1 << false << 0;
        QTest::newRow("only by its first levels") << Ort{u"Privat"_s, u"Bank"_s, {}} << -1 << false << 1;
        QTest::newRow("nothing at all") << Ort{} << -1 << false << 0;
        QTest::newRow("certain: only what was corrected")
            << Ort{u"Privat"_s, u"Wohnung"_s, u"Strom"_s} << -1 << true << 2;
        QTest::newRow("certain, and names one") << firma << -1 << true << 0;
    }
    void ort()
    {
        QFETCH(Ort, modell);
        QFETCH(int, stimme);
        QFETCH(bool, nurKorrigierte);
        const QList<Ortszahl> orte = {
            {.ort = firma, .anzahl = 5}, {.ort = privat, .anzahl = 2}, {.ort = verein, .anzahl = 1, .korrekturen = 1}};
        QTEST(int(Ortswahl::waehlen(orte, {.platz = stimme, .wort = {}, .dokumente = 0}, modell, nurKorrigierte)),
              "erwartet");
    }

    // What the reviewer has confirmed once goes before a whole tree.
    void eigenesGehtVorBaum()
    {
        const QList<Ortszahl> orte = {{.ort = firma, .baum = 48}, {.ort = privat, .anzahl = 1, .baum = 2}};
        QCOMPARE(Ortswahl::waehlen(orte, {}, {}, false), 1);
        QCOMPARE(Ortswahl::waehlen({orte.first(), {.ort = verein, .baum = 49}}, {}, {}, false), 1);
        QCOMPARE(Ortswahl::waehlen(orte, {}, {}, true), -1);
    }

    void worte_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("worte");
        QTest::newRow("numbers") << u"Kundennr. 4711-02, Vertrag: 12/34567."_s
                                 << QStringList{u"4711-02"_s, u"12/34567"_s, u"Kundennr"_s, u"Vertrag"_s};
        QTest::newRow("in groups") << u"IBAN DE02 1203 0000 0000 2020 51 BIC"_s
                                   << QStringList{u"1203"_s, u"0000"_s, u"1203 0000 0000 2020 51"_s};
        QTest::newRow("what changes from letter to letter")
            << u"03.02.2024 2024-02-03 1.234,56 12,50 2023 14:05 3/2024 Seite 1"_s << QStringList{u"Seite"_s};
        QTest::newRow("each once, in the first spelling")
            << u"Geschäftskonto GESCHÄFTSKONTO und"_s << QStringList{u"Geschäftskonto"_s};
        QTest::newRow("nothing") << u" \n - . "_s << QStringList();
    }
    void worte()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, worte);
        QCOMPARE(sortiert(Wortstimmen::worte(text)), sortiert(worte));
    }

    void abstimmung_data()
    {
        using Worte = QHash<QString, qint64>;
        QTest::addColumn<QStringList>("worte");
        QTest::addColumn<Worte>("hier");
        QTest::addColumn<Worte>("dort");
        QTest::addColumn<int>("dokumente");
        QTest::addColumn<int>("platz");
        const QStringList konto = {u"4711-02"_s};
        QTest::newRow("one document is enough for a number") << konto << Worte{{u"4711-02"_s, 1}} << Worte{} << 1 << 0;
        QTest::newRow("on both sides") << konto << Worte{{u"4711-02"_s, 9}} << Worte{{u"4711-02"_s, 8}} << 10 << -1;
        QTest::newRow("more often there") << konto << Worte{{u"4711-02"_s, 1}} << Worte{{u"4711-02"_s, 10}} << 10 << 1;
        QTest::newRow("unknown") << konto << Worte{{u"0815-99"_s, 5}} << Worte{} << 5 << -1;
        const QStringList wort = {u"Geschäftskonto"_s};
        QTest::newRow("a word in few") << wort << Worte{{u"geschäftskonto"_s, 2}} << Worte{} << 2 << -1;
        QTest::newRow("a word in many") << wort << Worte{{u"geschäftskonto"_s, 9}} << Worte{} << 10 << 0;
        QTest::newRow("of two numbers one speaks for each")
            << QStringList{u"4711-02"_s, u"0815-99"_s} << Worte{{u"4711-02"_s, 4}} << Worte{{u"0815-99"_s, 4}} << 4
            << -1;
        QTest::newRow("one by chance does not outvote the account")
            << QStringList{u"4711-02"_s, u"77777"_s} << Worte{{u"4711-02"_s, 40}} << Worte{{u"77777"_s, 1}} << 40 << 0;
    }
    void abstimmung()
    {
        using Worte = QHash<QString, qint64>;
        QFETCH(QStringList, worte);
        QFETCH(Worte, hier);
        QFETCH(Worte, dort);
        QFETCH(int, dokumente);
        const auto ergebnis = Wortstimmen::abstimmen(
            worte, {{.dokumente = dokumente, .worte = hier}, {.dokumente = dokumente, .worte = dort}});
        QTEST(int(ergebnis.platz), "platz");
        QCOMPARE(ergebnis.wort.isEmpty(), ergebnis.platz < 0);
    }

    void namenskette()
    {
        const QMap<QString, QString> gleichungen = {{u"alpha"_s, u"Beta"_s},
                                                    {u"beta"_s, u"Gamma GmbH"_s},
                                                    {u"nord"_s, u"Sued Werk"_s},
                                                    {u"sud werk"_s, u"Nord"_s},
                                                    {u"gleich"_s, u"Gleich AG"_s}};
        const auto gleichung = [&](const QString &s) {
            return gleichungen.contains(s) ? std::optional(gleichungen.value(s)) : std::nullopt;
        };
        QCOMPARE(Namenskette::ende(u"Alpha AG"_s, gleichung), u"Gamma GmbH"_s);
        QCOMPARE(Namenskette::ende(u"Gleich"_s, gleichung), u"Gleich AG"_s); // only another spelling
        for (const QString &name : {u"Gleich AG"_s, u"Nord"_s, u"Süd Werk"_s, u"Delta"_s, u"abc"_s, u""_s})
            QVERIFY2(!Namenskette::ende(name, gleichung), qPrintable(name));
        QVERIFY(Namenskette::fuehrtZu(u"Alpha"_s, u"gamma"_s, gleichung));
        QVERIFY(!Namenskette::fuehrtZu(u"Gamma"_s, u"alpha"_s, gleichung));
        QVERIFY(!Namenskette::fuehrtZu(u"Nord"_s, u"alpha"_s, gleichung));
    }

    void wasGanzeWoerterSind()
    {
        QVERIFY(Lernregeln::istGanzesWort(u"stadtwerke"_s, u"stadtwerke koln"_s));
        QVERIFY(Lernregeln::istGanzesWort(u"stadtwerke koln"_s, u"koln"_s));
        QVERIFY(!Lernregeln::istGanzesWort(u"post"_s, u"postbank"_s));
        QVERIFY(!Lernregeln::istGanzesWort(u"drewes"_s, u"rewe"_s));
        QVERIFY(!Lernregeln::istGanzesWort(u""_s, u"rewe"_s));
    }
};

QTEST_GUILESS_MAIN(TestOrtswahl)
#include "test_ortswahl.moc"
