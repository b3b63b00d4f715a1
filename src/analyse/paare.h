#pragma once

#include <QList>

/** Finding of similar documents by their sketches. */
namespace Paare
{
constexpr double schwelle = 0.75;      ///< Jaccard index from which on two documents are similar
constexpr qsizetype mindestWerte = 16; ///< a smaller sketch takes no part

struct Abdruck {
    qint64 id = 0;
    QList<quint64> werte; ///< distinct, in any order
};

struct Paar {
    qint64 id = 0;      ///< the later document
    qint64 partner = 0; ///< the earlier document, the one with the smallest id that is similar
    double aehnlichkeit = 0;
    bool operator==(const Paar &) const = default;
};

/**
 * For every document the first earlier one that is similar, ascending by id. Exact: a set-similarity join whose index
 * holds of each sketch only the rarest values, just as many as two similar sketches must share at least one of.
 */
[[nodiscard]] QList<Paar> finden(QList<Abdruck> abdruecke);
} // namespace Paare
