#pragma once

#include "namensraeume.h"

#include <QtGlobal>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
/** Reopening of documents whose reading, classification or second opinion failed. */
namespace Wiedervorlage
{
/**
 * Puts the failed documents that still wait back to the beginning, or only the one with @p id; those without a stored
 * text are read again as well, and those whose second opinion was never given are asked about again. Returns how many.
 * Throws Fehler when the catalogue cannot be written.
 */
qint64 oeffnen(Datenbank &db, std::optional<qint64> id = std::nullopt);
} // namespace Wiedervorlage
} // namespace quillmar::analyse
