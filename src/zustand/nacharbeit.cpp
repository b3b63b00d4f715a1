#include "nacharbeit.h"

#include "dateien.h"
#include "fehlertext.h"
#include "pfade.h"
#include "vorschlaege.h"

namespace quillmar::zustand
{
Nacharbeit Nacharbeit::lesen(Datenbank &db)
{
    Nacharbeit n;
    const Vorschlaege vorschlaege(db);
    for (const Vorschlaege::Gescheitertes &g : vorschlaege.gescheiterte())
        n.gescheiterte << Gescheitertes{.id = g.id,
                                        .name = nameVon(g.pfad),
                                        .ordner = nameVon(ordnerVon(g.pfad)),
                                        .grund = Fehlertext::anzeige(g.fehler)};
    for (const Dateien::Dublette &d : Dateien(db).dubletten())
        n.dubletten << Dublette{
            .id = d.id, .name = nameVon(d.pfad), .original = nameVon(d.originalPfad), .bytegleich = d.gleicheSumme};
    n.unbeantwortet = vorschlaege.unbeantwortete();
    return n;
}
} // namespace quillmar::zustand
