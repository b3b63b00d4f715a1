#pragma once

#include "angaben.h"
#include "namensraeume.h"
#include "profil.h"

#include <QDate>
#include <QJsonObject>

namespace quillmar::analyse
{
/** One checked classification. Texts are trimmed; the place holds only levels that the profile knows. */
struct Einordnungsergebnis {
    Angaben angaben;      ///< the year is that of the date
    double konfidenz = 0; ///< 0 to 1
    bool operator==(const Einordnungsergebnis &) const = default;
};

/** The rules of classification that need neither model nor catalogue. */
namespace Einordnung
{
/** Instruction text for the model: owner, fields, and the whole filing structure. */
[[nodiscard]] QString anweisung(const Profil &profil);

/** The whole question: instruction, file name and the first @p maxZeichen characters of the text. */
[[nodiscard]] QString frage(const QString &anweisung, const QString &dateiname, const QString &text, int maxZeichen);

/** Checks the model's answer against form and structure; @p altName is the document's present file name. */
[[nodiscard]] Einordnungsergebnis auswerten(const QJsonObject &antwort, const QString &altName, const Profil &profil);

/** @p antwort, of which @p ergebnis was made, has neither date nor counterpart nor title nor a place that is known. */
[[nodiscard]] bool sagtNichts(const QJsonObject &antwort, const Einordnungsergebnis &ergebnis);

/** Has the form of a date, JJJJ-MM-TT; not checked against the calendar. */
[[nodiscard]] bool istDatum(const QString &text);

/** A day that there is, from 1900 to the end of the year after @p heute: what a document may be filed under. */
[[nodiscard]] bool istTag(const QString &text, const QDate &heute);

/** Why @p text cannot be the date of a document that is filed, for the user; empty for a day, and for no date. */
[[nodiscard]] QString datumsmangel(const QString &text);

/** The first date of the 20th or 21st century in a file name, as JJJJ-MM-TT; empty if there is none. */
[[nodiscard]] QString datumAusName(const QString &name);
} // namespace Einordnung
} // namespace quillmar::analyse
