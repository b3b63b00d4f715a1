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
 * @p ankuendigung as for Dateibewegung::ausfuehren(); it is told of the place in the trash before anything is written
 * there. Returns its full path there. Throws Fehler when that fails; the file stays where it is then.
 */
QString hineinlegen(const QString &pfad, const Dateibewegung::Ankuendigung &ankuendigung);
/** Takes a file out of the trash again, from @p imKorb to @p pfad, which must be free. Throws Fehler. */
void zurueckholen(const QString &imKorb, const QString &pfad, const Dateibewegung::Ankuendigung &ankuendigung);
/**
 * Removes the note of a file that was to go from @p pfad to @p imKorb and is not there: a crash came in between. A note
 * that speaks of another file stays. Throws Fehler.
 */
void verwaistenVermerkEntfernen(const QString &imKorb, const QString &pfad);
/** Where the files in the trash were, by its notes. */
[[nodiscard]] QSet<QString> herkuenfte();
} // namespace Papierkorb
} // namespace quillmar::grundlage
