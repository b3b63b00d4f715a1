#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::grundlage
{
/** The present time as ISO 8601 internet date-time in UTC, to the second: 2025-01-31T14:05:09Z. */
[[nodiscard]] QString jetztIso();
} // namespace quillmar::grundlage
