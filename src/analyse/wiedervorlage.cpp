#include "wiedervorlage.h"

#include "stapel.h"
#include "texte.h"
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
        const bool hatText = Texte(db).hatText(g.id);
        stapel.naechstes();
        vorschlaege.wiederOeffnen(g.id, !hatText);
        ++anzahl;
    }
    for (const qint64 dokument : vorschlaege.zweitfragen()) {
        if (id && *id != dokument)
            continue;
        stapel.naechstes();
        anzahl += vorschlaege.zweitfrageOeffnen(dokument) ? 1 : 0;
    }
    stapel.abschliessen();
    return anzahl;
}
} // namespace quillmar::analyse
