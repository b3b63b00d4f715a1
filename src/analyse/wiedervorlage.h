#pragma once

#include <QtGlobal>
#include <optional>

class Datenbank;

/** Reopening of documents whose reading or classification failed. */
namespace Wiedervorlage
{
/**
 * Puts the failed documents that still wait back to the beginning, or only the one with @p id; those without a stored
 * text are read again as well. Returns how many. Throws Fehler when the catalogue cannot be written.
 */
qint64 oeffnen(Datenbank &db, std::optional<qint64> id = std::nullopt);
} // namespace Wiedervorlage
