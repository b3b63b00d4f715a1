#pragma once

#include "namensraeume.h"

#include <QColor>

namespace quillmar::gestalt
{
/** Arithmetic with opaque colours, after the contrast ratios of WCAG 2. Transparency is ignored throughout. */
namespace Farbrechnung
{
/** Contrast ratio of two colours, from 1 (equal) to 21 (black and white). */
[[nodiscard]] double kontrast(const QColor &eine, const QColor &andere);

/** @p anteil (0 to 1) of @p farbe, the rest of @p grund. */
[[nodiscard]] QColor mischung(const QColor &farbe, const QColor &grund, double anteil);

/**
 * @p schrift, softened towards @p grund: 64 parts to 36, and less of the ground until the text stands out 4.6 to 1
 * against it. @p schrift itself where it does not reach that.
 */
[[nodiscard]] QColor gedaempft(const QColor &schrift, const QColor &grund);

/** @p farbe, moved towards black or white, whichever stands out more from @p grund, until it has the contrast. */
[[nodiscard]] QColor mitKontrast(const QColor &farbe, const QColor &grund, double verhaeltnis);

/** @p wunsch where it is readable (4.5 to 1) on @p flaeche, else black or white, whichever is read better. */
[[nodiscard]] QColor textAuf(const QColor &flaeche, const QColor &wunsch);
} // namespace Farbrechnung
} // namespace quillmar::gestalt
