#pragma once

#include "namensraeume.h"

#include <QColor>
#include <QIcon>
#include <QPalette>

class QPainter;

namespace quillmar::gestalt
{
enum class Symbol {
    Keines,
    // Cards
    Regler,
    Start,
    Vorschau,
    Uhr,
    // Top bar
    Plus,
    Minus,
    Verschieben,
    Kopieren,
    Menue,
    // Preview
    LupeMinus,
    LupePlus,
    Breite,
    GanzeSeite,
    DrehenLinks,
    DrehenRechts,
    Marken,
    PfeilOben,
    PfeilUnten,
    Schliessen,
    Dublette,
    // Actions
    Spaeter,
    Ruecknehmen,
    PfeilLinks,
    PfeilRechts,
    Halt,
    NeuLaden,
    Ordner,
    OrdnerAuf,
    Aufschlagen,
    Umbenennen,
    // Marks
    Gut,
    Warnung,
    Fehler,
    Frage,
    Info,
    Offen,
    Laeuft,
    Gewaehlt,
    Zurueckgedreht,
    // Line signs of the empty states
    GrossGut,
    GrossVorschau,
    GrossSchloss,
    GrossBeschaedigt,
    GrossVerschwunden,
    GrossUhr,
    GrossOrdner,
    GrossStart,
};

/**
 * The window's symbols: from the desktop's icon theme where it has them, else our own drawings. What the theme draws in
 * grey alone and all of ours take their colours from the palette when they are painted, so that they fit light, dark
 * and disabled; marks have the colour of what they mean. Sharp at every scale.
 */
namespace Zeichen
{
/** The icon for buttons and menus, in one fixed @p farbe for text on a coloured ground; null for Symbol::Keines. */
[[nodiscard]] QIcon icon(Symbol symbol, const QColor &farbe = {});

/** Paints it into @p flaeche; without @p farbe in the colour that it means, else in the text colour of @p palette. */
void malen(QPainter &maler, const QRect &flaeche, Symbol symbol, const QPalette &palette, const QColor &farbe = {});

/** The symbol of a published name; Symbol::Keines for others. */
[[nodiscard]] Symbol symbol(const QString &name);
/** All but Symbol::Keines. */
[[nodiscard]] QList<Symbol> alle();
} // namespace Zeichen
} // namespace quillmar::gestalt
