#include "textkarte.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;

Q_DECLARE_METATYPE(Wortspanne)

namespace
{
constexpr double hoehe = 0.02;

Seitenwort wort(const QString &text, double x, double y, double breite = 0.1)
{
    return {.text = text, .ort = {x, y, breite, hoehe}};
}

// A head with a gap, two lines below it; an empty page; a page of one line. Twice as wide as high.
Textkarte karte()
{
    const Seitenworte erste{wort(u"Stadtwerke"_s, 0.1, 0.1), wort(u"Nordheim"_s, 0.22, 0.1),
                            wort(u"Seite"_s, 0.8, 0.102),    wort(u"Rechnung"_s, 0.1, 0.2),
                            wort(u"über"_s, 0.22, 0.2),      wort(u"Strom"_s, 0.1, 0.23)};
    const Seitenworte dritte{wort(u"Viele"_s, 0.1, 0.5), wort(u"Grüße"_s, 0.22, 0.5)};
    return Textkarte({Wortkarte(erste, 2), Wortkarte({}, 2), Wortkarte(dritte, 2)});
}

qsizetype nummer(const std::optional<qsizetype> &wort) { return wort.value_or(-1); }
} // namespace

/** Which words of the pages are where, and what is between two of them. */
class TestTextkarte : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wortUnterDemZeiger_data()
    {
        QTest::addColumn<QPointF>("ort");
        QTest::addColumn<qsizetype>("getroffen");
        QTest::addColumn<qsizetype>("naechstes");
        const auto zeile = [](const char *name, QPointF ort, qsizetype getroffen, qsizetype naechstes) {
            QTest::newRow(name) << ort << getroffen << naechstes;
        };
        zeile("mitten darin", {0.15, 0.11}, 0, 0);
        zeile("knapp daneben", {0.0985, 0.11}, 0, 0);
        zeile("so weit wie knapp darüber, aber zur Seite", {0.0965, 0.11}, -1, 0);
        zeile("knapp darüber", {0.15, 0.0965}, 0, 0);
        zeile("in der Lücke der Zeile", {0.5, 0.11}, -1, 1);
        zeile("hinter der Zeile: nicht das nähere Wort der nächsten", {0.4, 0.211}, -1, 4);
        zeile("zwischen zwei Zeilen", {0.12, 0.2265}, 5, 5);
        zeile("weit darunter", {0.9, 0.9}, -1, 5);
        zeile("über der Seite", {0.9, -0.5}, -1, 2);
    }
    void wortUnterDemZeiger()
    {
        QFETCH(const QPointF, ort);
        const Textkarte diese = karte();
        QTEST(nummer(diese.seite(0).wortBei(ort)), "getroffen");
        QTEST(nummer(diese.seite(0).naechstes(ort)), "naechstes");
        QCOMPARE(nummer(diese.seite(1).wortBei(ort)), -1);
        QCOMPARE(nummer(diese.seite(7).naechstes(ort)), -1);
    }

    void text_data()
    {
        QTest::addColumn<Wortspanne>("spanne");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("phrase");
        QTest::addColumn<QList<int>>("zeilenJeSeite");
        QTest::newRow("ein Wort") << spanne({0, 1}, {0, 1}) << u"Nordheim"_s << u"Nordheim"_s << QList<int>{1, 0, 0};
        QTest::newRow("eine Zeile mit Lücke") << spanne({0, 0}, {0, 2}) << u"Stadtwerke Nordheim Seite"_s
                                              << u"Stadtwerke Nordheim Seite"_s << QList<int>{1, 0, 0};
        QTest::newRow("rückwärts über Zeilen") << spanne({0, 5}, {0, 1}) << u"Nordheim Seite\nRechnung über\nStrom"_s
                                               << u"Nordheim Seite Rechnung über Strom"_s << QList<int>{3, 0, 0};
        QTest::newRow("über Seiten") << spanne({2, 0}, {0, 5}) << u"Strom\nViele"_s << u"Strom Viele"_s
                                     << QList<int>{1, 0, 1};
        QTest::newRow("alles") << *karte().alles() << u"Stadtwerke Nordheim Seite\nRechnung über\nStrom\nViele Grüße"_s
                               << u"Stadtwerke Nordheim Seite Rechnung über Strom Viele Grüße"_s << QList<int>{3, 0, 1};
        QTest::newRow("mehr als da ist") << spanne({2, 1}, {9, 9}) << u"Grüße"_s << u"Grüße"_s << QList<int>{0, 0, 1};
    }
    void text()
    {
        QFETCH(const Wortspanne, spanne);
        QFETCH(const QList<int>, zeilenJeSeite);
        const Textkarte diese = karte();
        QTEST(diese.text(spanne), "text");
        QTEST(diese.phrase(spanne), "phrase");
        for (int seite = 0; seite < zeilenJeSeite.size(); ++seite)
            QCOMPARE(diese.orte(spanne, seite).size(), zeilenJeSeite.at(seite));
    }

    void orteUmschliessenDieZeile()
    {
        const QList<QRectF> orte = karte().orte(spanne({0, 1}, {0, 3}), 0);
        QCOMPARE(orte, (QList<QRectF>{QRectF(QPointF(0.22, 0.1), QPointF(0.9, 0.122)), {0.1, 0.2, 0.1, hoehe}}));
    }

    void freierPlatz()
    {
        const Wortkarte seite = karte().seite(0);
        const QRectF aufWort(0.15, 0.105, 0.1, 0.01);
        const QRectF ausserhalb(-0.1, 0.5, 0.2, 0.1);
        const QRectF knappDarueber(0.1, 0.093, 0.1, 0.01);
        QCOMPARE(seite.freier({aufWort, ausserhalb, knappDarueber, {0.5, 0.5, 0.1, 0.1}}), knappDarueber);
        QCOMPARE(seite.freier({aufWort, ausserhalb}), std::nullopt);
    }

    // Where the pointer is on a page without words, a selection reaches as far as the words before it.
    void naechstesWortDesDokuments()
    {
        QCOMPARE(karte().naechstes(2, {0.3, 0.5}), (Wortort{2, 1}));
        QCOMPARE(karte().naechstes(1, {0.3, 0.5}), (Wortort{0, 5}));
        QCOMPARE(karte().naechstes(9, {0.3, 0.5}), (Wortort{2, 1}));
        QCOMPARE(Textkarte({Wortkarte(), karte().seite(2)}).naechstes(0, {}), (Wortort{1, 0}));
        QCOMPARE(Textkarte({Wortkarte()}).naechstes(0, {}), std::nullopt);
        QCOMPARE(Textkarte().alles(), std::nullopt);
    }
};

QTEST_APPLESS_MAIN(TestTextkarte)
#include "test_textkarte.moc"
