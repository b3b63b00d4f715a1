#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::analyse
{
/**
 * Why a document could not be read or classified, as it stands in the catalogue: one of two fixed beginnings, ": " and
 * the reason. The beginnings are German whatever the language, since later runs in any language look for them.
 */
namespace Fehlertext
{
[[nodiscard]] QString lesen(const QString &grund);
[[nodiscard]] QString einordnen(const QString &grund);

/** The reason behind the beginning of a failed reading; a null text for anything else. */
[[nodiscard]] QString grundDesLesens(const QString &fehler);

/** A stored text for the user: its beginning in the user's language, its reason too where it is known. */
[[nodiscard]] QString anzeige(const QString &fehler);
} // namespace Fehlertext
} // namespace quillmar::analyse
