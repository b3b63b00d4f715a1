#pragma once

#include "fehler.h"

/** The text of a failure in the user's language. */
[[nodiscard]] QString inSprache(const Fehler &fehler);
