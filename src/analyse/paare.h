#pragma once

#include "namensraeume.h"

#include <QList>
#include <functional>
#include <vector>

namespace quillmar::analyse
{
/** Finding of similar documents by their sketches. */
namespace Paare
{
constexpr double schwelle = 0.75;      ///< Jaccard index from which on two documents are similar
constexpr qsizetype mindestWerte = 16; ///< a smaller sketch takes no part

struct Abdruck {
    qint64 id = 0;
    QList<quint64> werte; ///< distinct, in any order
    bool neu = true;      ///< a partner is looked for; else it only serves as one
};

struct Paar {
    qint64 id = 0;      ///< the later document
    qint64 partner = 0; ///< the one with the smallest id that is similar, known ones first
    double aehnlichkeit = 0;
    bool operator==(const Paar &) const = default;
};

/**
 * Tells which known sketches may be similar to one of @p neue at all, so that the others need not be kept: one passes
 * that shares as many values with all of them together as it would have to share with one. Lets a few too many through.
 */
class Sieb
{
public:
    explicit Sieb(const QList<Abdruck> &neue);
    [[nodiscard]] bool laesstDurch(const QList<quint64> &werte) const;

private:
    [[nodiscard]] size_t stelle(quint64 wert) const { return size_t(wert) & (m_felder.size() - 1); }
    std::vector<bool> m_felder; ///< by the lowest bits of the values: there is one
};

/**
 * For every new document the first similar one among the known ones and the new ones before it, by id. @p taugt (may be
 * empty) tells whether a known document may be the partner of another one. Exact: a set-similarity join whose index
 * holds of each sketch only the rarest values, just as many as two similar sketches must share at least one of.
 */
using Eignung = std::function<bool(qint64 id, qint64 partner)>;
[[nodiscard]] QList<Paar> finden(QList<Abdruck> abdruecke, const Eignung &taugt = {});
} // namespace Paare
} // namespace quillmar::analyse
