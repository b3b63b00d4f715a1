#include "stil.h"

#include "farbrechnung.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace quillmar::bedienteile
{
namespace
{
constexpr double zeichnungspunkte = 10;

double punkte(const QFont &schrift)
{
    if (schrift.pointSizeF() > 0)
        return schrift.pointSizeF();
    const QScreen *bildschirm = QGuiApplication::primaryScreen();
    return schrift.pixelSize() * 72.0 / (bildschirm ? bildschirm->logicalDotsPerInch() : 96);
}

double wachstum()
{
    const QScreen *bildschirm = QGuiApplication::primaryScreen();
    const double dichte = bildschirm ? bildschirm->logicalDotsPerInch() / 96 : 1;
    return punkte(QApplication::font()) / zeichnungspunkte * dichte;
}

struct Abwandlung {
    double faktor;
    QFont::Weight gewicht;
};

Abwandlung abwandlung(Stil::Schrift art)
{
    switch (art) {
    case Stil::Schrift::Neben:
        return {0.92, QFont::Normal};
    case Stil::Schrift::Halbfett:
        return {1, QFont::DemiBold};
    case Stil::Schrift::Abschnitt:
        return {1.18, QFont::DemiBold};
    case Stil::Schrift::Seitentitel:
        return {1.5, QFont::DemiBold};
    case Stil::Schrift::Zahl:
    case Stil::Schrift::Hauptzahl:
        return {1.7, QFont::DemiBold};
    case Stil::Schrift::Grund:
    case Stil::Schrift::Beschriftung:
    case Stil::Schrift::Verweis:
    case Stil::Schrift::Warnung:
        break;
    }
    return {1, QFont::Normal};
}

QColor rolle(const QPalette &palette, QPalette::ColorRole rolle) { return palette.color(QPalette::Active, rolle); }

/** @p anteil of @p farbe on the window's ground. */
QColor aufFenster(const QColor &farbe, const QPalette &palette, double anteil)
{
    return Farbrechnung::mischung(farbe, rolle(palette, QPalette::Window), anteil);
}
} // namespace

QFont Stil::schrift(Schrift art)
{
    QFont schrift = QApplication::font();
    const auto [faktor, gewicht] = abwandlung(art);
    schrift.setPointSizeF(punkte(schrift) * faktor);
    if (art != Schrift::Grund)
        schrift.setWeight(gewicht);
    return schrift;
}

double Stil::schriftgroesse() { return punkte(QApplication::font()); }

void Stil::setzeSchriftgroesse(double wunsch)
{
    QFont schrift = QApplication::font();
    schrift.setPointSizeF(std::clamp(wunsch, kleinsteSchrift, groessteSchrift));
    QApplication::setFont(schrift);
}

int Stil::mass(double pixel)
{
    const int gewachsen = int(std::lround(pixel * wachstum()));
    return pixel > 0 ? std::max(1, gewachsen) : gewachsen;
}

int Stil::abstand(Abstand abstand)
{
    constexpr int groessterRand = 26;
    const int gewachsen = mass(int(abstand));
    return abstand == Abstand::Rand ? std::min(gewachsen, groessterRand) : gewachsen;
}

bool Stil::istSchmal(int breite)
{
    constexpr int zeichen = 42;
    return breite < zeichen * QFontMetrics(schrift(Schrift::Grund)).averageCharWidth();
}

int Stil::zeichengroesse() { return mass(16); }

bool Stil::istDunkel(const QPalette &palette)
{
    return rolle(palette, QPalette::WindowText).lightness() > rolle(palette, QPalette::Window).lightness();
}

QColor Stil::nebenfarbe(const QPalette &palette, const QColor &grund)
{
    return Farbrechnung::gedaempft(rolle(palette, QPalette::WindowText),
                                   grund.isValid() ? grund : rolle(palette, QPalette::Window));
}

QColor Stil::akzent(const QPalette &palette) { return rolle(palette, QPalette::Highlight); }

QColor Stil::aufAkzent(const QPalette &palette)
{
    return Farbrechnung::textAuf(akzent(palette), rolle(palette, QPalette::HighlightedText));
}

QColor Stil::akzentmarke(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(akzent(palette), rolle(palette, QPalette::Window), 3);
}

QColor Stil::verweis(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(rolle(palette, QPalette::Link), rolle(palette, QPalette::Window), 4.5);
}

QColor Stil::platzhalter(const QPalette &palette)
{
    const QColor grund = rolle(palette, QPalette::Base);
    return Farbrechnung::mitKontrast(Farbrechnung::mischung(rolle(palette, QPalette::Text), grund, 0.55), grund, 4.5);
}

QColor Stil::farbe(Bedeutung bedeutung, const QPalette &palette)
{
    constexpr QRgb farben[3][2] = {{0x8a5c00, 0xe3b341}, {0x186f30, 0x63bb66}, {0xb42318, 0xf47067}}; // light, dark
    return QColor::fromRgb(farben[int(bedeutung)][istDunkel(palette) ? 1 : 0]);
}

QColor Stil::toenung(const QColor &farbe, const QPalette &palette) { return aufFenster(farbe, palette, 0.1); }

QColor Stil::auswahlgrund(const QPalette &palette)
{
    return aufFenster(akzent(palette), palette, istDunkel(palette) ? 0.3 : 0.16);
}

QColor Stil::linie(const QPalette &palette) { return aufFenster(rolle(palette, QPalette::WindowText), palette, 0.18); }
QColor Stil::rille(const QPalette &palette) { return aufFenster(rolle(palette, QPalette::WindowText), palette, 0.14); }

QColor Stil::griff(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(aufFenster(rolle(palette, QPalette::WindowText), palette, 0.5),
                                     rolle(palette, QPalette::Window), 3);
}

QColor Stil::unterlage(const QPalette &palette)
{
    return aufFenster(Qt::black, palette, istDunkel(palette) ? 0.25 : 0.1);
}
} // namespace quillmar::bedienteile
