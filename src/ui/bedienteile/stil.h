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
 * themselves. Widgets get most of it from Quillmarstil, texts by kleiden(), layouts by bau.h; what is painted by hand
 * asks in paintEvent.
 */
namespace Stil
{
/** What a text is: its size, its weight and its colour. */
enum class Schrift { Grund, Neben, Beschriftung, Verweis, Warnung, Halbfett, Abschnitt, Seitentitel, Zahl, Hauptzahl };

/** The application's font in the size and weight of @p art. */
[[nodiscard]] QFont schrift(Schrift art);

/** From now on @p schild has font and colour of @p art, whatever becomes of font, palette and style; returns it. */
void ankleiden(QWidget *schild, Schrift art);
template <class Schild>
Schild *kleiden(Schild *schild, Schrift art)
{
    ankleiden(schild, art);
    return schild;
}

/** Base font size in points, between these bounds. Setting it changes every widget of the running program. */
constexpr double kleinsteSchrift = 9;
constexpr double groessteSchrift = 18;
[[nodiscard]] double schriftgroesse();
void setzeSchriftgroesse(double punkte);

/** Between parts of one thing, related things, label and field, groups; from the edge of a pane. */
enum class Abstand { Keiner = 0, Eng = 4, Nah = 8, Feld = 12, Gruppe = 16, Rand = 20 };
/** In pixels, grown with the base font; that from the edge stops growing where the room is needed for text. */
[[nodiscard]] int abstand(Abstand abstand);

/** @p pixel of a drawing made for 10 pt at 96 dpi, grown with the base font; at least 1 for every positive length. */
[[nodiscard]] int mass(double pixel);

/** A pane of @p breite holds so few characters that what stands side by side has to go below each other. */
[[nodiscard]] bool istSchmal(int breite);

/** Edge of an icon beside text of the base size (16 at 10 pt). */
[[nodiscard]] int zeichengroesse();

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

/** Calls @p anwenden now and after every change of the application's font or palette, as long as @p traeger lives. */
void folgen(QWidget *traeger, std::function<void()> anwenden);
} // namespace Stil
} // namespace quillmar::bedienteile
