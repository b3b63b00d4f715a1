#include "wiedervorlage.h"

#include "stapel.h"
#include "vorschlaege.h"

namespace quillmar::analyse
{
qint64 Wiedervorlage::oeffnen(Datenbank &db, std::optional<qint64> id)
{
    Vorschlaege vorschlaege(db);
    Stapel stapel(db);
    qint64 anzahl = 0;
    for (const Vorschlaege::Gescheitertes &g : vorschlaege.gescheiterte()) {
        if (id && *id != g.id)
            continue;
        stapel.naechstes();
        vorschlaege.wiederOeffnen(g.id, !g.hatText);
        ++anzahl;
    }
    stapel.naechstes();
    anzahl += vorschlaege.zweitfragenOeffnen(id);
    stapel.abschliessen();
    return anzahl;
}
} // namespace quillmar::analyse
