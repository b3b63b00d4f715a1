#include "schriftgroesse.h"

#include "einstellungen.h"
#include "stil.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto schluesselSchrift = "schriftgroesse"_L1;

double begrenzt(double punkte) { return std::clamp(punkte, Stil::kleinsteSchrift, Stil::groessteSchrift); }
} // namespace

void schriftgroesseAnwenden()
{
    bool zahl = false;
    const double punkte = Einstellungen::wert(schluesselSchrift).toDouble(&zahl);
    if (zahl && std::isfinite(punkte))
        Stil::setzeSchriftgroesse(begrenzt(punkte));
}

void schriftgroesseWaehlen(double punkte)
{
    const double neu = begrenzt(punkte);
    Einstellungen::setzen(schluesselSchrift, neu);
    Stil::setzeSchriftgroesse(neu);
}
