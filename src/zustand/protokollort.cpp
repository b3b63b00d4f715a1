#include "protokollort.h"

#include "pfade.h"

#include <unistd.h>

namespace quillmar::zustand
{
Protokollort protokollort(const Profil &profil)
{
    const auto ordner = profil.protokollURL();
    if (!ordner)
        return Protokollort::Keiner;
    QString ort = *ordner;
    // Of a drive that is not mounted the target root is missing; it is never made.
    if (profil.protokollOrdner.isEmpty() && !istOrdner(profil.zielWurzel))
        return Protokollort::Unbrauchbar;
    while (!istVorhanden(ort) && ort != ordnerVon(ort))
        ort = ordnerVon(ort);
    const bool offen = istOrdner(ort) && ::access(plattenPfad(ort).constData(), W_OK | X_OK) == 0;
    return offen ? Protokollort::Brauchbar : Protokollort::Unbrauchbar;
}
} // namespace quillmar::zustand
