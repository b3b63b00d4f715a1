#pragma once

#include "pdf.h"

namespace vorfuehrung
{

/** How a page came to the scanner. */
struct Scanlage {
    double neigung = 0;    ///< degrees by which it was pulled in askew
    int drehung = 0;       ///< degrees clockwise: 0, 90, 180 or 270
    double papier = 0.965; ///< brightness of the paper, 0 black to 1 white
    int flecken = 160;
};

/**
 * The page as a scanner at 200 dpi would give it: on paper with specks, and only a picture. Uses pdftoppm; throws
 * Fehlschlag when that is missing or fails. @p keim varies the specks.
 */
[[nodiscard]] Seite gescannt(const QByteArray &inhalt, const Scanlage &lage, quint32 keim);

} // namespace vorfuehrung
