#pragma once

#include "grenzen.h"
#include "namensraeume.h"
#include "seitenlagen.h"

#include <QList>
#include <QString>
#include <stop_token>

namespace quillmar::analyse
{
/** The text of pages that have none but their image. */
namespace Texterkennung
{
struct Ergebnis {
    QString text;            ///< of all pages, trimmed
    QList<Seitenlage> lagen; ///< of the pages that do not lie upright and straight
};

/**
 * Draws the first @p seiten pages of @p pdf, straightens each while the one before it is being recognised, and
 * recognises them in the language @p sprache. A page whose text does not look like language is turned as tesseract's
 * orientation detection says and recognised once more; the better text is taken. Throws Fehler, Platzmangel where the
 * disk has no room for the images, and Abbruch. Blocks.
 */
[[nodiscard]] Ergebnis erkennen(const QString &pdf, int seiten, const QString &sprache, const Lesegrenzen &grenzen,
                                const std::stop_token &ende);
} // namespace Texterkennung
} // namespace quillmar::analyse
