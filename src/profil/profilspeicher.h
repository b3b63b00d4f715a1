#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::profil
{
/** Keeps all profiles together in "profile.json" in the program's folder. */
namespace Profilspeicher
{
/** The program's folder; see programmOrdner(). */
[[nodiscard]] QString ordner();
[[nodiscard]] QString datei();

/** The catalogue file of a profile: beside the list, named by its id. */
[[nodiscard]] QString katalogDatei(const Profil &profil);

/** What was found where the list is kept. */
struct Gefunden {
    QList<Profil> profile;
    bool unlesbar = false;   ///< there is a file, and it could not be read or does not decode
    QStringList anmerkungen; ///< for the user; with an unreadable file the sentence that names it
};
[[nodiscard]] Gefunden lesen();
/** The stored list; empty when the file is missing or does not decode. */
[[nodiscard]] QList<Profil> laden();

/**
 * Where a stored list that does not decode is kept: beside, under a dated name, once. Empty when there is no list or it
 * decodes; the list's own path when it cannot be kept aside.
 */
[[nodiscard]] QString unlesbareSichern();

/** What a saving did. */
struct Gesichert {
    QList<Profil> profile; ///< the list as it is now stored, with what other programs have changed meanwhile
    bool gelungen = false;
    QString beiseite; ///< where a list that did not decode was kept; empty if there was none
};

/**
 * Saves @p profile. The file is read again under a lock and only what differs from @p stand (the list as the caller
 * last read or saved it) is replaced, added or taken out, so that two programs do not undo each other. Where there is
 * no list any more, @p profile is written whole; one that does not decode is first kept beside under a dated name. On
 * failure the file stays as it was.
 */
Gesichert sichern(const QList<Profil> &profile, const QList<Profil> &stand);
} // namespace Profilspeicher
} // namespace quillmar::profil
