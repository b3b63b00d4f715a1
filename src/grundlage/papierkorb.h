#pragma once

#include "dateibewegung.h"
#include "namensraeume.h"

namespace quillmar::grundlage
{
/** The user's trash, by the rules of freedesktop.org: his data folder's "Trash" with "files" and "info". */
namespace Papierkorb
{
/**
 * Puts a file into the trash; from another file system it is copied there, compared, and only then removed.
 * @p ankuendigung as for Dateibewegung::ausfuehren(). Returns its full path there. Throws Fehler when that
 * fails; the file stays where it is then.
 */
QString hineinlegen(const QString &pfad, const Dateibewegung::Ankuendigung &ankuendigung);
/** Takes a file out of the trash again, from @p imKorb to @p pfad, which must be free. Throws Fehler. */
void zurueckholen(const QString &imKorb, const QString &pfad, const Dateibewegung::Ankuendigung &ankuendigung);
/** Where the files in the trash were, by its notes. */
[[nodiscard]] QSet<QString> herkuenfte();
} // namespace Papierkorb
} // namespace quillmar::grundlage
