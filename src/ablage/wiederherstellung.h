#pragma once

#include "nachtrag.h"
#include "namensraeume.h"

namespace quillmar::ablage
{
/** Puts a copy of a catalogue in its place. */
namespace Wiederherstellung
{
/** What became of it. */
struct Ergebnis {
    Nachtrag::Bilanz bilanz;
    QString beiseite; ///< where the catalogue lies that was in use until now; empty if there was none

    /** For the user: that it was put in place, and what was entered besides. */
    [[nodiscard]] QString satz() const;
};

/**
 * Takes the copy @p sicherung for the catalogue @p katalog of @p profil, plays what the session logs tell since into
 * it, and only then exchanges the two; the former one is kept beside. @p andere are the names of the other profiles.
 * This program may not have the catalogue open; where another one has, it is refused. Throws Fehler; the catalogue is
 * as it was then.
 */
[[nodiscard]] Ergebnis einsetzen(const QString &katalog, const QString &sicherung, const Profil &profil,
                                 const QStringList &andere);
} // namespace Wiederherstellung
} // namespace quillmar::ablage
