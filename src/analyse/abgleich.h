#pragma once

#include "bestand.h"
#include "dateien.h"
#include "namensraeume.h"

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
class Lauf;

/**
 * Brings the catalogue up to what lies in the source folder: what is new is taken in, what another file has replaced
 * gives its path to that one, what had vanished and is back goes on where it was.
 */
namespace Abgleich
{
using Bekanntes = Dateien::Bekanntes;

/** What is to be done about a file that lies at a path. */
enum class Fall {
    Neu,       ///< nobody claims the path
    Bekannt,   ///< nothing
    Vermerken, ///< taken as it stands; size and time are noted
    Zurueck,   ///< the same file as before is back
    Offen,     ///< its bytes must tell whether it is still the same
};
[[nodiscard]] Fall fall(const Bekanntes *bekannt, const Bestand::Fund &fund);

/**
 * Enters @p funde; also looks for vanished documents elsewhere on the disk. @p seit is the newest movement before the
 * walk: the review goes on meanwhile. Throws Fehler.
 */
void eintragen(Lauf &lauf, const QList<Bestand::Fund> &funde, qint64 seit);
} // namespace Abgleich
} // namespace quillmar::analyse
