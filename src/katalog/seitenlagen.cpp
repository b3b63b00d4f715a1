#include "seitenlagen.h"

#include "datenbank.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
void Seitenlagen::speichern(qint64 dokument, const QList<Seitenlage> &lagen)
{
    Transaktion t(m_db);
    m_db.schreiben(u"DELETE FROM seitenlagen WHERE dokument_id=? AND von_hand=0"_s, {dokument});
    for (const Seitenlage &lage : lagen) {
        if (lage.drehung != 0 || lage.neigung != 0)
            m_db.schreiben(u"INSERT OR IGNORE INTO seitenlagen (dokument_id, seite, drehung, neigung)\n"
                           "VALUES (?,?,?,?)"_s,
                           {dokument, lage.seite, lage.drehung, lage.neigung});
    }
    t.abschliessen();
}

void Seitenlagen::vonHand(qint64 dokument, int seite, int drehung)
{
    m_db.schreiben(u"INSERT INTO seitenlagen (dokument_id, seite, drehung, neigung, von_hand) VALUES (?,?,?,0,1)\n"
                   "ON CONFLICT(dokument_id, seite) DO UPDATE SET drehung=excluded.drehung, von_hand=1"_s,
                   {dokument, seite, drehung});
}

void Seitenlagen::streichen(qint64 dokument)
{
    m_db.schreiben(u"DELETE FROM seitenlagen WHERE dokument_id=?"_s, {dokument});
}

QMap<int, int> Seitenlagen::drehungen(qint64 dokument) const
{
    QMap<int, int> drehungen;
    m_db.besuchen(u"SELECT seite, drehung FROM seitenlagen WHERE dokument_id=? AND drehung<>0"_s, {dokument},
                  [&](const Zeile &z) { drehungen.insert(int(z.ganz(u"seite")), int(z.ganz(u"drehung"))); });
    return drehungen;
}
} // namespace quillmar::katalog
