#include "taten.h"

#include "datenbank.h"
#include "stapel.h"
#include "transaktion.h"
#include "zeit.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
const QString offenePosten = u"FROM tatposten t LEFT JOIN dokumente d ON d.id=t.dokument_id\n"
                             "LEFT JOIN protokoll p ON p.id=t.protokoll_id\n"
                             "WHERE t.tat_id=? AND CASE WHEN t.protokoll_id=0 THEN d.status=t.neu_status\n"
                             "ELSE p.rueckgaengig=0 END"_s;

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
    const QList<Zeile> betroffene = db.abfragen(u"SELECT id FROM dokumente WHERE status=? AND ausgenommen=0"_s, {alt});
    if (betroffene.isEmpty())
        return std::nullopt;
    const Tat tat = beginnen(db, art);
    Stapel stapel(db);
    for (const Zeile &z : betroffene) {
        // First the way back: an item whose change never came counts for nothing.
        stapel.schreiben(u"INSERT INTO tatposten (tat_id, dokument_id, alt_status, neu_status, protokoll_id)\n"
                         "VALUES (?,?,?,?,0)"_s,
                         {tat.id, z.ganz(u"id"), alt, neu});
        stapel.schreiben(u"UPDATE dokumente SET status=? WHERE id=? AND status=?"_s, {neu, z.ganz(u"id"), alt});
    }
    stapel.abschliessen();
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

bool Taten::istErledigt(Datenbank &db, const Tat &tat)
{
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT COUNT(*) n FROM (SELECT 1 "_s + offenePosten + u" LIMIT 1)"_s, {tat.id});
    // Where the catalogue could not be asked there is no row at all.
    return !tat.bewegung && !zeilen.isEmpty() && zeilen.first().ganz(u"n") == 0;
}

QList<Taten::Posten> Taten::offene(Datenbank &db, const Tat &tat)
{
    const QString posten = u"SELECT t.dokument_id, t.alt_status, t.neu_status, t.protokoll_id "_s + offenePosten +
                           u" ORDER BY t.id DESC"_s;
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

void Taten::statusZurueck(Datenbank &db, const QList<Posten> &posten)
{
    Stapel stapel(db);
    for (const Posten &p : posten)
        stapel.schreiben(u"UPDATE dokumente SET status=? WHERE id=? AND status=?"_s,
                         {p.altStatus, p.dokument, p.neuStatus});
    stapel.abschliessen();
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
