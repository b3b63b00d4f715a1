#include "aufrichter.h"

#include <cmath>
#include <cstdio>
#include <leptonica/allheaders.h>
#include <memory>
#include <numbers>

namespace quillmar::aufrichter
{
namespace
{
struct Freigabe {
    void operator()(Pix *bild) const { pixDestroy(&bild); }
};
using Bild = std::unique_ptr<Pix, Freigabe>;

constexpr float sicher = 3; // leptonica's own bar for its measure of confidence

/** Skew of the lines of a black and white image, as leptonica has it. */
struct Messung {
    float winkel = 0;   ///< degrees clockwise that make it straight
    float zutrauen = 0; ///< ratio of the best to the worst angle's score
};

/** At the reductions that leptonica's own deskewing takes. */
Messung messen(Pix *schwarzweiss)
{
    constexpr l_int32 grob = 4;
    constexpr l_int32 fein = 2;
    constexpr l_float32 schritt = 1;
    constexpr l_float32 genauigkeit = 0.01F;
    Messung m;
    l_float32 wertung = 0;
    if (pixFindSkewSweepAndSearchScore(schwarzweiss, &m.winkel, &m.zutrauen, &wertung, grob, fein, 0,
                                       l_float32(groessteNeigung), schritt, genauigkeit) != 0)
        return {};
    return m;
}

/** A threshold for the whole page: greyish paper is white then. */
Bild schwarzweiss(Pix *grau)
{
    Pix *bild = nullptr;
    constexpr l_float32 rand = 0.1F;
    if (pixOtsuAdaptiveThreshold(grau, pixGetWidth(grau), pixGetHeight(grau), 0, 0, rand, nullptr, &bild) != 0)
        return {};
    return Bild(bild);
}

Bild gedreht(Pix *bild, int drehung) { return Bild(pixRotateOrth(bild, drehung / 90)); }

Bild gerade(Pix *grau, double neigung)
{
    Bild neu(pixRotate(grau, l_float32(neigung * std::numbers::pi / 180), L_ROTATE_AREA_MAP, L_BRING_IN_WHITE,
                       pixGetWidth(grau), pixGetHeight(grau)));
    if (neu)
        pixCopyResolution(neu.get(), grau);
    return neu;
}

bool ersetzen(const std::string &pfad, Pix *bild)
{
    constexpr l_int32 schnell = 1; // it lives for seconds
    pixSetZlibCompression(bild, schnell);
    const std::string neu = pfad + ".neu";
    if (pixWrite(neu.c_str(), bild, IFF_PNG) == 0 && std::rename(neu.c_str(), pfad.c_str()) == 0)
        return true;
    std::remove(neu.c_str());
    return false;
}

/** Lines that run up or down are as good to measure once the page lies on its side. */
void neigungMessen(Pix *schwarzweiss, Lage &lage)
{
    const Messung waagrecht = messen(schwarzweiss);
    const Bild gekippt = gedreht(schwarzweiss, 90);
    const Messung senkrecht = gekippt ? messen(gekippt.get()) : Messung();
    // Columns and frames give the other direction something, too.
    const Messung &m = senkrecht.zutrauen > waagrecht.zutrauen ? senkrecht : waagrecht;
    lage.hochkant = &m == &senkrecht && m.zutrauen >= sicher;
    if (m.zutrauen >= sicher && std::abs(m.winkel) > kleinsteNeigung)
        lage.neigung = double(m.winkel);
}
} // namespace

std::optional<Lage> aufrichten(const std::string &pfad, int drehung)
{
    const Bild gelesen(pixRead(pfad.c_str()));
    Bild grau(gelesen ? pixConvertTo8(gelesen.get(), 0) : nullptr);
    if (grau && drehung != 0)
        grau = gedreht(grau.get(), drehung);
    const Bild zweifarbig = grau ? schwarzweiss(grau.get()) : Bild();
    if (!zweifarbig)
        return std::nullopt;
    Lage lage;
    neigungMessen(zweifarbig.get(), lage);
    if (lage.neigung != 0)
        grau = gerade(grau.get(), lage.neigung);
    const bool bleibt = drehung == 0 && lage.neigung == 0;
    if (!grau || (!bleibt && !ersetzen(pfad, grau.get())))
        return std::nullopt;
    return lage;
}
} // namespace quillmar::aufrichter
