#include "nacharbeit.h"

#include "datenbank.h"
#include "fehlertext.h"
#include "pfade.h"

using namespace Qt::StringLiterals;

Nacharbeit Nacharbeit::lesen(Datenbank &db)
{
    Nacharbeit n;
    for (const Zeile &z : db.abfragen(
             u"SELECT id, pfad, fehler FROM dokumente WHERE status='bereit' AND ausgenommen=0\n"
             "AND (fehler LIKE 'Lesen nicht möglich%' OR fehler LIKE 'Einordnung nicht möglich%') ORDER BY id"_s))
        n.gescheiterte << Gescheitertes{
            .id = z.ganz(u"id"), .name = nameVon(z.text(u"pfad")), .grund = Fehlertext::anzeige(z.text(u"fehler"))};
    for (const Zeile &z :
         db.abfragen(u"SELECT d.id, d.pfad, o.pfad AS original, o.sha256=d.sha256 AS gleich FROM dokumente d\n"
                     "LEFT JOIN dokumente o ON o.id=d.dublette_von\n"
                     "WHERE d.status='dublette' AND d.ausgenommen=0 ORDER BY d.id"_s))
        n.dubletten << Dublette{.id = z.ganz(u"id"),
                                .name = nameVon(z.text(u"pfad")),
                                .original = nameVon(z.text(u"original")),
                                .bytegleich = z.ganz(u"gleich") == 1};
    for (const Zeile &z : db.abfragen(u"SELECT COUNT(*) n FROM zweitfragen z JOIN dokumente d ON d.id=z.dokument_id\n"
                                      "WHERE d.status='bereit' AND d.zweitmeinung=1 AND d.ausgenommen=0"_s))
        n.unbeantwortet = z.ganz(u"n");
    return n;
}
