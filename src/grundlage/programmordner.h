#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::grundlage
{
/**
 * The program's folder in the user's data folder: $XDG_DATA_HOME/Quillmar, else ~/.local/share/Quillmar.
 * Moves the folder of an earlier version there if the new one does not exist, else creates it, readable for the user
 * alone. Never fails; what cannot be made shows when something is written into it.
 */
[[nodiscard]] QString programmOrdner();
} // namespace quillmar::grundlage
