#include "stil.h"

#include <QApplication>
#include <QScreen>
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

/** Factor and weight. */
std::pair<double, QFont::Weight> abwandlung(Schrift art)
{
    switch (art) {
    case Schrift::Neben:
        return {0.92, QFont::Normal};
    case Schrift::Halbfett:
        return {1, QFont::DemiBold};
    case Schrift::Abschnitt:
        return {1.18, QFont::DemiBold};
    case Schrift::Seitentitel:
        return {1.5, QFont::DemiBold};
    case Schrift::Zahl:
    case Schrift::Hauptzahl:
        return {1.7, QFont::DemiBold};
    default:
        return {1, QFont::Normal};
    }
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
} // namespace quillmar::bedienteile
