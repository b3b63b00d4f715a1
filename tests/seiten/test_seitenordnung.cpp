#include "seitenordnung.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;

namespace
{
using Groessen = QList<QSizeF>;
constexpr Seitenraum raum{.flaeche = {632, 900}, .rand = 16, .luecke = 16, .pixelJePunkt = 2};
constexpr Zoom breite{.art = Zoom::Art::Breite};
constexpr Zoom ganze{.art = Zoom::Art::Seite};

Zoom stufe(double wert) { return {.art = Zoom::Art::Stufe, .stufe = wert}; }
} // namespace

Q_DECLARE_METATYPE(Zoom)

/** Where pages lie and how large they are, without a page and without a screen. */
class TestSeitenordnung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stufen_data()
    {
        QTest::addColumn<double>("massstab");
        QTest::addColumn<double>("groesser");
        QTest::addColumn<double>("kleiner");
        QTest::newRow("frei") << 0.7 << 0.8 << 0.65;
        QTest::newRow("auf einer Stufe") << 1.0 << 1.25 << 0.8;
        QTest::newRow("knapp darüber") << 1.0005 << 1.25 << 0.8;
        QTest::newRow("knapp darunter") << 0.9995 << 1.25 << 0.8;
        QTest::newRow("größte") << 4.0 << 4.0 << 3.0;
        QTest::newRow("kleinste") << 0.25 << 0.4 << 0.25;
        QTest::newRow("über allen") << 9.0 << 4.0 << 4.0;
        QTest::newRow("unter allen") << 0.1 << 0.25 << 0.25;
    }
    void stufen()
    {
        QFETCH(const double, massstab);
        QFETCH(const double, groesser);
        QFETCH(const double, kleiner);
        QCOMPARE(Zoom::ueber(massstab), stufe(groesser));
        QCOMPARE(Zoom::unter(massstab), stufe(kleiner));
    }

    void lage_data()
    {
        QTest::addColumn<Groessen>("groessen");
        QTest::addColumn<Zoom>("zoom");
        QTest::addColumn<QSize>("flaeche");
        QTest::addColumn<QList<QRect>>("seiten");
        QTest::addColumn<QSize>("gesamt");
        const QSize f = raum.flaeche;
        QTest::newRow("keine Seite") << Groessen{} << breite << f << QList<QRect>{} << QSize(632, 16);
        QTest::newRow("Breite") << Groessen{{600, 800}} << breite << f << QList<QRect>{{16, 16, 600, 800}}
                                << QSize(632, 832);
        QTest::newRow("jede für sich") << Groessen{{600, 800}, {300, 300}} << breite << f
                                       << QList<QRect>{{16, 16, 600, 800}, {16, 832, 600, 600}} << QSize(632, 1448);
        QTest::newRow("ganze hohe Seite")
            << Groessen{{600, 1736}} << ganze << f << QList<QRect>{{166, 16, 300, 868}} << QSize(632, 900);
        QTest::newRow("ganze breite Seite")
            << Groessen{{1200, 100}} << ganze << f << QList<QRect>{{16, 16, 600, 50}} << QSize(632, 82);
        QTest::newRow("Stufe, in der Mitte")
            << Groessen{{600, 800}} << stufe(0.25) << f << QList<QRect>{{166, 16, 300, 400}} << QSize(632, 432);
        QTest::newRow("Stufe, breiter als die Fläche")
            << Groessen{{600, 800}, {300, 300}} << stufe(1) << f
            << QList<QRect>{{16, 16, 1200, 1600}, {316, 1632, 600, 600}} << QSize(1232, 2248);
        QTest::newRow("winzige Seite") << Groessen{{1, 1}} << stufe(0.25) << f << QList<QRect>{{312, 16, 8, 8}}
                                       << QSize(632, 40);
        QTest::newRow("kein Platz") << Groessen{{600, 800}} << breite << QSize(20, 20) << QList<QRect>{{16, 16, 8, 8}}
                                    << QSize(40, 40);
    }
    void lage()
    {
        QFETCH(const Groessen, groessen);
        QFETCH(const Zoom, zoom);
        QFETCH(const QSize, flaeche);
        Seitenraum platz = raum;
        platz.flaeche = flaeche;
        const Seitenordnung ordnung(groessen, zoom, platz);
        QTEST(ordnung.seiten(), "seiten");
        QTEST(ordnung.gesamt(), "gesamt");
    }

    void seiteBei_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("seite");
        QTest::newRow("oben") << 0 << 0;
        QTest::newRow("letzte Zeile der ersten") << 815 << 0;
        QTest::newRow("dazwischen") << 816 << 1;
        QTest::newRow("dahinter") << 99999 << 1;
    }
    void seiteBei()
    {
        QFETCH(const int, y);
        QTEST(Seitenordnung({{600, 800}, {600, 800}}, breite, raum).seiteBei(y), "seite");
        QCOMPARE(Seitenordnung().seiteBei(y), 0);
    }

    /** What lies in the middle of the view stays there when the pages become larger. */
    void ortIn_data()
    {
        QTest::addColumn<QPoint>("ort");
        QTest::addColumn<QPoint>("dort");
        QTest::newRow("Ecke") << QPoint(16, 16) << QPoint(16, 16);
        QTest::newRow("Mitte der ersten") << QPoint(316, 416) << QPoint(616, 816);
        QTest::newRow("auf der zweiten") << QPoint(116, 932) << QPoint(216, 1832);
        QTest::newRow("am Rand") << QPoint(6, 16) << QPoint(-4, 16);
    }
    void ortIn()
    {
        QFETCH(const QPoint, ort);
        const Groessen groessen{{600, 800}, {600, 800}};
        const Seitenordnung vorher(groessen, breite, raum);
        QTEST(vorher.ortIn(Seitenordnung(groessen, stufe(1), raum), ort), "dort");
        QCOMPARE(vorher.ortIn(Seitenordnung(), ort), ort);
        QCOMPARE(Seitenordnung().ortIn(vorher, ort), ort);
    }

    void bildgroesse_data()
    {
        QTest::addColumn<QSize>("seite");
        QTest::addColumn<double>("verhaeltnis");
        QTest::addColumn<QSize>("bild");
        QTest::newRow("wie gezeigt") << QSize(600, 800) << 1.0 << QSize(600, 800);
        QTest::newRow("feiner Schirm") << QSize(600, 800) << 2.0 << QSize(1200, 1600);
        QTest::newRow("am Ende") << QSize(4000, 6000) << 1.0 << QSize(4000, 6000);
        QTest::newRow("darüber") << QSize(8000, 12000) << 1.0 << QSize(4000, 6000);
        QTest::newRow("darüber, feiner Schirm") << QSize(4000, 6000) << 2.0 << QSize(4000, 6000);
        QTest::newRow("nichts") << QSize(0, 0) << 1.0 << QSize(1, 1);
    }
    void bildgroesse()
    {
        QFETCH(const QSize, seite);
        QFETCH(const double, verhaeltnis);
        QTEST(quillmar::seiten::bildgroesse(seite, verhaeltnis), "bild");
    }
};

QTEST_GUILESS_MAIN(TestSeitenordnung)
#include "test_seitenordnung.moc"
