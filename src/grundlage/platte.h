#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QString>
#include <chrono>
#include <sys/stat.h>

namespace quillmar::grundlage
{
/** System calls on files with their failures in the user's words. Paths are bytes as on disk. */
namespace Platte
{
/** What went wrong, from errno, as a marked German text: "kein Platz mehr auf dem Datenträger", … */
[[nodiscard]] QString ursache(int fehler);
/** Throws Plattenfehler: @p satz and the cause that errno names. */
[[noreturn]] void scheitern(const QString &satz, int fehler);

/** Without following a link. False if there is nothing. */
[[nodiscard]] bool angaben(const QByteArray &pfad, struct stat &s);
/** Modification time in nanoseconds since 1970; what a file system keeps beyond the years 1678 to 2262 counts as these.
 */
[[nodiscard]] qint64 zeitVon(const struct stat &s);
/** Same file, unchanged since. */
[[nodiscard]] bool unveraendert(const struct stat &a, const struct stat &b);

/** Writes the folder of @p pfad through to the disk. What file systems do not support is passed over. */
void ordnerSichern(const QByteArray &pfad);

/** Takes what group and others may do with @p pfad away. Fails quietly: another owner, a file system without modes. */
void anderenVerschliessen(const QByteArray &pfad);

/** Gives @p von the name @p nach without overwriting: 0, or errno. EXDEV: on another file system. */
[[nodiscard]] int umbenennen(const QByteArray &von, const QByteArray &nach);

/** The exclusive lock (flock) on the open file @p griff; false when another holds it past @p wartezeit. */
[[nodiscard]] bool sperren(int griff, std::chrono::milliseconds wartezeit);

/** Where a file lies: folder, with "/" at its end. */
[[nodiscard]] QByteArray ordnerTeil(const QByteArray &pfad);
} // namespace Platte
} // namespace quillmar::grundlage
