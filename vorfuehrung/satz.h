#pragma once

#include "pdf.h"

#include <QStringList>

namespace vorfuehrung
{

/**
 * Sets lines on one page from top to bottom; long lines are wrapped. A line that begins with "# " is a heading, with
 * "* " bold, with "~ " small; what stands behind a tab goes to the right margin. Throws Fehlschlag when the page is
 * full or a character is not in the character set of the standard fonts.
 */
[[nodiscard]] QByteArray seitenSatz(const QStringList &zeilen);

} // namespace vorfuehrung
