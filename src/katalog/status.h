#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::katalog
{
/** Where a document stands in the workflow. */
enum class Status {
    Unbekannt, ///< a word that this version does not know
    Neu,
    Laeuft, ///< read wherever there is one, written by nobody
    Bereit, ///< a proposal waits for review
    Zurueckgestellt,
    Dublette,
    Aussortiert,
    Erledigt,
    Fehlt, ///< the file was not there when it was to be filed
};

/** The word in the catalogue and in session logs; empty for Unbekannt. */
[[nodiscard]] QString statuswort(Status status);
/** Exactly that word; Unbekannt for any other. */
[[nodiscard]] Status statusAus(QStringView wort);
} // namespace quillmar::katalog
