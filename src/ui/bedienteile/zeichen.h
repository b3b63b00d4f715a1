#pragma once

#include "namensraeume.h"

#include <QColor>
#include <QIcon>
#include <QPalette>

class QPainter;

namespace quillmar::bedienteile
{
/**
 * The window's symbols, asked for by name in one table: from the desktop's icon theme where it has them, else our own
 * drawings. What the theme draws in grey alone and all of ours take their colours from the palette when they are
 * painted, so that they fit light, dark and disabled; marks have the colour of what they mean. Sharp at every scale.
 */
namespace Zeichen
{
/** The icon for buttons and menus; a null icon for a name that is not in the table. */
[[nodiscard]] QIcon icon(const QString &name);

/** The same in one fixed colour, for text on a coloured ground. */
[[nodiscard]] QIcon icon(const QString &name, const QColor &farbe);

/** Paints it into @p flaeche; without @p farbe in the colour that it means, else in the text colour of @p palette. */
void malen(QPainter &maler, const QRect &flaeche, const QString &name, const QPalette &palette,
           const QColor &farbe = {});

/** All names of the table. */
[[nodiscard]] QStringList namen();
} // namespace Zeichen
} // namespace quillmar::bedienteile
