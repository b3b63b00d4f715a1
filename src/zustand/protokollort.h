#pragma once

#include "profil.h"

/** Whether session logs can be written where the profile wants them. */
enum class Protokollort { keiner, brauchbar, unbrauchbar };

/** Looks at the disk; blocks. The folder itself need not be there yet, but the one that it is made in. */
[[nodiscard]] Protokollort protokollort(const Profil &profil);
