#include "modellantworten.h"

#include "datenbank.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString wartendesSql =
    u"SELECT d.id, d.gegenueber, d.zweig, d.ablage, d.rubrik, d.konfidenz, d.ort_quelle, d.gelernt_von,\n"
    "d.text_hash, d.modell_zweig, d.modell_ablage, d.modell_rubrik, m.dokument_id IS NOT NULL AS beantwortet,\n"
    "m.gegenueber AS m_gegenueber, m.zweig AS m_zweig, m.ablage AS m_ablage, m.rubrik AS m_rubrik,\n"
    "m.konfidenz AS m_konfidenz, m.ort_quelle AS m_ort_quelle, m.sicher AS m_sicher, m.worte AS m_worte,\n"
    "m.stimmwort, e.felder FROM dokumente d LEFT JOIN modellantworten m ON m.dokument_id=d.id\n"
    "LEFT JOIN entwuerfe e ON e.dokument_id=d.id\n"_s;

Ort ortAus(const Zeile &z, const QString &davor)
{
    return {.zweig = z.text(davor + u"zweig"_s),
            .ablage = z.text(davor + u"ablage"_s),
            .rubrik = z.text(davor + u"rubrik"_s)};
}

std::optional<Modellantwort> antwortAus(const Zeile &z)
{
    if (z.ganz(u"beantwortet") == 0)
        return std::nullopt;
    return Modellantwort{.gegenueber = z.text(u"m_gegenueber"),
                         .ort = ortAus(z, u"m_"_s),
                         .konfidenz = z.komma(u"m_konfidenz"),
                         .ortQuelle = z.text(u"m_ort_quelle"),
                         .sicher = z.ganz(u"m_sicher") != 0,
                         .worte = z.text(u"m_worte").split(u'\n', Qt::SkipEmptyParts)};
}

Modellantworten::Wartendes wartendesAus(const Zeile &z)
{
    return {.id = z.ganz(u"id"),
            .gegenueber = z.text(u"gegenueber"),
            .ort = ortAus(z, {}),
            .konfidenz = z.komma(u"konfidenz"),
            .ortQuelle = z.text(u"ort_quelle"),
            .gelerntVon = z.text(u"gelernt_von"),
            .textHash = z.text(u"text_hash"),
            .modellOrt = ortAus(z, u"modell_"_s),
            .antwort = antwortAus(z),
            .entwurf = z.text(u"felder"),
            .stimmwort = z.text(u"stimmwort")};
}
} // namespace

void Modellantworten::speichern(qint64 dokument, const Modellantwort &a)
{
    m_db.schreiben(u"INSERT INTO modellantworten (dokument_id, gegenueber, zweig, ablage, rubrik,\n"
                   "konfidenz, ort_quelle, sicher, worte) VALUES (?,?,?,?,?,?,?,?,?)\n"
                   "ON CONFLICT(dokument_id) DO UPDATE SET gegenueber=excluded.gegenueber, zweig=excluded.zweig,\n"
                   "  ablage=excluded.ablage, rubrik=excluded.rubrik, konfidenz=excluded.konfidenz,\n"
                   "  ort_quelle=excluded.ort_quelle, sicher=excluded.sicher, worte=excluded.worte"_s,
                   {dokument, a.gegenueber, a.ort.zweig, a.ort.ablage, a.ort.rubrik, a.konfidenz, a.ortQuelle, a.sicher,
                    a.worte.join(u'\n')});
}

void Modellantworten::setzeGegenueber(qint64 dokument, const QString &gegenueber)
{
    m_db.schreiben(u"UPDATE modellantworten SET gegenueber=? WHERE dokument_id=?"_s, {gegenueber, dokument});
}

void Modellantworten::vonHand(qint64 dokument)
{
    m_db.schreiben(u"INSERT INTO modellantworten (dokument_id, von_hand) VALUES (?,1)\n"
                   "ON CONFLICT(dokument_id) DO UPDATE SET von_hand=1, worte=NULL"_s,
                   {dokument});
}

void Modellantworten::zurueckgekehrt(qint64 dokument)
{
    Transaktion t(m_db);
    vonHand(dokument);
    m_db.schreiben(u"UPDATE dokumente SET (konfidenz, ort_quelle, gelernt_von) =\n"
                   "(SELECT konfidenz, ort_quelle, '' FROM modellantworten WHERE dokument_id=?)\n"
                   "WHERE id=? AND ort_quelle='gelernt'\n"
                   "AND EXISTS (SELECT 1 FROM modellantworten WHERE dokument_id=? AND ort_quelle IS NOT NULL)"_s,
                   {dokument, dokument, dokument});
    t.abschliessen();
}

std::optional<QString> Modellantworten::gegenueber(qint64 dokument) const
{
    return m_db.eine(u"SELECT gegenueber FROM modellantworten WHERE dokument_id=? AND ort_quelle IS NOT NULL"_s,
                     {dokument}, [](const Zeile &z) { return z.text(u"gegenueber"); });
}

void Modellantworten::streichen(qint64 dokument)
{
    m_db.schreiben(u"DELETE FROM modellantworten WHERE dokument_id=?"_s, {dokument});
}

void Modellantworten::oeffnen(qint64 dokument)
{
    m_db.schreiben(u"UPDATE modellantworten SET sicher=0 WHERE dokument_id=?"_s, {dokument});
}

QList<Modellantworten::Wartendes> Modellantworten::wartendeVon(const QString &gegenueber) const
{
    QList<Wartendes> liste;
    m_db.besuchen(wartendesSql +
                      u"WHERE d.status='bereit' AND d.ausgenommen=0 AND d.gegenueber=? AND coalesce(m.von_hand,0)=0"_s,
                  {gegenueber}, [&](const Zeile &z) { liste << wartendesAus(z); });
    return liste;
}

std::optional<Modellantworten::Wartendes> Modellantworten::zurueckgekehrtes(qint64 dokument) const
{
    return m_db.eine(wartendesSql + u"WHERE d.id=? AND m.von_hand=1 AND m.ort_quelle IS NOT NULL"_s, {dokument},
                     wartendesAus);
}

void Modellantworten::schreiben(qint64 dokument, const Werte &w)
{
    m_db.schreiben(
        u"UPDATE dokumente SET gegenueber=?, zweig=?, ablage=?, rubrik=?, konfidenz=?,\n"
        "ort_quelle=?, gelernt_von=? WHERE id=?"_s,
        {w.gegenueber, w.ort.zweig, w.ort.ablage, w.ort.rubrik, w.konfidenz, w.ortQuelle, w.gelerntVon, dokument});
}

void Modellantworten::setzeStimme(qint64 dokument, const QString &wort, qint64 stimmen)
{
    m_db.schreiben(u"UPDATE modellantworten SET stimmwort=?, stimmen=? WHERE dokument_id=?"_s,
                   {wort, stimmen, dokument});
}

std::optional<Modellantworten::Stimme> Modellantworten::stimme(qint64 dokument) const
{
    return m_db.eine(
        u"SELECT stimmwort, stimmen FROM modellantworten WHERE dokument_id=? AND stimmwort<>''"_s, {dokument},
        [](const Zeile &z) { return Stimme{.wort = z.text(u"stimmwort"), .dokumente = z.ganz(u"stimmen")}; });
}

QStringList Modellantworten::abgelegteTexte(const QStringList &namen, const Ort &ort, int hoechstens) const
{
    QStringList texte;
    for (const QString &name : namen) {
        m_db.besuchen(u"SELECT t.text FROM dokumente d JOIN texte t ON t.dokument_id=d.id\n"
                      "WHERE d.ausgenommen=0 AND d.status='erledigt' AND d.gegenueber=? AND d.zweig=? AND d.ablage=?\n"
                      "AND d.rubrik=? ORDER BY d.id DESC LIMIT ?"_s,
                      {name, ort.zweig, ort.ablage, ort.rubrik, hoechstens - texte.size()},
                      [&](const Zeile &z) { texte << z.text(u"text"); });
    }
    return texte;
}

QStringList Modellantworten::abgelegteGegenueber() const
{
    QStringList namen;
    m_db.besuchen(u"SELECT DISTINCT gegenueber FROM dokumente\n"
                  "WHERE status='erledigt' AND ausgenommen=0 AND gegenueber <> ''"_s,
                  {}, [&](const Zeile &z) { namen << z.text(u"gegenueber"); });
    return namen;
}
QMap<QString, Ort> Modellantworten::abgelegteOrte() const
{
    QMap<QString, Ort> orte;
    m_db.besuchen(u"SELECT gegenueber, zweig, ablage, rubrik FROM dokumente\n"
                  "WHERE ausgenommen=0 AND status='erledigt' AND gegenueber <> ''\n"
                  "GROUP BY gegenueber, zweig, ablage, rubrik ORDER BY gegenueber, COUNT(*) DESC"_s,
                  {}, [&](const Zeile &z) {
                      if (const QString name = z.text(u"gegenueber"); !orte.contains(name))
                          orte.insert(name, ortAus(z, {}));
                  });
    return orte;
}
} // namespace quillmar::katalog
