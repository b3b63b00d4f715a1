#pragma once

#include "namensraeume.h"

#include <QString>
#include <chrono>

namespace quillmar::analyse
{
/**
 * Remaining-time text of work that took @p vergangen for @p fertig of @p gesamt items, extrapolated in a straight line.
 * Seconds below 90 s, whole minutes below 90 min, then hours with one decimal. Empty before the first item and after
 * the last.
 */
[[nodiscard]] QString restzeitText(std::chrono::duration<double> vergangen, qsizetype fertig, qsizetype gesamt);
} // namespace quillmar::analyse
