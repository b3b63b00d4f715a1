#pragma once

#include "namensraeume.h"

#include <QColor>
#include <QPalette>

namespace quillmar::gestalt
{
/**
 * The colours of the window, all computed from a palette, so that the desktop's colours and dark mode come by
 * themselves. What is painted by hand asks in paintEvent.
 */
namespace Farben
{
/** The window is light text on a dark ground. */
[[nodiscard]] bool istDunkel(const QPalette &palette);
/** Secondary text on @p grund, by default the window's. */
[[nodiscard]] QColor nebenfarbe(const QPalette &palette, const QColor &grund = {});
/** The accent as a surface, text upon it, and as a mark, bar, rule or line on the window's ground: 3 to 1. */
[[nodiscard]] QColor akzent(const QPalette &palette);
[[nodiscard]] QColor aufAkzent(const QPalette &palette);
[[nodiscard]] QColor akzentmarke(const QPalette &palette);
/** Links and the target path; text that stands in an empty field. */
[[nodiscard]] QColor verweis(const QPalette &palette);
[[nodiscard]] QColor platzhalter(const QPalette &palette);
/** The three meanings. */
enum class Bedeutung { Warnung, Gut, Fehler };
[[nodiscard]] QColor farbe(Bedeutung bedeutung, const QPalette &palette);
/** A ground tinted with 10 % of @p farbe; that of a selected row, of which the text is read all the same. */
[[nodiscard]] QColor toenung(const QColor &farbe, const QPalette &palette);
[[nodiscard]] QColor auswahlgrund(const QPalette &palette);
/** Line between two areas; groove of a bar; the divider's grip; ground of what lies under the pages of a document. */
[[nodiscard]] QColor linie(const QPalette &palette);
[[nodiscard]] QColor rille(const QPalette &palette);
[[nodiscard]] QColor griff(const QPalette &palette);
[[nodiscard]] QColor unterlage(const QPalette &palette);

/** What passages of a page are: what the three fields say, what differs, what is offered, found or selected. */
enum class Seitenton { Datum, Gegenueber, Titel, Unterschied, Angebot, Treffer, Auswahl };
struct Seitenfarben {
    QColor grund; ///< under black text
    QColor kante; ///< 3 to 1 on white; 4.5 to 1 where it is strong
};
/** On a page, which is white whatever @p palette is; offers and selections have the accent. */
[[nodiscard]] Seitenfarben aufSeite(Seitenton ton, bool stark, const QPalette &palette);
} // namespace Farben
} // namespace quillmar::gestalt
