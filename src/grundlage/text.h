#pragma once

#include "namensraeume.h"

#include <QString>
#include <QStringList>
#include <QStringView>

namespace quillmar::grundlage
{
/** Unicode normalisation form C. Text that needs no change is returned without a copy. */
[[nodiscard]] QString nfc(const QString &text);

/** Number of user-perceived characters (grapheme clusters). */
[[nodiscard]] qsizetype zeichenAnzahl(const QString &text);

/** The first @p anzahl user-perceived characters; the whole text if it has no more. */
[[nodiscard]] QString ersteZeichen(const QString &text, qsizetype anzahl);

/** Number of user-perceived characters that are not white space. */
[[nodiscard]] qsizetype sichtbareZeichen(const QString &text);

/** What besides a to z and 0 to 9 survives in a folded text, and what becomes of hyphens. */
enum class Faltung {
    Namen,    ///< blanks stay (runs as one, none at the ends), "-" becomes a blank
    Rubriken, ///< "/" stays, everything else goes
};

/**
 * Brings spellings of one name together: NFC, lower case, umlauts and their two-letter spellings to the bare vowel,
 * "ß" to "ss", everything outside a to z, 0 to 9 and what @p faltung keeps removed. One pass over the characters.
 */
[[nodiscard]] QString gefaltet(const QString &text, Faltung faltung);

/** What a search compares: @p text folded like names, accents dropped too, which not every keyboard has. */
[[nodiscard]] QString suchform(const QString &text);

/**
 * Fills the "%@" placeholders of @p muster with @p werte from left to right. Placeholders inside the values stay as
 * they are; surplus placeholders stay too.
 */
[[nodiscard]] QString gefuellt(const QString &muster, std::initializer_list<QString> werte);

/** The lines of @p text, trimmed, without the empty ones. */
[[nodiscard]] QStringList zeilenAus(const QString &text);
} // namespace quillmar::grundlage
