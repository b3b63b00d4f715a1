// The part of Dateien that tells which documents repeat others.
#include "dateien.h"

#include "datenbank.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString auswahl = u"SELECT d.id, d.pfad, d.dublette_von, o.pfad AS original,\n"
                        "o.id IS NOT NULL AND o.ausgenommen=0 AS bekannt, d.aehnlichkeit>=1 AS bytegleich,\n"
                        "o.sha256=d.sha256 AS gleich,\n"
                        "CASE WHEN d.aehnlichkeit>=1 THEN d.sha256 IS NOT o.sha256\n"
                        "ELSE d.text_hash IS NOT o.text_hash END AS anders\n"
                        "FROM dokumente d LEFT JOIN dokumente o ON o.id=d.dublette_von\n"_s;

Dateien::Dublette aus(const Zeile &z)
{
    return {.id = z.ganz(u"id"),
            .pfad = z.text(u"pfad"),
            .original = z.ganz(u"dublette_von"),
            .originalPfad = z.text(u"original"),
            .bekannt = z.ganz(u"bekannt") == 1,
            .anders = z.ganz(u"anders") == 1,
            .bytegleich = z.ganz(u"bytegleich") == 1,
            .gleicheSumme = z.ganz(u"gleich") == 1};
}
} // namespace

QList<Dateien::Dublette> Dateien::dubletten() const
{
    QList<Dublette> liste;
    m_db.besuchen(auswahl + u"WHERE d.status='dublette' AND d.ausgenommen=0 ORDER BY d.id"_s, {},
                  [&](const Zeile &z) { liste << aus(z); });
    return liste;
}

std::optional<Dateien::Dublette> Dateien::dublette(qint64 id) const
{
    return m_db.eine(auswahl + u"WHERE d.id=?"_s, {id}, aus);
}

void Dateien::alsDubletteMarkieren(qint64 id, qint64 original, double guete)
{
    m_db.schreiben(u"UPDATE dokumente SET status='dublette', dublette_von=?, aehnlichkeit=?\n"
                   "WHERE id=? AND status='neu'"_s,
                   {original, guete, id});
}

void Dateien::dubletteFreigeben(qint64 id)
{
    m_db.schreiben(u"UPDATE dokumente SET status=CASE WHEN vorschlag IS NULL THEN 'neu' ELSE 'bereit' END,\n"
                   "dublette_von=NULL, aehnlichkeit=NULL WHERE id=? AND status='dublette'"_s,
                   {id});
}

QMap<QString, QList<Dateien::Gleiches>> Dateien::gleiche(Gleichheit gleichheit, const QString &ausser) const
{
    const QString spalte = gleichheit == Gleichheit::Bytes ? u"sha256"_s : u"text_hash"_s;
    QMap<QString, QList<Gleiches>> alle;
    m_db.besuchen(u"SELECT id, pfad, status, %1 AS hash FROM dokumente WHERE ausgenommen=0\n"
                  "AND status IN ('neu','bereit','erledigt','zurueckgestellt') AND coalesce(sha256,'')<>?\n"
                  "AND %1 IN (SELECT %1 FROM dokumente WHERE status='neu' AND ausgenommen=0 AND %1<>'')\n"
                  "ORDER BY id"_s.arg(spalte),
                  {ausser}, [&](const Zeile &z) {
                      alle[z.text(u"hash")] << Gleiches{.id = z.ganz(u"id"),
                                                        .pfad = z.text(u"pfad"),
                                                        .neu = statusAus(z.text(u"status")) == Status::Neu};
                  });
    return alle;
}
} // namespace quillmar::katalog
