#include "gelernteorte.h"

#include "datenbank.h"
#include "transaktion.h"
#include "zeit.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString reihenfolge = u" ORDER BY anzahl DESC, baum DESC, zeit DESC, id"_s;

Ortszahl zahlAus(const Zeile &z)
{
    return {.id = z.ganz(u"id"),
            .ort = {.zweig = z.text(u"zweig"), .ablage = z.text(u"ablage"), .rubrik = z.text(u"rubrik")},
            .anzahl = z.ganz(u"anzahl"),
            .korrekturen = z.ganz(u"korrekturen"),
            .baum = z.ganz(u"baum"),
            .belesen = z.ganz(u"belesen")};
}
} // namespace

QList<Ortszahl> GelernteOrte::orte(const QString &schluessel) const
{
    QList<Ortszahl> liste;
    for (const Zeile &z : m_db.lesen(u"SELECT * FROM gelernte_orte WHERE schluessel=?"_s + reihenfolge, {schluessel}))
        liste << zahlAus(z);
    return liste;
}

QHash<QString, QList<Ortszahl>> GelernteOrte::alle() const
{
    QHash<QString, QList<Ortszahl>> alle;
    m_db.besuchen(u"SELECT * FROM gelernte_orte"_s + reihenfolge, {},
                  [&](const Zeile &z) { alle[z.text(u"schluessel")] << zahlAus(z); });
    return alle;
}

qint64 GelernteOrte::zaehlen(const QString &schluessel, const Ort &ort, qint64 anzahl, qint64 korrekturen)
{
    Transaktion t(m_db);
    m_db.schreiben(
        u"INSERT INTO gelernte_orte (schluessel, zweig, ablage, rubrik, anzahl, korrekturen, zeit)\n"
        "VALUES (?,?,?,?,max(0,?),max(0,?),?)\n"
        "ON CONFLICT(schluessel, zweig, ablage, rubrik) DO UPDATE SET anzahl=max(0,anzahl+?),\n"
        "  korrekturen=max(0,korrekturen+?), zeit=iif(?>0, excluded.zeit, zeit)"_s,
        {schluessel, ort.zweig, ort.ablage, ort.rubrik, anzahl, korrekturen, jetztIso(), anzahl, korrekturen, anzahl});
    const auto id =
        m_db.nummer(u"SELECT id FROM gelernte_orte WHERE schluessel=? AND zweig=? AND ablage=? AND rubrik=?"_s,
                    {schluessel, ort.zweig, ort.ablage, ort.rubrik});
    if (anzahl < 0)
        leereStreichen(schluessel);
    t.abschliessen();
    return id.value_or(0);
}

void GelernteOrte::setzeBaum(const QString &schluessel, const Ort &ort, qint64 anzahl)
{
    Transaktion t(m_db);
    m_db.schreiben(u"INSERT INTO gelernte_orte (schluessel, zweig, ablage, rubrik, baum) VALUES (?,?,?,?,?)\n"
                   "ON CONFLICT(schluessel, zweig, ablage, rubrik) DO UPDATE SET baum=excluded.baum"_s,
                   {schluessel, ort.zweig, ort.ablage, ort.rubrik, anzahl});
    if (anzahl == 0)
        leereStreichen(schluessel);
    t.abschliessen();
}

bool GelernteOrte::kenntBaum() const { return m_db.gibtEs(u"SELECT 1 FROM gelernte_orte WHERE baum>0 LIMIT 1"_s, {}); }

void GelernteOrte::leereStreichen(const QString &schluessel)
{
    m_db.schreiben(u"DELETE FROM gelernte_worte WHERE ort_id IN\n"
                   "(SELECT id FROM gelernte_orte WHERE schluessel=? AND anzahl=0 AND baum=0)"_s,
                   {schluessel});
    m_db.schreiben(u"DELETE FROM gelernte_orte WHERE schluessel=? AND anzahl=0 AND baum=0"_s, {schluessel});
}

void GelernteOrte::streichen(const QString &schluessel)
{
    Transaktion t(m_db);
    m_db.schreiben(u"UPDATE gelernte_orte SET anzahl=0, baum=0 WHERE schluessel=?"_s, {schluessel});
    leereStreichen(schluessel);
    t.abschliessen();
}

void GelernteOrte::streichen(const QString &schluessel, const Ort &ort)
{
    Transaktion t(m_db);
    m_db.schreiben(
        u"UPDATE gelernte_orte SET anzahl=0, baum=0 WHERE schluessel=? AND zweig=? AND ablage=? AND rubrik=?"_s,
        {schluessel, ort.zweig, ort.ablage, ort.rubrik});
    leereStreichen(schluessel);
    t.abschliessen();
}

void GelernteOrte::leeren()
{
    Transaktion t(m_db);
    m_db.schreiben(u"DELETE FROM gelernte_worte"_s);
    m_db.schreiben(u"DELETE FROM gelernte_orte"_s);
    t.abschliessen();
}

void GelernteOrte::worteZaehlen(qint64 ort, const QHash<QString, qint64> &worte, qint64 dokumente)
{
    Transaktion t(m_db);
    for (auto wort = worte.begin(); wort != worte.end(); ++wort)
        m_db.schreiben(u"INSERT INTO gelernte_worte (ort_id, wort, anzahl) VALUES (?,?,?)\n"
                       "ON CONFLICT(ort_id, wort) DO UPDATE SET anzahl=anzahl+excluded.anzahl"_s,
                       {ort, wort.key(), wort.value()});
    if (dokumente < 0)
        m_db.schreiben(u"DELETE FROM gelernte_worte WHERE ort_id=? AND anzahl<=0"_s, {ort});
    m_db.schreiben(u"UPDATE gelernte_orte SET belesen=max(0,max(0,belesen)+?) WHERE id=?"_s, {dokumente, ort});
    t.abschliessen();
}

QHash<QString, qint64> GelernteOrte::worte(qint64 ort, const QStringList &gefragte) const
{
    QHash<QString, qint64> anzahlen;
    for (const QString &wort : gefragte) {
        for (const Zeile &z : m_db.lesen(u"SELECT anzahl FROM gelernte_worte WHERE ort_id=? AND wort=?"_s, {ort, wort}))
            anzahlen.insert(wort, z.ganz(u"anzahl"));
    }
    return anzahlen;
}

QHash<QString, qint64> GelernteOrte::alleWorte(qint64 ort) const
{
    QHash<QString, qint64> anzahlen;
    m_db.besuchen(u"SELECT wort, anzahl FROM gelernte_worte WHERE ort_id=?"_s, {ort},
                  [&](const Zeile &z) { anzahlen.insert(z.text(u"wort"), z.ganz(u"anzahl")); });
    return anzahlen;
}
} // namespace quillmar::katalog
