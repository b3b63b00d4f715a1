#pragma once

#include "pdf.h"

namespace vorfuehrung
{

/**
 * The page as a scanner at 200 dpi would give it: turned by @p neigung degrees, on slightly grey paper with specks, and
 * only a picture. Uses pdftoppm; throws Fehlschlag when that is missing or fails. @p keim varies the specks.
 */
[[nodiscard]] Seite gescannt(const QByteArray &inhalt, double neigung, quint32 keim);

} // namespace vorfuehrung
