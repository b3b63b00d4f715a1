#include "dateien.h"

#include "datenbank.h"
#include "seitenlagen.h"
#include "transaktion.h"
#include "zeit.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString standspalten = u"d.sha256, coalesce(s.groesse, d.groesse, -1) AS bytes, s.geaendert, s.geprueft,\n"
                             "s.dokument_id IS NOT NULL AS notiert"_s;

Dateinotiz standAus(const Zeile &z)
{
    return {.sha256 = z.text(u"sha256"),
            .groesse = z.ganz(u"bytes"),
            .geaendert = z.ganz(u"geaendert"),
            .notiert = z.ganz(u"notiert") == 1,
            .geprueft = z.ganz(u"geprueft") == 1};
}

/** For a new row: nothing, which lets SQLite choose, unless numbers above all that are there were given out before. */
const QString nummer = u"(SELECT bis+1 FROM vergebene_nummern\n"
                       "WHERE bis>=(SELECT coalesce(MAX(id),0) FROM dokumente))"_s;

Dateien::Verzeichnetes verzeichnetesAus(const Zeile &z)
{
    return {.id = z.ganz(u"id"), .pfad = z.text(u"pfad"), .sha256 = z.text(u"sha256")};
}
} // namespace

Dateien::Verzeichnis Dateien::verzeichnis() const
{
    Verzeichnis v;
    m_db.besuchen(u"SELECT d.id, d.pfad, d.status, a.dokument_id IS NOT NULL AS abwesend, "_s + standspalten +
                      u"\nFROM dokumente d LEFT JOIN dateistand s ON s.dokument_id=d.id\n"
                      "LEFT JOIN abwesend a ON a.dokument_id=d.id WHERE d.pfad IS NOT NULL AND d.ausgenommen=0"_s,
                  {}, [&v](const Zeile &z) {
                      v.insert(z.text(u"pfad"), {.id = z.ganz(u"id"),
                                                 .status = statusAus(z.text(u"status")),
                                                 .abwesend = z.ganz(u"abwesend") == 1,
                                                 .stand = standAus(z)});
                  });
    return v;
}

std::optional<Dateinotiz> Dateien::stand(qint64 id) const
{
    return m_db.eine(u"SELECT "_s + standspalten +
                         u"\nFROM dokumente d LEFT JOIN dateistand s ON s.dokument_id=d.id WHERE d.id=?"_s,
                     {id}, standAus);
}

void Dateien::jederPfad(const std::function<void(const QString &)> &besuch) const
{
    m_db.besuchen(u"SELECT pfad FROM dokumente WHERE pfad IS NOT NULL"_s, {},
                  [&](const Zeile &z) { besuch(z.text(u"pfad")); });
}

QStringList Dateien::offeneUnter(const QString &ordner) const
{
    QStringList pfade;
    m_db.besuchen(u"SELECT pfad FROM dokumente WHERE status IN ('neu','laeuft','bereit','zurueckgestellt','dublette')\n"
                  "AND substr(pfad,1,length(?))=?"_s,
                  {ordner, ordner}, [&](const Zeile &z) { pfade << z.text(u"pfad"); });
    return pfade;
}

bool Dateien::aufnehmen(const Fund &f, qint64 seit)
{
    // Not what has been moved away from there since the walk began: the next inventory looks again.
    return m_db.schreiben(u"INSERT OR IGNORE INTO dokumente (id, pfad, dateiname, alt_ordner, groesse)\n"
                          "SELECT "_s +
                              nummer +
                              u",?,?,?,? WHERE NOT EXISTS (SELECT 1 FROM protokoll WHERE id>? AND von_pfad=?)"_s,
                          {f.pfad, f.name, f.ordner, f.groesse, seit, f.pfad}) > 0;
}

std::optional<Dateien::Verzeichnetes> Dateien::anPfad(const QString &pfad) const
{
    return m_db.eine(u"SELECT id, pfad, sha256 FROM dokumente WHERE pfad=?"_s, {pfad}, verzeichnetesAus);
}

std::optional<Dateien::Verzeichnetes> Dateien::mitNummer(qint64 id) const
{
    return m_db.eine(u"SELECT id, pfad, sha256 FROM dokumente WHERE id=?"_s, {id}, verzeichnetesAus);
}

qint64 Dateien::nachtragen(qint64 id, const Fund &f, const QString &summe)
{
    const bool frei = id > 0 && !mitNummer(id);
    const QVariant pfad = f.pfad.isEmpty() ? QVariant() : QVariant(f.pfad);
    m_db.schreiben(u"INSERT INTO dokumente (id, pfad, dateiname, alt_ordner, groesse, sha256) VALUES ("_s +
                       (frei ? QString::number(id) : nummer) + u",?,?,?,?,?)"_s,
                   {pfad, f.name, f.ordner, f.groesse, summe});
    return frei ? id : m_db.zahl(u"SELECT MAX(id) n FROM dokumente"_s);
}

void Dateien::nummernVergeben(qint64 bis)
{
    Transaktion t(m_db);
    m_db.schreiben(u"INSERT INTO vergebene_nummern (bis) VALUES (max(?, coalesce((SELECT MAX(bis) FROM\n"
                   "vergebene_nummern),0)))"_s,
                   {bis});
    m_db.schreiben(u"DELETE FROM vergebene_nummern WHERE bis<(SELECT MAX(bis) FROM vergebene_nummern) OR\n"
                   "rowid<(SELECT MAX(rowid) FROM vergebene_nummern)"_s);
    t.abschliessen();
}

void Dateien::standNotieren(qint64 id, qint64 groesse, qint64 geaendert, bool geprueft)
{
    m_db.schreiben(u"INSERT OR REPLACE INTO dateistand (dokument_id, groesse, geaendert, geprueft)\n"
                   "VALUES (?,?,?,?)"_s,
                   {id, groesse, geaendert, geprueft});
}

void Dateien::gelesenVermerken(const Fund &f, qint64 geaendert, const QString &summe)
{
    Transaktion t(m_db);
    m_db.schreiben(u"UPDATE dokumente SET sha256=? WHERE pfad=?"_s, {summe, f.pfad});
    m_db.schreiben(u"INSERT OR REPLACE INTO dateistand (dokument_id, groesse, geaendert, geprueft)\n"
                   "SELECT id, ?, ?, 1 FROM dokumente WHERE pfad=?"_s,
                   {f.groesse, geaendert, f.pfad});
    t.abschliessen();
}

void Dateien::zurueckgekehrt(qint64 id)
{
    m_db.schreiben(u"UPDATE dokumente SET status=CASE WHEN vorschlag IS NULL THEN 'neu' ELSE 'bereit' END\n"
                   "WHERE id=? AND status='fehlt'"_s,
                   {id});
}

void Dateien::wiederDa(qint64 id)
{
    Transaktion t(m_db);
    m_db.schreiben(u"UPDATE dokumente SET status='neu', fehler=NULL, vorschlag=NULL, zweitmeinung=NULL,\n"
                   "text_hash=(SELECT d.text_hash FROM dokumente d JOIN texte t ON t.dokument_id=d.id\n"
                   "WHERE d.id=? AND t.text<>'') WHERE id=? AND (status='fehlt' OR status IN ('neu','bereit')\n"
                   "AND (fehler LIKE 'Lesen nicht möglich%' OR fehler LIKE 'Einordnung nicht möglich%'))"_s,
                   {id, id});
    abwesendStreichen(id);
    t.abschliessen();
}

bool Dateien::neuFassen(qint64 id, const Fund &f, const QString &summe)
{
    Transaktion t(m_db);
    const int geaendert =
        m_db.schreiben(u"UPDATE dokumente SET groesse=?, sha256=?, text_hash=NULL, skizze=NULL, fehler=NULL,\n"
                       "hat_textebene=0, aehnlich_zu=NULL, aehnlichkeit=NULL\n"
                       "WHERE id=? AND pfad=? AND status IN ('neu','laeuft')"_s,
                       {f.groesse, summe, id, f.pfad});
    if (geaendert > 0) {
        m_db.schreiben(u"DELETE FROM texte WHERE dokument_id=?"_s, {id});
        Seitenlagen(m_db).streichen(id);
    }
    t.abschliessen();
    return geaendert > 0;
}

void Dateien::abwesendVermerken(qint64 id)
{
    m_db.schreiben(u"INSERT OR IGNORE INTO abwesend (dokument_id) VALUES (?)"_s, {id});
}

void Dateien::abwesendStreichen(qint64 id) { m_db.schreiben(u"DELETE FROM abwesend WHERE dokument_id=?"_s, {id}); }

bool Dateien::pfadFreigeben(qint64 id, const QString &pfad)
{
    Transaktion t(m_db);
    const int frei = m_db.schreiben(
        u"UPDATE dokumente SET pfad=NULL, status=CASE WHEN status IN\n"
        "('neu','laeuft','bereit','zurueckgestellt','dublette') THEN 'fehlt' ELSE status END WHERE id=? AND pfad=?"_s,
        {id, pfad});
    if (frei == 0)
        return false;
    m_db.schreiben(u"INSERT INTO fruehere_pfade (dokument_id, pfad, zeit) VALUES (?,?,?)"_s, {id, pfad, jetztIso()});
    m_db.schreiben(u"DELETE FROM dateistand WHERE dokument_id=?"_s, {id});
    t.abschliessen();
    return true;
}

void Dateien::platzFreimachen(const QString &pfad, qint64 ausser)
{
    Transaktion t(m_db);
    for (const Zeile &z : m_db.lesen(u"SELECT id FROM dokumente WHERE pfad=? AND id<>?"_s, {pfad, ausser}))
        pfadFreigeben(z.ganz(u"id"), pfad);
    t.abschliessen();
}

void Dateien::ersetzen(qint64 id, qint64 groesse)
{
    Transaktion t(m_db);
    for (const Zeile &z :
         m_db.lesen(u"SELECT pfad, dateiname, alt_ordner FROM dokumente WHERE id=? AND pfad IS NOT NULL"_s, {id})) {
        if (pfadFreigeben(id, z.text(u"pfad")))
            m_db.schreiben(u"INSERT OR IGNORE INTO dokumente (id, pfad, dateiname, alt_ordner, groesse)\nVALUES ("_s +
                               nummer + u",?,?,?,?)"_s,
                           {z.text(u"pfad"), z.text(u"dateiname"), z.text(u"alt_ordner"), groesse});
    }
    t.abschliessen();
}

QList<Dateien::Ohnesumme> Dateien::ohnePruefsumme() const
{
    QList<Ohnesumme> liste;
    m_db.besuchen(u"SELECT id, pfad FROM dokumente WHERE sha256 IS NULL AND pfad IS NOT NULL AND ausgenommen=0"_s, {},
                  [&](const Zeile &z) { liste << Ohnesumme{.id = z.ganz(u"id"), .pfad = z.text(u"pfad")}; });
    return liste;
}

bool Dateien::setzePruefsumme(qint64 id, const QString &summe)
{
    return m_db.schreiben(u"UPDATE dokumente SET sha256=? WHERE id=? AND sha256 IS NULL"_s, {summe, id}) > 0;
}

QStringList Dateien::orte(qint64 id) const
{
    QStringList pfade;
    for (const Zeile &z : m_db.lesen(u"SELECT pfad FROM dokumente WHERE id=? AND pfad IS NOT NULL\n"
                                     "UNION SELECT nach_pfad FROM protokoll\n"
                                     "WHERE dokument_id=? AND kopiert=1 AND rueckgaengig=0"_s,
                                     {id, id}))
        pfade << z.text(u"pfad");
    return pfade;
}
} // namespace quillmar::katalog
