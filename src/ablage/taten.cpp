#include "taten.h"

#include "datenbank.h"
#include "transaktion.h"
#include "zeit.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
void muss(const Transaktion &t, Datenbank &db, const QString &sql, const QVariantList &parameter)
{
    if (db.ausfuehren(sql, parameter) != 0)
        t.scheitern();
}

qint64 zahl(Datenbank &db, const QString &sql, const QVariantList &parameter = {})
{
    const QList<Zeile> zeilen = db.abfragen(sql, parameter);
    return zeilen.isEmpty() ? 0 : zeilen.first().ganz(u"n");
}

qint64 neueTat(const Transaktion &t, Datenbank &db, const QString &art)
{
    muss(t, db, u"INSERT INTO taten (zeit, art, bis_protokoll) SELECT ?, ?, coalesce(MAX(id),0) FROM protokoll"_s,
         {jetztIso(), art});
    return zahl(db, u"SELECT last_insert_rowid() n"_s);
}

QString artVon(const Taten::Tat &tat) { return tat.bewegung ? u"bewegung"_s : u"tat"_s; }

qint64 deckel(const std::optional<qint64> &vor) { return vor.value_or(std::numeric_limits<qint64>::max()); }
} // namespace

Taten::Tat Taten::beginnen(Datenbank &db, const QString &art)
{
    Transaktion t(db);
    const Tat tat{.bewegung = false, .id = neueTat(t, db, art)};
    t.abschliessen();
    return tat;
}

void Taten::eintragen(Datenbank &db, qint64 tat, const Posten &p)
{
    Transaktion t(db);
    muss(t, db,
         u"INSERT INTO tatposten (tat_id, dokument_id, alt_status, neu_status, protokoll_id) VALUES (?,?,?,?,?)"_s,
         {tat, p.dokument, p.altStatus, p.neuStatus, p.protokollId});
    // The deed lasts until its last movement: only what comes after that is newer.
    muss(t, db, u"UPDATE taten SET bis_protokoll=max(bis_protokoll,?) WHERE id=?"_s, {p.protokollId, tat});
    t.abschliessen();
}

std::optional<Taten::Tat> Taten::statusWechseln(Datenbank &db, const QString &art, qint64 dokument, const QString &alt,
                                                const QString &neu)
{
    Transaktion t(db);
    muss(t, db, u"UPDATE dokumente SET status=? WHERE id=? AND status=?"_s, {neu, dokument, alt});
    if (db.geaendert() == 0)
        return std::nullopt;
    const Tat tat{.bewegung = false, .id = neueTat(t, db, art)};
    eintragen(db, tat.id, {.dokument = dokument, .altStatus = alt, .neuStatus = neu});
    t.abschliessen();
    return tat;
}

std::optional<Taten::Tat> Taten::alleWechseln(Datenbank &db, const QString &art, const QString &alt, const QString &neu)
{
    Transaktion t(db);
    const Tat tat{.bewegung = false, .id = neueTat(t, db, art)};
    muss(t, db,
         u"INSERT INTO tatposten (tat_id, dokument_id, alt_status, neu_status, protokoll_id)\n"
         "SELECT ?, id, status, ?, 0 FROM dokumente WHERE status=? AND ausgenommen=0"_s,
         {tat.id, neu, alt});
    if (db.geaendert() == 0)
        return std::nullopt;
    muss(t, db, u"UPDATE dokumente SET status=? WHERE status=? AND ausgenommen=0"_s, {neu, alt});
    t.abschliessen();
    return tat;
}

std::optional<Taten::Tat> Taten::Folge::naechste()
{
    const QList<Zeile> taten = m_db.abfragen(u"SELECT id, bis_protokoll FROM taten WHERE zurueck=0 AND id<?\n"
                                             "ORDER BY id DESC LIMIT 1"_s,
                                             {deckel(m_vorTat)});
    const QList<Zeile> bewegungen =
        m_db.abfragen(u"SELECT id FROM protokoll WHERE rueckgaengig=0 AND id<?\n"
                      "AND id NOT IN (SELECT protokoll_id FROM tatposten WHERE protokoll_id=protokoll.id)\n"
                      "ORDER BY id DESC LIMIT 1"_s,
                      {deckel(m_vorBewegung)});
    if (taten.isEmpty() && bewegungen.isEmpty())
        return std::nullopt;
    if (!bewegungen.isEmpty() &&
        (taten.isEmpty() || bewegungen.first().ganz(u"id") > taten.first().ganz(u"bis_protokoll"))) {
        m_vorBewegung = bewegungen.first().ganz(u"id");
        return Tat{.bewegung = true, .id = *m_vorBewegung};
    }
    m_vorTat = taten.first().ganz(u"id");
    return Tat{.bewegung = false, .id = *m_vorTat};
}

std::optional<qint64> Taten::letzteBewegung(Datenbank &db, std::optional<qint64> vor)
{
    const QList<Zeile> zeilen = db.abfragen(
        u"SELECT id FROM protokoll WHERE rueckgaengig=0 AND id<? ORDER BY id DESC LIMIT 1"_s, {deckel(vor)});
    return zeilen.isEmpty() ? std::nullopt : std::optional(zeilen.first().ganz(u"id"));
}

QList<Taten::Posten> Taten::offene(Datenbank &db, const Tat &tat)
{
    const QString posten = u"SELECT t.dokument_id, t.alt_status, t.neu_status, t.protokoll_id FROM tatposten t\n"
                           "LEFT JOIN dokumente d ON d.id=t.dokument_id\n"
                           "LEFT JOIN protokoll p ON p.id=t.protokoll_id\n"
                           "WHERE t.tat_id=? AND CASE WHEN t.protokoll_id=0 THEN d.status=t.neu_status\n"
                           "ELSE p.rueckgaengig=0 END ORDER BY t.id DESC"_s;
    const QString bewegung = u"SELECT dokument_id, alt_status, '' AS neu_status, id AS protokoll_id FROM protokoll\n"
                             "WHERE id=? AND rueckgaengig=0"_s;
    QList<Posten> liste;
    for (const Zeile &z : db.abfragen(tat.bewegung ? bewegung : posten, {tat.id}))
        liste << Posten{.dokument = z.ganz(u"dokument_id"),
                        .altStatus = z.text(u"alt_status"),
                        .neuStatus = z.text(u"neu_status"),
                        .protokollId = z.ganz(u"protokoll_id")};
    return liste;
}

bool Taten::gibtEs(Datenbank &db)
{
    Folge folge(db);
    while (const auto tat = folge.naechste()) {
        if (tat->bewegung || !offene(db, *tat).isEmpty())
            return true;
    }
    return false;
}

void Taten::statusZurueck(Datenbank &db, const QList<Posten> &posten)
{
    Transaktion t(db);
    for (const Posten &p : posten)
        muss(t, db, u"UPDATE dokumente SET status=? WHERE id=? AND status=?"_s, {p.altStatus, p.dokument, p.neuStatus});
    t.abschliessen();
}

void Taten::schliessen(Datenbank &db, const Tat &tat)
{
    if (tat.bewegung)
        return; // its row says so
    Transaktion t(db);
    muss(t, db, u"UPDATE taten SET zurueck=1 WHERE id=?"_s, {tat.id});
    t.abschliessen();
}

void Taten::uebergehen(Datenbank &db, const Tat &tat)
{
    Transaktion t(db);
    muss(t, db, u"INSERT OR IGNORE INTO uebergangen (art, id) VALUES (?,?)"_s, {artVon(tat), tat.id});
    t.abschliessen();
}

bool Taten::istUebergangen(Datenbank &db, const Tat &tat)
{
    return !db.abfragen(u"SELECT 1 FROM uebergangen WHERE art=? AND id=?"_s, {artVon(tat), tat.id}).isEmpty();
}
