#pragma once

#include "namensraeume.h"

#include <QList>
#include <QRect>
#include <QSizeF>

namespace quillmar::vorschau
{
/** How large pages are shown. */
struct Zoom {
    enum class Art { Breite, Seite, Stufe };

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

    /** @p groessen of the pages in points. Each page is fitted by itself; never smaller than 8 pixels. */
    Seitenordnung(const QList<QSizeF> &groessen, const Zoom &zoom, const Seitenraum &raum);

    [[nodiscard]] const QList<QRect> &seiten() const { return m_seiten; }

    /** Size of the whole, margins included, at least as wide as the visible area. */
    [[nodiscard]] QSize gesamt() const { return m_gesamt; }

    /** Page that lies at @p y or next below it; the last one beyond the end, 0 without pages. */
    [[nodiscard]] int seiteBei(int y) const;

private:
    QList<QRect> m_seiten;
    QSize m_gesamt;
};
} // namespace quillmar::vorschau
