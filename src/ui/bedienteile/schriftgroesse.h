#pragma once

#include "auswahl.h"
#include "namensraeume.h"

namespace quillmar::bedienteile
{
/** Sets and stores the font size, within its bounds. */
void schriftgroesseWaehlen(double punkte);

/** The sizes that are offered, and the one that comes next to what is set. */
[[nodiscard]] QList<Wahleintrag> schriftgroessen();
[[nodiscard]] QString naechsteSchriftgroesse();
/** The language and the font size in effect, for the user. */
[[nodiscard]] QString spracheUndSchrift();

/**
 * Takes the stored font size over into the running program, and again whenever a desktop sets a font of its own later;
 * without one the desktop's holds.
 */
void schriftgroesseAnwenden();
} // namespace quillmar::bedienteile
