#include "wiedervorlage.h"

#include "datenbank.h"
#include "stapel.h"

using namespace Qt::StringLiterals;

qint64 Wiedervorlage::oeffnen(Datenbank &db, std::optional<qint64> id)
{
    Stapel stapel(db);
    qint64 anzahl = 0;
    const QList<Zeile> gescheiterte =
        db.abfragen(u"SELECT d.id, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id\n"
                    "WHERE d.status='bereit' AND d.ausgenommen=0\n"
                    "AND (d.fehler LIKE 'Lesen nicht möglich%' OR d.fehler LIKE 'Einordnung nicht möglich%')"_s);
    for (const Zeile &zeile : gescheiterte) {
        if (id && *id != zeile.ganz(u"id"))
            continue;
        stapel.schreiben(u"UPDATE dokumente SET status='neu', fehler=NULL, vorschlag=NULL, zweitmeinung=NULL\n"
                         "WHERE id=? AND status='bereit'"_s,
                         {zeile.ganz(u"id")});
        stapel.schreiben(u"DELETE FROM nachgeprueft WHERE dokument_id=?"_s, {zeile.ganz(u"id")});
        if (zeile.text(u"text").isEmpty())
            stapel.schreiben(u"UPDATE dokumente SET text_hash=NULL WHERE id=?"_s, {zeile.ganz(u"id")});
        ++anzahl;
    }
    stapel.abschliessen();
    return anzahl;
}
