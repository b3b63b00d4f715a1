#include "bewegungen.h"

#include "datenbank.h"
#include "zeit.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString standauswahl = u"SELECT p.id, p.rueckgaengig, p.zeit, d.pfad, n.name,\n"
                             "EXISTS (SELECT 1 FROM dokumente o WHERE o.pfad=p.von_pfad AND o.id<>p.dokument_id\n"
                             "AND o.status<>'fehlt' AND o.id NOT IN (SELECT dokument_id FROM abwesend)) AS vergeben\n"
                             "FROM protokoll p LEFT JOIN dokumente d ON d.id=p.dokument_id\n"
                             "LEFT JOIN schreibweisen n ON n.protokoll_id=p.id\n"_s;

Bewegungen::Stand standAus(const Zeile &z)
{
    return {.id = z.ganz(u"id"),
            .zurueck = z.ganz(u"rueckgaengig") == 1,
            .zeit = z.text(u"zeit"),
            .pfad = z.text(u"pfad"),
            .platzVergeben = z.ganz(u"vergeben") == 1,
            .vonName = QByteArray::fromPercentEncoding(z.text(u"name").toLatin1())};
}

Bewegung bewegungAus(const Zeile &z)
{
    return {.id = z.ganz(u"id"),
            .dokument = z.ganz(u"dokument_id"),
            .zeit = z.text(u"zeit"),
            .aktion = z.text(u"aktion"),
            .von = z.text(u"von_pfad"),
            .nach = z.text(u"nach_pfad"),
            .altStatus = z.text(u"alt_status"),
            .kopiert = z.ganz(u"kopiert") == 1,
            .zurueck = z.ganz(u"rueckgaengig") == 1,
            .vonName = QByteArray::fromPercentEncoding(z.text(u"name").toLatin1())};
}

qint64 deckel(std::optional<qint64> vor) { return vor.value_or(std::numeric_limits<qint64>::max()); }
} // namespace

std::optional<Bewegung> Bewegungen::eine(qint64 id) const
{
    return m_db.eine(
        u"SELECT p.*, n.name FROM protokoll p LEFT JOIN schreibweisen n ON n.protokoll_id=p.id WHERE p.id=?"_s, {id},
        bewegungAus);
}

qint64 Bewegungen::neueste() const { return m_db.zahl(u"SELECT MAX(id) n FROM protokoll"_s); }

std::optional<qint64> Bewegungen::letzte(std::optional<qint64> vor) const
{
    return m_db.nummer(u"SELECT id FROM protokoll WHERE rueckgaengig=0 AND id<? ORDER BY id DESC LIMIT 1"_s,
                       {deckel(vor)});
}

std::optional<qint64> Bewegungen::letzteEinzelne(std::optional<qint64> vor) const
{
    return m_db.nummer(u"SELECT id FROM protokoll WHERE rueckgaengig=0 AND id<?\n"
                       "AND id NOT IN (SELECT protokoll_id FROM tatposten WHERE protokoll_id=protokoll.id)\n"
                       "ORDER BY id DESC LIMIT 1"_s,
                       {deckel(vor)});
}

qint64 Bewegungen::eintragen(const Bewegung &b)
{
    m_db.schreiben(u"INSERT INTO protokoll (dokument_id, zeit, aktion, von_pfad, nach_pfad, alt_status, kopiert)\n"
                   "VALUES (?,?,?,?,?,?,?)"_s,
                   {b.dokument, b.zeit, b.aktion, b.von, b.nach, b.altStatus, b.kopiert});
    const qint64 id = neueste();
    if (!b.vonName.isEmpty())
        m_db.schreiben(u"INSERT OR REPLACE INTO schreibweisen (protokoll_id, name) VALUES (?,?)"_s,
                       {id, QString::fromLatin1(b.vonName.toPercentEncoding())});
    return id;
}

void Bewegungen::alsZurueckVermerken(qint64 id)
{
    m_db.schreiben(u"UPDATE protokoll SET rueckgaengig=1 WHERE id=?"_s, {id});
}

bool Bewegungen::istZurueck(qint64 id) const
{
    return m_db.gibtEs(u"SELECT 1 FROM protokoll WHERE id=? AND rueckgaengig=1"_s, {id});
}

bool Bewegungen::istEingetragen(qint64 hinter, qint64 dokument, const QString &von, const QString &nach) const
{
    return m_db.gibtEs(u"SELECT 1 FROM protokoll WHERE id>? AND dokument_id=? AND von_pfad=? AND nach_pfad=?"_s,
                       {hinter, dokument, von, nach});
}

QList<qint64> Bewegungen::fruehereAlsZurueckVermerken(qint64 dokument, const QString &von)
{
    const QString welche = u" WHERE dokument_id=? AND von_pfad=? AND rueckgaengig=0"_s;
    const QList<qint64> ids = m_db.nummern(u"SELECT id FROM protokoll"_s + welche, {dokument, von});
    m_db.schreiben(u"UPDATE protokoll SET rueckgaengig=1"_s + welche, {dokument, von});
    return ids;
}

bool Bewegungen::besteht(const QString &zeit, const QString &von, const QString &nach) const
{
    return m_db.gibtEs(u"SELECT 1 FROM protokoll WHERE zeit=? AND von_pfad=? AND nach_pfad=? AND rueckgaengig=0"_s,
                       {zeit, von, nach});
}

void Bewegungen::jede(const std::function<void(const Bewegung &)> &besuch) const
{
    m_db.besuchen(u"SELECT p.*, n.name FROM protokoll p LEFT JOIN schreibweisen n ON n.protokoll_id=p.id\n"
                  "ORDER BY p.id DESC"_s,
                  {}, [&](const Zeile &z) { besuch(bewegungAus(z)); });
}

std::optional<Bewegungen::Stand> Bewegungen::stand(qint64 id) const
{
    return m_db.eine(standauswahl + u"WHERE p.id=?"_s, {id}, standAus);
}

QList<Bewegungen::Stand> Bewegungen::staende(qint64 dokument, const QString &von, const QString &nach) const
{
    QList<Stand> liste;
    for (const Zeile &z : m_db.lesen(standauswahl + u"WHERE p.dokument_id=? AND p.von_pfad=? AND p.nach_pfad=?"_s,
                                     {dokument, von, nach}))
        liste << standAus(z);
    return liste;
}

QSet<QString> Bewegungen::kopien() const
{
    QSet<QString> pfade;
    m_db.besuchen(u"SELECT nach_pfad FROM protokoll WHERE kopiert=1 AND rueckgaengig=0"_s, {},
                  [&](const Zeile &z) { pfade.insert(z.text(u"nach_pfad")); });
    return pfade;
}

QStringList Bewegungen::letzteZiele(const QString &wurzel) const
{
    const QString davor = wurzel + u'/';
    QStringList pfade;
    for (const Zeile &z : m_db.lesen(u"SELECT nach_pfad FROM protokoll WHERE rueckgaengig=0\n"
                                     "AND id>coalesce((SELECT bis_protokoll FROM umgezogen WHERE ziel=?),0)\n"
                                     "AND substr(nach_pfad,1,length(?))=? ORDER BY id DESC LIMIT 20"_s,
                                     {wurzel, davor, davor}))
        pfade << z.text(u"nach_pfad");
    return pfade;
}

void Bewegungen::umzugVermerken(const QString &wurzel)
{
    m_db.schreiben(u"INSERT OR REPLACE INTO umgezogen (ziel, bis_protokoll, zeit)\n"
                   "SELECT ?, coalesce(MAX(id),0), ? FROM protokoll"_s,
                   {wurzel, jetztIso()});
}

std::optional<qint64> Bewegungen::herkunft(const QString &pfad) const
{
    return m_db.nummer(u"SELECT nummer AS id FROM herkunft WHERE pfad=?"_s, {pfad});
}

void Bewegungen::herkunftMerken(const QString &pfad, qint64 nummer)
{
    m_db.schreiben(u"INSERT OR REPLACE INTO herkunft (pfad, nummer) VALUES (?,?)"_s, {pfad, nummer});
}
} // namespace quillmar::katalog
