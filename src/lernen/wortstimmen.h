#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QList>
#include <QStringList>

namespace quillmar::lernen
{
/**
 * The vote of a counterpart's filed documents: those that share telling words with a new one (account and contract
 * numbers, a street, "Geschäftskonto") speak for the place where they lie. Pure rules.
 */
namespace Wortstimmen
{
/** The words of @p text that may tell documents of one counterpart apart, as written, each once; numbers first. */
[[nodiscard]] QStringList worte(const QString &text);
/** The spelling by which words are compared. */
[[nodiscard]] QString gefaltetesWort(const QString &wort);

/** A place as the filed documents there know it. */
struct Platz {
    qint64 dokumente = 0;              ///< whose words are counted
    QHash<QString, qint64> worte = {}; ///< in how many of them each folded word stands
};

struct Ergebnis {
    qsizetype platz = -1; ///< in the order of the places; -1: no clear majority
    QString wort;         ///< the one that speaks most for it, as written in the new document
    qint64 dokumente = 0; ///< at the place in which it stands
};

/**
 * A word speaks for the place where it stands in a larger share of the documents than anywhere else, the more the
 * larger the ratio of the shares (its logarithm; of few documents the shares are drawn to the middle).
 * Numbers count from the first document on; other words only where chance does not put them, and at most three of them
 * for each place. A majority is clear with a certain weight and twice that of the next place.
 */
[[nodiscard]] Ergebnis abstimmen(const QStringList &worte, const QList<Platz> &plaetze);
} // namespace Wortstimmen
} // namespace quillmar::lernen
