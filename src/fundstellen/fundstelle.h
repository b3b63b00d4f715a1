#pragma once

#include "namensraeume.h"

#include <QtGlobal>

namespace quillmar::fundstellen
{
/** Words of a page that follow each other as they are read. */
struct Fundstelle {
    int seite = 0;       ///< from 0, among the pages that were read
    qsizetype wort = 0;  ///< the first one, from 0
    qsizetype worte = 1; ///< how many
    bool operator==(const Fundstelle &) const = default;
};
} // namespace quillmar::fundstellen
