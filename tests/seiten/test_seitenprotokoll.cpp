#include "seitenprotokoll.h"

#include <QtTest>
#include <limits>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;
using namespace Seitenprotokoll;

namespace
{
const QSizeF a4(595, 842);

Geoeffnet offen(int seiten, const QList<QSizeF> &groessen, bool weitere = false)
{
    return {7, Ergebnis::Offen, seiten, weitere, groessen};
}
} // namespace

class SeitenprotokollTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void antworten_data()
    {
        QTest::addColumn<Antwort>("antwort");
        QTest::addColumn<bool>("gilt");
        const auto zeile = [](const char *name, const Antwort &antwort, bool gilt) {
            QTest::newRow(name) << antwort << gilt;
        };
        const double nichts = std::numeric_limits<double>::quiet_NaN();
        zeile("bereit", Bereit{}, true);
        zeile("eine Seite", offen(1, {a4}), true);
        zeile("nur die erste gemessen", offen(50, {a4}), true);
        zeile("so viele wie erlaubt", offen(meisteSeiten, QList<QSizeF>(meisteGemessene, a4), true), true);
        zeile("keine Seite", offen(0, {}), false);
        zeile("keine gemessen", offen(3, {}), false);
        zeile("mehr gemessen als da", offen(1, {a4, a4}), false);
        zeile("zu viele gemessen", offen(meisteSeiten, QList<QSizeF>(meisteGemessene + 1, a4)), false);
        zeile("zu viele", offen(meisteSeiten + 1, {a4}), false);
        zeile("weitere hinter wenigen", offen(3, {a4}, true), false);
        zeile("negativ viele", offen(-1, {a4}), false);
        zeile("winzig", offen(1, {{0.5, 842}}), false);
        zeile("riesig", offen(1, {{595, groessteSeite * 2}}), false);
        zeile("keine Zahl", offen(1, {{nichts, 842}}), false);
        zeile("unendlich", offen(1, {{595, std::numeric_limits<double>::infinity()}}), false);
        zeile("ohne Kennung", Geoeffnet{0, Ergebnis::Offen, 1, false, {a4}}, false);
        zeile("gesichert", Geoeffnet{7, Ergebnis::Gesichert, 0, false, {}}, true);
        zeile("gesichert mit Seiten", Geoeffnet{7, Ergebnis::Gesichert, 1, false, {a4}}, false);
        zeile("unbekanntes Ergebnis", Geoeffnet{7, Ergebnis(3), 0, false, {}}, false);
        zeile("gemalt", Gemalt{7, 3, true}, true);
        zeile("nicht gemalt", Gemalt{7, meisteSeiten - 1, false}, true);
        zeile("Seite zu hoch", Gemalt{7, meisteSeiten, true}, false);
        zeile("Seite zu klein", Gemalt{7, -1, true}, false);
    }

    void antworten()
    {
        QFETCH(const Antwort, antwort);
        QFETCH(const bool, gilt);
        const QByteArray bytes = verpackt(antwort);
        const auto gelesen = antwortAus(bytes);
        QCOMPARE(gelesen.has_value(), gilt);
        QVERIFY(!gilt || *gelesen == antwort);
        // Neither cut off nor longer is it a message.
        QVERIFY(!antwortAus(bytes.chopped(1)));
        QVERIFY(!antwortAus(bytes + '\0'));
        QVERIFY(bytes.size() <= laengsteNachricht);
    }

    void auftraege_data()
    {
        QTest::addColumn<Auftrag>("auftrag");
        QTest::addColumn<bool>("gilt");
        const auto zeile = [](const char *name, const Auftrag &auftrag, bool gilt) {
            QTest::newRow(name) << auftrag << gilt;
        };
        zeile("öffnen", Oeffnen{7}, true);
        zeile("öffnen ohne Kennung", Oeffnen{0}, false);
        zeile("schließen", Schliessen{7}, true);
        zeile("malen", Malen{7, 0, {600, 800}}, true);
        zeile("ein Strich", Malen{7, 0, {1, groessteKante}}, true);
        zeile("zu viele Pixel", Malen{7, 0, {8000, 8000}}, false);
        zeile("zu lang", Malen{7, 0, {1, groessteKante + 1}}, false);
        zeile("kein Pixel", Malen{7, 0, {0, 800}}, false);
        zeile("Seite zu hoch", Malen{7, meisteSeiten, {600, 800}}, false);
    }

    void auftraege()
    {
        QFETCH(const Auftrag, auftrag);
        QFETCH(const bool, gilt);
        const QByteArray bytes = verpackt(auftrag);
        const auto gelesen = auftragAus(bytes);
        QCOMPARE(gelesen.has_value(), gilt);
        QVERIFY(!gilt || *gelesen == auftrag);
        QVERIFY(!auftragAus(bytes.chopped(1)));
    }

    void keineNachricht_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("leer") << QByteArray();
        QTest::newRow("unbekannte Art") << QByteArray("\3");
        QTest::newRow("Text") << QByteArray("Bereit");
        QTest::newRow("weder ja noch nein") << verpackt(Antwort(Gemalt{7, 3, true})).chopped(1) + '\2';
        QTest::newRow("sehr lang") << QByteArray(10'000'000, '\0');
        QTest::newRow("Milliarden von Größen") << verpackt(Antwort(offen(3, {a4}))).replace(15, 4, "\x7f\xff\xff\xff");
    }

    void keineNachricht()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(!antwortAus(bytes));
        QVERIFY(!auftragAus(bytes));
    }
};

QTEST_APPLESS_MAIN(SeitenprotokollTest)
#include "test_seitenprotokoll.moc"
