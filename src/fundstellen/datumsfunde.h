#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>
#include <QString>
#include <optional>

namespace quillmar::fundstellen
{
/** A date as it is written on a page. */
struct Datumsfund {
    QString wert;         ///< JJJJ-MM-TT, or JJJJ-MM where no day is given
    QString andereLesart; ///< month before day, where that is a date too; else empty
    Fundstelle stelle;
    int rang = 0; ///< the higher, the more likely the date of the letter
};

/**
 * Dates in the forms that letters use: 31.01.2024, 31.1.24, 31/01/2024, 2024-01-31, 31. Januar 2024, January 31st,
 * 2024, le 1er janvier 2024, Januar 2024, 01/2024. Years of two digits lie from 1970 to 2069.
 */
namespace Datumsfunde
{
/** Most likely first: behind "Datum", behind a place, in the head; due dates and dates of birth last. */
[[nodiscard]] QList<Datumsfund> alle(const QList<Wortfolge> &seiten);

/**
 * The likeliest place that says @p datum (JJJJ-MM-TT): the whole date; else, for the first or last day of a month, one
 * that names the month.
 */
[[nodiscard]] std::optional<Fundstelle> zu(const QList<Datumsfund> &alle, const QString &datum);
} // namespace Datumsfunde
} // namespace quillmar::fundstellen
