#include "farbrechnung.h"

#include <algorithm>
#include <cmath>

namespace quillmar::gestalt
{
namespace
{
constexpr double schritt = 0.02;

double linear(double kanal) { return kanal <= 0.04045 ? kanal / 12.92 : std::pow((kanal + 0.055) / 1.055, 2.4); }

double leuchtdichte(const QColor &farbe)
{
    return 0.2126 * linear(farbe.redF()) + 0.7152 * linear(farbe.greenF()) + 0.0722 * linear(farbe.blueF());
}

QColor schwarzOderWeiss(const QColor &grund)
{
    const QColor schwarz(Qt::black);
    const QColor weiss(Qt::white);
    return Farbrechnung::kontrast(weiss, grund) >= Farbrechnung::kontrast(schwarz, grund) ? weiss : schwarz;
}

// The first blend on the way from one colour to the other that stands out enough; the end of the way if none does.
QColor ersteMischung(const QColor &ziel, const QColor &start, double anteil, const QColor &grund, double verhaeltnis)
{
    while (anteil < 1) {
        const QColor farbe = Farbrechnung::mischung(ziel, start, anteil);
        if (Farbrechnung::kontrast(farbe, grund) >= verhaeltnis)
            return farbe;
        anteil += schritt;
    }
    return ziel;
}
} // namespace

double Farbrechnung::kontrast(const QColor &eine, const QColor &andere)
{
    const auto [dunkel, hell] = std::minmax({leuchtdichte(eine), leuchtdichte(andere)});
    return (hell + 0.05) / (dunkel + 0.05);
}

QColor Farbrechnung::mischung(const QColor &farbe, const QColor &grund, double anteil)
{
    const auto kanal = [anteil](int oben, int unten) { return int(std::lround(oben * anteil + unten * (1 - anteil))); };
    return {kanal(farbe.red(), grund.red()), kanal(farbe.green(), grund.green()), kanal(farbe.blue(), grund.blue())};
}

QColor Farbrechnung::gedaempft(const QColor &schrift, const QColor &grund)
{
    return ersteMischung(schrift, grund, 0.64, grund, 4.6);
}

QColor Farbrechnung::mitKontrast(const QColor &farbe, const QColor &grund, double verhaeltnis)
{
    return ersteMischung(schwarzOderWeiss(grund), farbe, 0, grund, verhaeltnis);
}

QColor Farbrechnung::textAuf(const QColor &flaeche, const QColor &wunsch)
{
    return kontrast(wunsch, flaeche) >= 4.5 ? wunsch : schwarzOderWeiss(flaeche);
}
} // namespace quillmar::gestalt
