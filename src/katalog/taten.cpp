#include "taten.h"

#include "bewegungen.h"
#include "datenbank.h"
#include "dokumente.h"
#include "stapel.h"
#include "transaktion.h"
#include "zeit.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString offenePosten = u"FROM tatposten t LEFT JOIN dokumente d ON d.id=t.dokument_id\n"
                             "LEFT JOIN protokoll p ON p.id=t.protokoll_id\n"
                             "WHERE t.tat_id=? AND CASE WHEN t.protokoll_id=0 THEN d.status=t.neu_status\n"
                             "ELSE p.rueckgaengig=0 END"_s;

Taten::Tat neueTat(Datenbank &db, const QString &art)
{
    db.schreiben(u"INSERT INTO taten (zeit, art, bis_protokoll) SELECT ?, ?, coalesce(MAX(id),0) FROM protokoll"_s,
                 {jetztIso(), art});
    return {.bewegung = false, .id = db.zahl(u"SELECT last_insert_rowid() n"_s)};
}

void postenSchreiben(Datenbank &db, qint64 tat, const Taten::Posten &p)
{
    db.schreiben(
        u"INSERT INTO tatposten (tat_id, dokument_id, alt_status, neu_status, protokoll_id) VALUES (?,?,?,?,?)"_s,
        {tat, p.dokument, statuswort(p.altStatus), statuswort(p.neuStatus), p.protokollId});
}

QString artVon(const Taten::Tat &tat) { return tat.bewegung ? u"bewegung"_s : u"tat"_s; }
} // namespace

Taten::Tat Taten::beginnen(Datenbank &db, const QString &art)
{
    Transaktion t(db);
    const Tat tat = neueTat(db, art);
    t.abschliessen();
    return tat;
}

void Taten::eintragen(Datenbank &db, qint64 tat, const Posten &p)
{
    Transaktion t(db);
    postenSchreiben(db, tat, p);
    // The deed lasts until its last movement: only what comes after that is newer.
    db.schreiben(u"UPDATE taten SET bis_protokoll=max(bis_protokoll,?) WHERE id=?"_s, {p.protokollId, tat});
    t.abschliessen();
}

std::optional<Taten::Tat> Taten::statusWechseln(Datenbank &db, const QString &art, qint64 dokument, Status alt,
                                                Status neu)
{
    Transaktion t(db);
    if (!Dokumente(db).statusWechseln(dokument, alt, neu))
        return std::nullopt;
    const Tat tat = neueTat(db, art);
    eintragen(db, tat.id, {.dokument = dokument, .altStatus = alt, .neuStatus = neu});
    t.abschliessen();
    return tat;
}

std::optional<Taten::Tat> Taten::alleWechseln(Datenbank &db, const QString &art, Status alt, Status neu)
{
    const QList<qint64> betroffene =
        db.nummern(u"SELECT id FROM dokumente WHERE status=? AND ausgenommen=0"_s, {statuswort(alt)});
    if (betroffene.isEmpty())
        return std::nullopt;
    const Tat tat = beginnen(db, art);
    Stapel stapel(db);
    for (const qint64 dokument : betroffene) {
        // First the way back: an item whose change never came counts for nothing.
        stapel.naechstes();
        postenSchreiben(db, tat.id, {.dokument = dokument, .altStatus = alt, .neuStatus = neu});
        stapel.naechstes();
        Dokumente(db).statusWechseln(dokument, alt, neu);
    }
    stapel.abschliessen();
    return tat;
}

std::optional<Taten::Tat> Taten::Folge::naechste()
{
    const QList<Zeile> taten =
        m_db.lesen(u"SELECT id, bis_protokoll FROM taten WHERE zurueck=0 AND id<?\nORDER BY id DESC LIMIT 1"_s,
                   {m_vorTat.value_or(std::numeric_limits<qint64>::max())});
    const auto bewegung = Bewegungen(m_db).letzteEinzelne(m_vorBewegung);
    if (taten.isEmpty() && !bewegung)
        return std::nullopt;
    if (bewegung && (taten.isEmpty() || *bewegung > taten.first().ganz(u"bis_protokoll"))) {
        m_vorBewegung = bewegung;
        return Tat{.bewegung = true, .id = *bewegung};
    }
    m_vorTat = taten.first().ganz(u"id");
    return Tat{.bewegung = false, .id = *m_vorTat};
}

bool Taten::istErledigt(Datenbank &db, const Tat &tat)
{
    return !tat.bewegung && !db.gibtEs(u"SELECT 1 "_s + offenePosten + u" LIMIT 1"_s, {tat.id});
}

QList<Taten::Posten> Taten::offene(Datenbank &db, const Tat &tat)
{
    const QString posten = u"SELECT t.dokument_id, t.alt_status, t.neu_status, t.protokoll_id "_s + offenePosten +
                           u" ORDER BY t.id DESC"_s;
    const QString bewegung = u"SELECT dokument_id, alt_status, '' AS neu_status, id AS protokoll_id FROM protokoll\n"
                             "WHERE id=? AND rueckgaengig=0"_s;
    QList<Posten> liste;
    for (const Zeile &z : db.lesen(tat.bewegung ? bewegung : posten, {tat.id}))
        liste << Posten{.dokument = z.ganz(u"dokument_id"),
                        .altStatus = statusAus(z.text(u"alt_status")),
                        .neuStatus = statusAus(z.text(u"neu_status")),
                        .protokollId = z.ganz(u"protokoll_id")};
    return liste;
}

void Taten::statusZurueck(Datenbank &db, const QList<Posten> &posten)
{
    Stapel stapel(db);
    for (const Posten &p : posten) {
        stapel.naechstes();
        Dokumente(db).statusWechseln(p.dokument, p.neuStatus, p.altStatus);
    }
    stapel.abschliessen();
}

void Taten::schliessen(Datenbank &db, const Tat &tat)
{
    if (!tat.bewegung) // its row says so
        db.schreiben(u"UPDATE taten SET zurueck=1 WHERE id=?"_s, {tat.id});
}

void Taten::uebergehen(Datenbank &db, const Tat &tat)
{
    db.schreiben(u"INSERT OR IGNORE INTO uebergangen (art, id) VALUES (?,?)"_s, {artVon(tat), tat.id});
}

bool Taten::istUebergangen(Datenbank &db, const Tat &tat)
{
    return db.gibtEs(u"SELECT 1 FROM uebergangen WHERE art=? AND id=?"_s, {artVon(tat), tat.id});
}
} // namespace quillmar::katalog
