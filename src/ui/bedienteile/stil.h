#pragma once

#include "namensraeume.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <functional>

class QWidget;

namespace quillmar::bedienteile
{
/**
 * What makes the window look of one piece: sizes of type, distances and colours. Everything is computed from the
 * application's font and a palette, so that the desktop's colours, dark mode and the chosen font size come by
 * themselves.
 *
 * A widget that keeps a font, a distance or a colour from here says so once, and follows every change:
 *
 *     Stil::folgen(this, [this] {
 *         m_titel->setFont(Stil::schrift(Schrift::Abschnitt));
 *         layout()->setSpacing(Stil::abstand(8));
 *     });
 *
 * What is drawn asks in paintEvent and needs nothing of the kind.
 */
namespace Stil
{
enum class Schrift { Grund, Neben, Halbfett, Abschnitt, Seitentitel, Zahl };

/** The application's font in the size and weight of @p art. */
[[nodiscard]] QFont schrift(Schrift art);

/** Base font size in points, between these bounds. Setting it changes every widget of the running program. */
constexpr double kleinsteSchrift = 9;
constexpr double groessteSchrift = 18;
[[nodiscard]] double schriftgroesse();
void setzeSchriftgroesse(double punkte);

/** @p pixel of a drawing made for 10 pt at 96 dpi, grown with the base font; at least 1 for every positive length. */
[[nodiscard]] int abstand(double pixel);

/** Distance of a pane's content from its edge: 20, less where a pane of @p breite is narrow for the font. */
[[nodiscard]] int seitenrand(int breite);

/** A pane of @p breite holds so few characters that what stands side by side has to go below each other. */
[[nodiscard]] bool istSchmal(int breite);

/** Edge of an icon beside text of the base size (16 at 10 pt). */
[[nodiscard]] int zeichengroesse();

/** The window is light text on a dark ground. */
[[nodiscard]] bool istDunkel(const QPalette &palette);

/** Secondary text on @p grund, by default the window's. */
[[nodiscard]] QColor nebenfarbe(const QPalette &palette);
[[nodiscard]] QColor nebenfarbe(const QPalette &palette, const QColor &grund);

/** The accent as a surface, and text upon it. */
[[nodiscard]] QColor akzent(const QPalette &palette);
[[nodiscard]] QColor aufAkzent(const QPalette &palette);

/** The accent as a mark, bar, rule or line on the window's ground: 3 to 1. */
[[nodiscard]] QColor akzentmarke(const QPalette &palette);

/** Links and the target path. */
[[nodiscard]] QColor verweis(const QPalette &palette);

/** The three meanings. */
enum class Bedeutung { Warnung, Gut, Fehler };
[[nodiscard]] QColor farbe(Bedeutung bedeutung, const QPalette &palette);

/** A ground tinted with 10 % of @p farbe. */
[[nodiscard]] QColor toenung(const QColor &farbe, const QPalette &palette);

/** Ground of a selected row: what stands on it is still read in the text colour. */
[[nodiscard]] QColor auswahlgrund(const QPalette &palette);

/** Line between two areas; groove of a bar; the divider's grip. */
[[nodiscard]] QColor linie(const QPalette &palette);
[[nodiscard]] QColor rille(const QPalette &palette);
[[nodiscard]] QColor griff(const QPalette &palette);

/** Ground of what lies under the pages of a document. */
[[nodiscard]] QColor unterlage(const QPalette &palette);

/** Text that stands in an empty field. */
[[nodiscard]] QColor platzhalter(const QPalette &palette);

/** Colours the text of @p schild, to be called from folgen(). Compute @p farbe from another palette than its own. */
void setzeTextfarbe(QWidget *schild, const QColor &farbe);

/**
 * Calls @p anwenden now and after every change of font, palette or style of @p traeger, as long as it lives. What
 * @p anwenden changes on @p traeger itself does not call it again.
 */
void folgen(QWidget *traeger, std::function<void()> anwenden);

/** From now on: @p schild has the font @p art; secondary text size and colour; @p feld has a readable placeholder. */
void schriftFolgt(QWidget *schild, Schrift art);
void nebentext(QWidget *schild);
void platzhalterFolgt(QWidget *feld);
} // namespace Stil
} // namespace quillmar::bedienteile
