#pragma once

#include "blick.h"
#include "entwuerfe.h"
#include "namensraeume.h"

#include <functional>

namespace quillmar::zustand
{
/** A freshly opened catalogue with what the interface shows first. */
struct Oeffnung {
    std::shared_ptr<Datenbank> db;
    QStringList hinweise;
    bool gelungen = false; ///< the notes tell what was wished for, and nothing else
    Blick blick;
    Entwurfsliste entwuerfe;

    /**
     * Opens or makes the profile's catalogue, settles what a crash left open and applies the exclusion rules. Blocks,
     * up to a minute while another program holds the catalogue. Throws Fehler when it cannot be opened.
     */
    [[nodiscard]] static Oeffnung von(const Profil &profil);
    /**
     * The same after the copy @p datei has taken the catalogue's place; see Wiederherstellung. Waits until nobody in
     * this program uses the former one any more, which @p frei tells.
     */
    [[nodiscard]] static Oeffnung mitSicherung(const Profil &profil, const QString &datei, const QStringList &andere,
                                               const std::function<bool()> &frei);
};

/** Applies the exclusion rules; the sentences say what changed by it. Throws Fehler when the catalogue is not writable.
 */
[[nodiscard]] QStringList ausnahmenDurchsetzen(Datenbank &db, const Profil &profil);
} // namespace quillmar::zustand
