#pragma once

#include "namensraeume.h"

#include <QFont>
#include <functional>

class QWidget;

namespace quillmar::bedienteile
{
/**
 * What makes the window look of one piece: sizes of type and distances, computed from the application's font, so that
 * the chosen size comes by itself; the colours are in Farben. Widgets get most of it from Quillmarstil, texts by
 * kleiden(), layouts by bau.h; what is painted by hand asks in paintEvent.
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

/** Calls @p anwenden now and after every change of the application's font or palette, as long as @p traeger lives. */
void folgen(QWidget *traeger, std::function<void()> anwenden);
} // namespace Stil
using Stil::Abstand;
using Stil::Schrift;
} // namespace quillmar::bedienteile
