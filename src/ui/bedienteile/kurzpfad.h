#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::bedienteile
{
/** A path for the user's eye: the home folder as "~". */
[[nodiscard]] QString kurzpfad(const QString &pfad);
} // namespace quillmar::bedienteile
