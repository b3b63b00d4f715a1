#include "wiedervorlage.h"

#include "datenbank.h"
#include "stapel.h"

using namespace Qt::StringLiterals;

namespace
{
/** Second opinions that were asked for and never given. */
qint64 zweitfragenOeffnen(Datenbank &db, Stapel &stapel, std::optional<qint64> id)
{
    qint64 anzahl = 0;
    for (const Zeile &zeile : db.abfragen(u"SELECT dokument_id FROM zweitfragen"_s)) {
        const qint64 dokument = zeile.ganz(u"dokument_id");
        if (id && *id != dokument)
            continue;
        const int offen = stapel.schreiben(u"UPDATE dokumente SET zweitmeinung=0\n"
                                           "WHERE id=? AND status='bereit' AND ausgenommen=0 AND zweitmeinung=1"_s,
                                           {dokument});
        if (offen > 0)
            stapel.schreiben(u"DELETE FROM zweitfragen WHERE dokument_id=?"_s, {dokument});
        anzahl += offen;
    }
    return anzahl;
}
} // namespace

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
    anzahl += zweitfragenOeffnen(db, stapel, id);
    stapel.abschliessen();
    return anzahl;
}
