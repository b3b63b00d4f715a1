#include "einstellungen.h"
#include "farben.h"
#include "farbrechnung.h"
#include "kleiderordnung.h"
#include "stil.h"
#include "zeichen.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;
using namespace Farbrechnung;

namespace
{
struct Farbwelt {
    QColor fenster, schrift, feld, akzent, aufAkzent, verweis;
};

QPalette palette(const Farbwelt &welt)
{
    QPalette palette;
    palette.setColor(QPalette::Window, welt.fenster);
    palette.setColor(QPalette::WindowText, welt.schrift);
    palette.setColor(QPalette::Base, welt.feld);
    palette.setColor(QPalette::Text, welt.schrift);
    palette.setColor(QPalette::Highlight, welt.akzent);
    palette.setColor(QPalette::HighlightedText, welt.aufAkzent);
    palette.setColor(QPalette::Link, welt.verweis);
    return palette;
}

// The share of the picture's points that are not see-through, and the colour of the most opaque one.
double deckung(const QImage &bild, QColor *farbe)
{
    int deckend = 0;
    int groesste = 0;
    for (int y = 0; y < bild.height(); ++y) {
        for (int x = 0; x < bild.width(); ++x) {
            const QColor punkt = bild.pixelColor(x, y);
            deckend += punkt.alpha() > 0;
            if (punkt.alpha() > groesste)
                groesste = punkt.alpha(), *farbe = punkt;
        }
    }
    farbe->setAlpha(255);
    return double(deckend) / (bild.width() * bild.height());
}
} // namespace

class StilTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rechnung()
    {
        QCOMPARE(kontrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(kontrast(QColor(u"#777777"_s), QColor(u"#777777"_s)), 1.0);
        QVERIFY(qAbs(kontrast(QColor(u"#767676"_s), Qt::white) - 4.54) < 0.01);
        QCOMPARE(mischung(Qt::white, Qt::black, 0.5), QColor(u"#808080"_s));
        QCOMPARE(textAuf(QColor(u"#2a6fa8"_s), QColor(u"#fcfcfc"_s)), QColor(u"#fcfcfc"_s));
        QCOMPARE(textAuf(QColor(u"#3daee9"_s), QColor(u"#fcfcfc"_s)), QColor(Qt::black));
        QCOMPARE(textAuf(QColor(u"#005500"_s), QColor(u"#003300"_s)), QColor(Qt::white));
        // Enough contrast already: the colour stays what it is; text that is too faint itself is not made fainter.
        QCOMPARE(mitKontrast(QColor(u"#b42318"_s), Qt::white, 3), QColor(u"#b42318"_s));
        QCOMPARE(gedaempft(QColor(u"#999999"_s), Qt::white), QColor(u"#999999"_s));
    }

    void lesbarkeit_data()
    {
        QTest::addColumn<QPalette>("farben");
        QTest::newRow("hell") << palette(
            {u"#f3f3f2"_s, u"#232629"_s, u"#ffffff"_s, u"#2a6fa8"_s, u"#ffffff"_s, u"#2a6fa8"_s});
        QTest::newRow("dunkel") << palette(
            {u"#232629"_s, u"#eff0f1"_s, u"#1b1e20"_s, u"#2f78b7"_s, u"#ffffff"_s, u"#1d4f80"_s});
        QTest::newRow("blasser Akzent") << palette(
            {u"#ffffff"_s, u"#000000"_s, u"#ffffff"_s, u"#f5d76e"_s, u"#ffffff"_s, u"#f5d76e"_s});
        QTest::newRow("Akzent wie Grund")
            << palette({u"#202020"_s, u"#d0d0d0"_s, u"#202020"_s, u"#202020"_s, u"#202020"_s, u"#202020"_s});
    }

    void lesbarkeit()
    {
        QFETCH(const QPalette, farben);
        const QColor fenster = farben.color(QPalette::Window);
        QVERIFY(kontrast(Farben::nebenfarbe(farben), fenster) >= 4.6);
        QVERIFY(kontrast(Farben::nebenfarbe(farben, Farben::auswahlgrund(farben)), Farben::auswahlgrund(farben)) >=
                4.6);
        QVERIFY(kontrast(Farben::nebenfarbe(farben), fenster) < kontrast(farben.color(QPalette::WindowText), fenster));
        QVERIFY(kontrast(Farben::aufAkzent(farben), Farben::akzent(farben)) >= 4.5);
        QVERIFY(kontrast(Farben::verweis(farben), fenster) >= 4.5);
        QVERIFY(kontrast(Farben::platzhalter(farben), farben.color(QPalette::Base)) >= 4.5);
        QVERIFY(kontrast(Farben::akzentmarke(farben), fenster) >= 3);
        QVERIFY(kontrast(Farben::griff(farben), fenster) >= 3);
        for (const auto bedeutung : {Farben::Bedeutung::Warnung, Farben::Bedeutung::Gut, Farben::Bedeutung::Fehler})
            QVERIFY(kontrast(Farben::farbe(bedeutung, farben),
                             Farben::toenung(Farben::farbe(bedeutung, farben), farben)) >= 3);
        for (int ton = 0; ton <= int(Farben::Seitenton::Auswahl); ++ton) {
            for (const bool stark : {false, true}) {
                const auto [grund, kante] = Farben::aufSeite(Farben::Seitenton(ton), stark, farben);
                QVERIFY(kontrast(Qt::black, grund) >= 7);
                QVERIFY(kontrast(kante, Qt::white) >= (stark ? 4.5 : 3));
            }
        }
    }

    void schriftgroesseWirktSofort()
    {
        QWidget fenster;
        QLabel titel(&fenster);
        QLabel neben(&fenster);
        fenster.show();
        Stil::setzeSchriftgroesse(10);
        Stil::ankleiden(&titel, Stil::Schrift::Abschnitt);
        Stil::ankleiden(&neben, Stil::Schrift::Neben);
        QCOMPARE(titel.font().pointSizeF(), 11.8);
        QCOMPARE(Stil::zeichengroesse(), 16);

        Stil::setzeSchriftgroesse(18);
        QCOMPARE(titel.font().pointSizeF(), 18 * 1.18);
        QCOMPARE(neben.font().pointSizeF(), 18 * 0.92);
        QTRY_COMPARE(fenster.font().pointSizeF(), 18.0);
        QCOMPARE(Stil::zeichengroesse(), 29);

        Stil::setzeSchriftgroesse(40);
        QCOMPARE(Stil::schriftgroesse(), 18.0);
        Stil::setzeSchriftgroesse(10);
    }

    void nebentextFolgtDenFarben()
    {
        QWidget fenster;
        QLabel neben(&fenster);
        Stil::ankleiden(&neben, Stil::Schrift::Neben);
        const QPalette dunkel =
            palette({u"#232629"_s, u"#eff0f1"_s, u"#1b1e20"_s, u"#2f78b7"_s, u"#ffffff"_s, u"#1d4f80"_s});
        for (int i = 0; i < 3; ++i) {
            fenster.setPalette(i % 2 ? QPalette(Qt::white) : dunkel);
            QCOMPARE(neben.palette().color(QPalette::WindowText), Farben::nebenfarbe(fenster.palette()));
        }
    }

    // Every symbol shows something, in the text colour or that of its meaning, and another one when it is disabled.
    void zeichen()
    {
        QVERIFY(Zeichen::icon(Symbol::Keines).isNull());
        QCOMPARE(Zeichen::symbol(u"gibt es nicht"_s), Symbol::Keines);
        QCOMPARE(Zeichen::symbol(u"largecircle.fill.circle"_s), Symbol::Gewaehlt);
        QCOMPARE(Zeichen::symbol(u"large.play"_s), Symbol::GrossStart);
        const QColor schrift = QGuiApplication::palette().color(QPalette::WindowText);
        const QColor aus = QGuiApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
        for (const Symbol symbol : Zeichen::alle()) {
            const QByteArray name = QByteArray::number(int(symbol));
            QColor farbe;
            const QPixmap bild = Zeichen::icon(symbol).pixmap(QSize(16, 16), 2.0);
            QCOMPARE(bild.size(), QSize(32, 32));
            QVERIFY2(deckung(bild.toImage(), &farbe) > 0.03, name.constData());
            QVERIFY2(kontrast(farbe, QGuiApplication::palette().color(QPalette::Window)) >= 3, name.constData());
            (void)deckung(Zeichen::icon(symbol).pixmap(QSize(16, 16), 1.0, QIcon::Disabled).toImage(), &farbe);
            QVERIFY2(kontrast(farbe, aus) < 1.2, name.constData());
            (void)deckung(Zeichen::icon(symbol, Qt::magenta).pixmap(64, 64).toImage(), &farbe);
            QVERIFY2(kontrast(farbe, Qt::magenta) < 1.2, name.constData());
        }
        QColor gut;
        (void)deckung(Zeichen::icon(Symbol::Gut).pixmap(16, 16).toImage(), &gut);
        QCOMPARE(gut, Farben::farbe(Farben::Bedeutung::Gut, QGuiApplication::palette()));
        QVERIFY(kontrast(gut, schrift) > 1.5);
    }

    /** A desktop that sets a font of its own later does not take away the user's size. */
    void eigeneGroesseHaelt()
    {
        const QFont vorher = QApplication::font();
        schriftgroesseWaehlen(15);
        schriftgroesseAnwenden();
        QFont fremde = vorher;
        fremde.setPointSizeF(9);
        QApplication::setFont(fremde);
        QCOMPARE(Stil::schriftgroesse(), 15.0);
        schriftgroesseWaehlen(11);
        QCOMPARE(Stil::schriftgroesse(), 11.0);
        schriftgroesseWaehlen(99);
        QCOMPARE(Einstellungen::wert(u"schriftgroesse"_s).toDouble(), Stil::groessteSchrift);
        Einstellungen::entfernen(u"schriftgroesse"_s);
        QApplication::setFont(vorher);
        QCOMPARE(Stil::schriftgroesse(), vorher.pointSizeF());
    }

    /** Whatever state its surroundings are in, and whatever palette comes later. */
    void nebentextBleibtLesbar()
    {
        QWidget fenster;
        QLabel schild(&fenster);
        Stil::ankleiden(&schild, Stil::Schrift::Neben);
        fenster.setEnabled(false);
        QPalette dunkel = QApplication::palette();
        dunkel.setColor(QPalette::All, QPalette::Window, QColor(40, 44, 52));
        dunkel.setColor(QPalette::All, QPalette::WindowText, QColor(220, 223, 228));
        dunkel.setColor(QPalette::Disabled, QPalette::WindowText, QColor(120, 123, 128));
        fenster.setPalette(dunkel);
        fenster.setEnabled(true);
        QVERIFY(kontrast(schild.palette().color(QPalette::Active, QPalette::WindowText), QColor(40, 44, 52)) >= 4.5);
    }
};

QTEST_MAIN(StilTest)
#include "test_stil.moc"
