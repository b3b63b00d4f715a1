#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::zustand
{
/** Whether session logs can be written where the profile wants them. */
enum class Protokollort { Keiner, Brauchbar, Unbrauchbar };

/** Looks at the disk; blocks. The folder itself need not be there yet, but the one that it is made in. */
[[nodiscard]] Protokollort protokollort(const Profil &profil);
} // namespace quillmar::zustand
