#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>

namespace quillmar::fundstellen
{
/** Words that one of two documents has and the other has not, in their order. */
struct Unterschiede {
    QList<Fundstelle> links;
    QList<Fundstelle> rechts;
};

/**
 * Compares two documents word by word, spelling folded (E. Myers: An O(ND) Difference Algorithm and Its Variations,
 * 1986). Documents that have more than 1,000 words not in common differ as a whole, and nothing is told.
 */
[[nodiscard]] Unterschiede unterschiede(const QList<Wortfolge> &links, const QList<Wortfolge> &rechts);
} // namespace quillmar::fundstellen
