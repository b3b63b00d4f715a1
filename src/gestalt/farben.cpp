#include "farben.h"

#include "farbrechnung.h"

namespace quillmar::gestalt
{
namespace
{
QColor rolle(const QPalette &palette, QPalette::ColorRole rolle) { return palette.color(QPalette::Active, rolle); }

/** @p anteil of @p farbe on the window's ground. */
QColor aufFenster(const QColor &farbe, const QPalette &palette, double anteil)
{
    return Farbrechnung::mischung(farbe, rolle(palette, QPalette::Window), anteil);
}
} // namespace

bool Farben::istDunkel(const QPalette &palette)
{
    return rolle(palette, QPalette::WindowText).lightness() > rolle(palette, QPalette::Window).lightness();
}

QColor Farben::nebenfarbe(const QPalette &palette, const QColor &grund)
{
    return Farbrechnung::gedaempft(rolle(palette, QPalette::WindowText),
                                   grund.isValid() ? grund : rolle(palette, QPalette::Window));
}

QColor Farben::akzent(const QPalette &palette) { return rolle(palette, QPalette::Highlight); }

QColor Farben::aufAkzent(const QPalette &palette)
{
    return Farbrechnung::textAuf(akzent(palette), rolle(palette, QPalette::HighlightedText));
}

QColor Farben::akzentmarke(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(akzent(palette), rolle(palette, QPalette::Window), 3);
}

QColor Farben::verweis(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(rolle(palette, QPalette::Link), rolle(palette, QPalette::Window), 4.5);
}

QColor Farben::platzhalter(const QPalette &palette)
{
    const QColor grund = rolle(palette, QPalette::Base);
    return Farbrechnung::mitKontrast(Farbrechnung::mischung(rolle(palette, QPalette::Text), grund, 0.55), grund, 4.5);
}

QColor Farben::farbe(Bedeutung bedeutung, const QPalette &palette)
{
    constexpr QRgb farben[3][2] = {{0x8a5c00, 0xe3b341}, {0x186f30, 0x63bb66}, {0xb42318, 0xf47067}}; // light, dark
    return QColor::fromRgb(farben[int(bedeutung)][istDunkel(palette) ? 1 : 0]);
}

QColor Farben::toenung(const QColor &farbe, const QPalette &palette) { return aufFenster(farbe, palette, 0.1); }

QColor Farben::auswahlgrund(const QPalette &palette)
{
    return aufFenster(akzent(palette), palette, istDunkel(palette) ? 0.3 : 0.16);
}

QColor Farben::linie(const QPalette &palette)
{
    return aufFenster(rolle(palette, QPalette::WindowText), palette, 0.18);
}
QColor Farben::rille(const QPalette &palette)
{
    return aufFenster(rolle(palette, QPalette::WindowText), palette, 0.14);
}

QColor Farben::griff(const QPalette &palette)
{
    return Farbrechnung::mitKontrast(aufFenster(rolle(palette, QPalette::WindowText), palette, 0.5),
                                     rolle(palette, QPalette::Window), 3);
}

QColor Farben::unterlage(const QPalette &palette)
{
    return aufFenster(Qt::black, palette, istDunkel(palette) ? 0.25 : 0.1);
}

// Blue, orange and green of a kind that are told apart in every form of colour blindness.
Farben::Seitenfarben Farben::aufSeite(Seitenton ton, bool stark, const QPalette &palette)
{
    constexpr QRgb toene[] = {0x0072b2, 0xb45f06, 0x00795a, 0x9c3d7a, 0, 0x8a7000};
    const bool fest = ton != Seitenton::Angebot && ton != Seitenton::Auswahl;
    const QColor farbe = fest ? QColor::fromRgb(toene[int(ton)]) : akzent(palette);
    // Yellow is dark as an edge, but must shine as a ground.
    const QColor flaeche = ton == Seitenton::Treffer ? QColor(0xff, 0xd0, 0x00) : farbe;
    const double anteil = ton == Seitenton::Treffer ? (stark ? 0.8 : 0.35) : (stark ? 0.34 : 0.15);
    return {.grund = Farbrechnung::mischung(flaeche, Qt::white, anteil),
            .kante = stark ? Farbrechnung::mitKontrast(farbe, Qt::white, 4.5)
                           : Farbrechnung::mitKontrast(Farbrechnung::mischung(farbe, Qt::white, 0.7), Qt::white, 3)};
}
} // namespace quillmar::gestalt
