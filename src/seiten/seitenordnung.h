#pragma once

#include "namensraeume.h"

#include <QList>
#include <QRect>
#include <QSizeF>
#include <array>

namespace quillmar::seiten
{
/** In points: stands for a page without a usable size. */
inline constexpr QSizeF a4(595, 842);

/** How large pages are shown. */
struct Zoom {
    enum class Art { Breite, Seite, Stufe };

    static constexpr std::array stufen{0.25, 0.4, 0.5, 0.65, 0.8, 1.0, 1.25, 1.6, 2.0, 2.5, 3.0, 4.0};

    /** The first step above and the last below @p massstab; the outermost step where there is none. */
    [[nodiscard]] static Zoom ueber(double massstab);
    [[nodiscard]] static Zoom unter(double massstab);

    Art art = Art::Breite;
    double stufe = 1; ///< 1: as large as on paper; counts for Art::Stufe alone
    bool operator==(const Zoom &) const = default;
};

/** Room that the pages have: the visible area, the free margin around them and the scale of the screen. */
struct Seitenraum {
    QSize flaeche;
    int rand = 16;
    int luecke = 16;           ///< between two pages
    double pixelJePunkt = 1.0; ///< at scale 1
};

/** Where the pages of a document lie below each other, in pixels from the top left of the whole. */
class Seitenordnung
{
public:
    Seitenordnung() = default;

    /** @p groessen of the pages in points. Each page is fitted by itself, no side below 8 or above 100,000 pixels. */
    Seitenordnung(const QList<QSizeF> &groessen, const Zoom &zoom, const Seitenraum &raum);

    [[nodiscard]] const QList<QRect> &seiten() const { return m_seiten; }

    /** Size of the whole, margins included, at least as wide as the visible area. */
    [[nodiscard]] QSize gesamt() const { return m_gesamt; }

    /** Page that lies at @p y or next below it; the last one beyond the end, 0 without pages. */
    [[nodiscard]] int seiteBei(int y) const;

    /** Where the point @p ort of this order lies in @p andere: on the same page at the same place, itself without one.
     */
    [[nodiscard]] QPoint ortIn(const Seitenordnung &andere, const QPoint &ort) const;

private:
    QList<QRect> m_seiten;
    QSize m_gesamt;
};

/**
 * Size in which a page that takes @p seite on the screen is drawn there. Beyond A4 at 500 dots per inch it is not drawn
 * larger but scaled up.
 */
[[nodiscard]] QSize bildgroesse(const QSize &seite, double pixelverhaeltnis);
} // namespace quillmar::seiten
