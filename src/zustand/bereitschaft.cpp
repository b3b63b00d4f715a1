#include "bereitschaft.h"

#include "pfade.h"
#include "werkzeuge.h"

#include <QDir>

namespace quillmar::zustand
{
namespace
{
bool istDa(const QString &ordner) { return !ordner.isEmpty() && istOrdner(QDir::cleanPath(ordner)); }
} // namespace

bool Bereitschaft::vollstaendig() const { return fehlendeWerkzeuge.isEmpty() && quelle && ziel && struktur && namen; }

Bereitschaft Bereitschaft::pruefen(const Profil &profil)
{
    return {.fehlendeWerkzeuge = Werkzeuge::fehlende(),
            .quelle = istDa(profil.quelle),
            .ziel = istDa(profil.zielWurzel),
            .struktur = !profil.zweige.isEmpty(),
            .namen = !profil.namensVorlage.trimmed().isEmpty()};
}
} // namespace quillmar::zustand
