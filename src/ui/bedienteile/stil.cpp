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

// The palette that a widget would have if none were set on it.
QPalette vorgabePalette(const QWidget *widget)
{
    return widget->parentWidget() ? widget->parentWidget()->palette() : QApplication::palette();
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

int Stil::seitenrand(int breite) { return std::min(abstand(20), std::max(12, breite / 36)); }

bool Stil::istSchmal(int breite)
{
    constexpr int zeichen = 42;
    return breite < zeichen * QFontMetrics(schrift(Schrift::Grund)).averageCharWidth();
}

int Stil::zeichengroesse() { return abstand(16); }

bool Stil::istDunkel(const QPalette &palette)
{
    return palette.color(QPalette::Active, QPalette::WindowText).lightness() >
           palette.color(QPalette::Active, QPalette::Window).lightness();
}

QColor Stil::nebenfarbe(const QPalette &palette)
{
    return nebenfarbe(palette, palette.color(QPalette::Active, QPalette::Window));
}

QColor Stil::nebenfarbe(const QPalette &palette, const QColor &grund)
{
    return Farbrechnung::gedaempft(palette.color(QPalette::Active, QPalette::WindowText), grund);
}

QColor Stil::akzent(const QPalette &palette) { return palette.color(QPalette::Active, QPalette::Highlight); }

QColor Stil::aufAkzent(const QPalette &palette)
{
    return Farbrechnung::textAuf(akzent(palette), palette.color(QPalette::Active, QPalette::HighlightedText));
}

QColor Stil::akzentmarke(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(akzent(palette), palette.color(QPalette::Active, QPalette::Window), 3);
}

QColor Stil::verweis(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(palette.color(QPalette::Active, QPalette::Link),
                                     palette.color(QPalette::Active, QPalette::Window), 4.5);
}

QColor Stil::farbe(Bedeutung bedeutung, const QPalette &palette)
{
    const bool dunkel = istDunkel(palette);
    switch (bedeutung) {
    case Bedeutung::Warnung:
        return QColor::fromRgb(dunkel ? 0xe3b341 : 0x8a5c00);
    case Bedeutung::Gut:
        return QColor::fromRgb(dunkel ? 0x63bb66 : 0x186f30);
    case Bedeutung::Fehler:
        break;
    }
    return QColor::fromRgb(dunkel ? 0xf47067 : 0xb42318);
}

QColor Stil::toenung(const QColor &farbe, const QPalette &palette)
{
    return Farbrechnung::mischung(farbe, palette.color(QPalette::Active, QPalette::Window), 0.1);
}

QColor Stil::auswahlgrund(const QPalette &palette)
{
    return Farbrechnung::mischung(akzent(palette), palette.color(QPalette::Active, QPalette::Window),
                                  istDunkel(palette) ? 0.3 : 0.16);
}

QColor Stil::linie(const QPalette &palette)
{
    return Farbrechnung::mischung(palette.color(QPalette::Active, QPalette::WindowText),
                                  palette.color(QPalette::Active, QPalette::Window), 0.18);
}

QColor Stil::rille(const QPalette &palette)
{
    return Farbrechnung::mischung(palette.color(QPalette::Active, QPalette::WindowText),
                                  palette.color(QPalette::Active, QPalette::Window), 0.14);
}

QColor Stil::griff(const QPalette &palette)
{
    const QColor grund = palette.color(QPalette::Active, QPalette::Window);
    return Farbrechnung::mitKontrast(
        Farbrechnung::mischung(palette.color(QPalette::Active, QPalette::WindowText), grund, 0.5), grund, 3);
}

QColor Stil::unterlage(const QPalette &palette)
{
    return Farbrechnung::mischung(Qt::black, palette.color(QPalette::Active, QPalette::Window),
                                  istDunkel(palette) ? 0.25 : 0.1);
}

QColor Stil::platzhalter(const QPalette &palette)
{
    const QColor grund = palette.color(QPalette::Active, QPalette::Base);
    return Farbrechnung::mitKontrast(
        Farbrechnung::mischung(palette.color(QPalette::Active, QPalette::Text), grund, 0.55), grund, 4.5);
}

void Stil::setzeTextfarbe(QWidget *schild, const QColor &farbe)
{
    // Nothing but this one role is set, so that all others go on following the desktop.
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::WindowText, farbe);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, farbe);
    schild->setPalette(palette);
}

void Stil::schriftFolgt(QWidget *schild, Schrift art) { ankleiden(schild, art); }
void Stil::nebentext(QWidget *schild) { ankleiden(schild, Schrift::Neben); }

void Stil::platzhalterFolgt(QWidget *feld)
{
    folgen(feld, [feld] {
        QPalette palette;
        palette.setColor(QPalette::PlaceholderText, platzhalter(vorgabePalette(feld)));
        feld->setPalette(palette);
    });
}
} // namespace quillmar::bedienteile
