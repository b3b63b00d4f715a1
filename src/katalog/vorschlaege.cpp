#include "vorschlaege.h"

#include "datenbank.h"
#include "modellantworten.h"
#include "transaktion.h"
#include "zeit.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString mitText = u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id\n"_s;

const QString nochZuFragen = u"d.status='bereit' AND (d.zweitmeinung IS NULL OR d.zweitmeinung=0)\n"
                             "AND (d.ort_quelle='umsortierung' OR d.konfidenz < 0.75)\n"
                             "AND (d.ort_quelle IS NULL OR d.ort_quelle<>'gelernt') AND d.ausgenommen=0\n"
                             // What the reviewer has decided stays, also when it came back.
                             "AND NOT EXISTS (SELECT 1 FROM modellantworten m\n"
                             "WHERE m.dokument_id=d.id AND m.von_hand=1)"_s;

Vorschlaege::Vorlage vorlageAus(const Zeile &z) { return {.dokument = Dokument::aus(z), .text = z.text(u"text")}; }
} // namespace

QList<qint64> Vorschlaege::einzuordnende() const
{
    return m_db.nummern(
        u"SELECT id FROM dokumente WHERE status='neu' AND vorschlag IS NULL AND ausgenommen=0 ORDER BY id"_s);
}

std::optional<Vorschlaege::Vorlage> Vorschlaege::einzuordnendes(qint64 id) const
{
    return m_db.eine(mitText + u"WHERE d.id=? AND d.status='neu' AND d.vorschlag IS NULL AND d.ausgenommen=0"_s, {id},
                     vorlageAus);
}

bool Vorschlaege::speichern(qint64 id, const Vorschlag &v)
{
    const Angaben &a = v.angaben;
    return m_db.schreiben(u"UPDATE dokumente SET status='bereit', datum=?, gegenueber=?, titel=?, zweig=?,\n"
                          "ablage=?, rubrik=?, jahr=?, konfidenz=?, vorschlag=?, zeit=?,\n"
                          "modell_zweig=?, modell_ablage=?, modell_rubrik=?, ort_quelle=?,\n"
                          "gelernt_von=? WHERE id=? AND status='neu' AND ausgenommen=0"_s,
                          {a.datum, a.gegenueber, a.titel, a.ort.zweig, a.ort.ablage, a.ort.rubrik, a.jahr, v.konfidenz,
                           v.name, v.dauer, v.modellOrt.zweig, v.modellOrt.ablage, v.modellOrt.rubrik, v.ortQuelle,
                           v.gelerntVon, id}) > 0;
}

bool Vorschlaege::scheitern(qint64 id, const QString &name, const QString &fehler, const QString &dauer)
{
    return m_db.schreiben(u"UPDATE dokumente SET status='bereit', konfidenz=0, vorschlag=?, fehler=?, zeit=?\n"
                          "WHERE id=? AND status='neu' AND ausgenommen=0"_s,
                          {name, fehler, dauer, id}) > 0;
}

QList<qint64> Vorschlaege::strittige() const
{
    return m_db.nummern(u"SELECT d.id FROM dokumente d WHERE "_s + nochZuFragen + u" ORDER BY d.id"_s);
}

std::optional<Vorschlaege::Vorlage> Vorschlaege::strittiges(qint64 id) const
{
    return m_db.eine(mitText + u"WHERE d.id=? AND "_s + nochZuFragen, {id}, vorlageAus);
}

bool Vorschlaege::nachpruefen(qint64 id, const Angaben &a, double konfidenz, const std::optional<QString> &gelerntVon)
{
    Transaktion t(m_db);
    const int geschrieben = m_db.schreiben(
        u"UPDATE dokumente SET datum=?, gegenueber=?, titel=?, zweig=?, ablage=?, rubrik=?,\n"
        "jahr=?, konfidenz=?, zweitmeinung=1, fehler=NULL WHERE id=? AND status='bereit'\n"
        "AND ausgenommen=0 AND (ort_quelle IS NULL OR ort_quelle<>'gelernt')\n"
        "AND NOT EXISTS (SELECT 1 FROM modellantworten m WHERE m.dokument_id=dokumente.id AND m.von_hand=1)"_s,
        {a.datum, a.gegenueber, a.titel, a.ort.zweig, a.ort.ablage, a.ort.rubrik, a.jahr, konfidenz, id});
    if (geschrieben == 0)
        return false;
    m_db.schreiben(u"INSERT OR IGNORE INTO nachgeprueft (dokument_id) VALUES (?)"_s, {id});
    if (gelerntVon)
        m_db.schreiben(u"UPDATE dokumente SET ort_quelle='gelernt', gelernt_von=? WHERE id=?"_s, {*gelerntVon, id});
    m_db.schreiben(u"DELETE FROM zweitfragen WHERE dokument_id=?"_s, {id});
    t.abschliessen();
    return true;
}

void Vorschlaege::nichtNachgeprueft(qint64 id, bool unbeantwortet)
{
    Transaktion t(m_db);
    const int geschrieben =
        m_db.schreiben(u"UPDATE dokumente SET zweitmeinung=1 WHERE id=? AND status='bereit' AND ausgenommen=0"_s, {id});
    if (geschrieben > 0 && unbeantwortet)
        m_db.schreiben(u"INSERT OR REPLACE INTO zweitfragen (dokument_id, zeit) VALUES (?,?)"_s, {id, jetztIso()});
    t.abschliessen();
}

bool Vorschlaege::istNachgeprueft(qint64 id) const
{
    return m_db.gibtEs(u"SELECT 1 FROM nachgeprueft WHERE dokument_id=?"_s, {id});
}

qint64 Vorschlaege::unbeantwortete() const
{
    return m_db.zahl(u"SELECT COUNT(*) n FROM zweitfragen z JOIN dokumente d ON d.id=z.dokument_id\n"
                     "WHERE d.status='bereit' AND d.zweitmeinung=1 AND d.ausgenommen=0"_s);
}

QList<Vorschlaege::Gescheitertes> Vorschlaege::gescheiterte() const
{
    QList<Gescheitertes> liste;
    m_db.besuchen(u"SELECT id, pfad, fehler FROM dokumente WHERE status='bereit' AND ausgenommen=0\n"
                  "AND (fehler LIKE 'Lesen nicht möglich%' OR fehler LIKE 'Einordnung nicht möglich%') ORDER BY id"_s,
                  {}, [&](const Zeile &z) {
                      liste << Gescheitertes{.id = z.ganz(u"id"), .pfad = z.text(u"pfad"), .fehler = z.text(u"fehler")};
                  });
    return liste;
}

void Vorschlaege::wiederOeffnen(qint64 id, bool lesen)
{
    Transaktion t(m_db);
    m_db.schreiben(u"UPDATE dokumente SET status='neu', fehler=NULL, vorschlag=NULL, zweitmeinung=NULL\n"
                   "WHERE id=? AND status='bereit'"_s,
                   {id});
    m_db.schreiben(u"DELETE FROM nachgeprueft WHERE dokument_id=?"_s, {id});
    Modellantworten(m_db).streichen(id);
    if (lesen)
        m_db.schreiben(u"UPDATE dokumente SET text_hash=NULL WHERE id=?"_s, {id});
    t.abschliessen();
}

QList<qint64> Vorschlaege::zweitfragen() const { return m_db.nummern(u"SELECT dokument_id AS id FROM zweitfragen"_s); }

bool Vorschlaege::zweitfrageOeffnen(qint64 id)
{
    Transaktion t(m_db);
    const int offen = m_db.schreiben(u"UPDATE dokumente SET zweitmeinung=0\n"
                                     "WHERE id=? AND status='bereit' AND ausgenommen=0 AND zweitmeinung=1"_s,
                                     {id});
    if (offen > 0)
        m_db.schreiben(u"DELETE FROM zweitfragen WHERE dokument_id=?"_s, {id});
    t.abschliessen();
    return offen > 0;
}
} // namespace quillmar::katalog
