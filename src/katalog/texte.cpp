#include "texte.h"

#include "datenbank.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
std::optional<QString> Texte::text(qint64 id) const
{
    return m_db.eine(u"SELECT text FROM texte WHERE dokument_id=?"_s, {id},
                     [](const Zeile &z) { return z.text(u"text"); });
}

bool Texte::istEbeneVerworfen(qint64 id) const
{
    return m_db.gibtEs(u"SELECT 1 FROM verworfene_textebenen WHERE dokument_id=?"_s, {id});
}

bool Texte::hatText(qint64 id) const
{
    return m_db.gibtEs(u"SELECT 1 FROM texte WHERE dokument_id=? AND text<>''"_s, {id});
}

QList<qint64> Texte::zuLesende() const
{
    return m_db.nummern(
        u"SELECT id FROM dokumente WHERE text_hash IS NULL AND status IN ('neu','bereit') AND ausgenommen=0\n"
        "ORDER BY id"_s);
}

std::optional<QString> Texte::pfadZumLesen(qint64 id) const
{
    return m_db.eine(u"SELECT pfad FROM dokumente WHERE id=? AND text_hash IS NULL\n"
                     "AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                     {id}, [](const Zeile &z) { return z.text(u"pfad"); });
}

void Texte::speichern(qint64 id, const Gelesenes &g)
{
    Transaktion t(m_db);
    const int geschrieben = m_db.schreiben(u"UPDATE dokumente SET text_hash=?, hat_textebene=?, skizze=? WHERE id=?\n"
                                           "AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                                           {g.textHash, g.textebene, g.skizze, id});
    if (geschrieben > 0) {
        m_db.schreiben(u"INSERT OR REPLACE INTO texte (dokument_id, text) VALUES (?,?)"_s, {id, g.text});
        Seitenlagen(m_db).speichern(id, g.lagen);
        m_db.schreiben(g.ebeneVerworfen ? u"INSERT OR IGNORE INTO verworfene_textebenen (dokument_id) VALUES (?)"_s
                                        : u"DELETE FROM verworfene_textebenen WHERE dokument_id=?"_s,
                       {id});
    }
    t.abschliessen();
}

void Texte::scheitern(qint64 id, const QString &fehler)
{
    m_db.schreiben(u"UPDATE dokumente SET text_hash='', fehler=?\n"
                   "WHERE id=? AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                   {fehler, id});
}

QString Texte::skizze(qint64 id) const
{
    return m_db
        .eine(u"SELECT skizze FROM dokumente WHERE id=?"_s, {id}, [](const Zeile &z) { return z.text(u"skizze"); })
        .value_or(QString());
}

void Texte::jedeSkizze(bool neue, const std::function<void(qint64, const QString &)> &besuch) const
{
    const QString welche = neue ? u"status='neu'"_s : u"status IN ('bereit','erledigt','zurueckgestellt')"_s;
    m_db.besuchen(u"SELECT id, skizze FROM dokumente WHERE skizze IS NOT NULL AND ausgenommen=0 AND "_s + welche, {},
                  [&](const Zeile &z) { besuch(z.ganz(u"id"), z.text(u"skizze")); });
}

bool Texte::verbinden(qint64 id, qint64 partner, double aehnlichkeit)
{
    return m_db.schreiben(u"UPDATE dokumente SET aehnlich_zu=?, aehnlichkeit=?\n"
                          "WHERE id=? AND status='neu' AND aehnlich_zu IS NULL"_s,
                          {partner, aehnlichkeit, id}) > 0;
}

bool Texte::istVerbunden(qint64 id, qint64 partner) const
{
    return m_db.gibtEs(u"SELECT 1 FROM dokumente WHERE id=? AND aehnlich_zu=?"_s, {id, partner});
}

void Texte::jedesOffene(const std::function<void(const Dokument &, const QString &)> &besuch) const
{
    m_db.besuchen(u"SELECT d.*, t.text FROM dokumente d JOIN texte t ON t.dokument_id = d.id\n"
                  "WHERE d.status IN ('bereit','zurueckgestellt') AND d.ausgenommen=0"_s,
                  {}, [&](const Zeile &z) { besuch(Dokument::aus(z), z.text(u"text")); });
}
} // namespace quillmar::katalog
