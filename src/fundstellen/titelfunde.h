#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>
#include <QString>
#include <optional>

namespace quillmar::fundstellen
{
/** A word of a title that tells something. */
struct Titelwort {
    QString text; ///< as it is written
    bool zahl = false;
    std::optional<Fundstelle> stelle; ///< none: it stands on no page
};

/** Titles are put together from what letters say: numbers, the subject, what it is about. */
namespace Titelfunde
{
/**
 * Numbers (whatever has a digit) first, then words of three letters and more that are not mere glue, each with the
 * place that shares its line with the most others of the title. Numbers may be parted otherwise on the page, words
 * broken.
 */
[[nodiscard]] QList<Titelwort> zu(const QList<Wortfolge> &seiten, const QString &titel);
} // namespace Titelfunde
} // namespace quillmar::fundstellen
