#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::zustand
{
/** Whether everything that a run needs is there, part by part. */
struct Bereitschaft {
    QStringList fehlendeWerkzeuge;
    bool quelle = false;   ///< the source folder is chosen and there
    bool ziel = false;     ///< the target root is chosen and there
    bool struktur = false; ///< the filing structure has been read and is not empty
    bool namen = false;    ///< there is a name template
    bool operator==(const Bereitschaft &) const = default;

    [[nodiscard]] bool vollstaendig() const;
    /** Looks at the disk. Blocks, on a network drive perhaps for long. */
    [[nodiscard]] static Bereitschaft pruefen(const Profil &profil);
};
} // namespace quillmar::zustand
