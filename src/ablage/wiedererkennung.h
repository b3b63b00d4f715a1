#pragma once

#include "dateien.h"
#include "namensraeume.h"

namespace quillmar::ablage
{
/**
 * Whether a file is still the one that a document was read from. With every digest the size and modification time of
 * the file are noted: for taking stock a file is the same while they are, and else its bytes decide. Before it is moved
 * its bytes decide in any case: what the catalogue says may be wrong as well.
 */
namespace Wiedererkennung
{
enum class Vergleich {
    Dieselbe,
    Offen, ///< only its bytes can tell
};

/** By size and time alone. What was never read is taken for the same. */
[[nodiscard]] Vergleich vergleich(const Dateinotiz &stand, qint64 groesse, qint64 geaendert);

/**
 * The file at @p pfad is the one that document @p id was read from, by its digest; its size and time are noted where
 * they are others by now. Without a digest its size decides, where it
 * is known. Throws Fehler when it cannot be read.
 */
[[nodiscard]] bool istDieselbe(Datenbank &db, qint64 id, const QString &pfad);

/** Takes in what lies at @p pfad, the path of document @p id, now as a document of its own, still to be read. */
void ersetzen(Datenbank &db, qint64 id, const QString &pfad);
} // namespace Wiedererkennung
} // namespace quillmar::ablage
