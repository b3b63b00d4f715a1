#pragma once

#include "namensraeume.h"

namespace quillmar::katalog
{
/** Which document of the queue is meant. */
enum class Richtung {
    Erstes,
    Weiter,  ///< behind another one, from the start again behind the last
    Zurueck, ///< before another one; before the first one the first
};
} // namespace quillmar::katalog
