#pragma once

#include "namensraeume.h"

#include <QString>
#include <exception>

namespace quillmar::zustand
{
/** The sentence for the user of what was thrown; empty if nothing was. */
[[nodiscard]] QString fehlersatz(const std::exception_ptr &fehler);
} // namespace quillmar::zustand
