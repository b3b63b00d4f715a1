#include "aufzeichnung.h"

#include "datenbank.h"
#include "lernspeicher.h"
#include "pfade.h"
#include "stapel.h"
#include "taten.h"
#include "transaktion.h"
#include "wiedererkennung.h"

using namespace Qt::StringLiterals;

namespace
{
/** A statement that must succeed for the record to be whole. */
void muss(const Transaktion &transaktion, Datenbank &db, const QString &sql, const QVariantList &parameter)
{
    if (db.ausfuehren(sql, parameter) != 0)
        transaktion.scheitern();
}

/** Rows that still claim a place where their file no longer was, or this movement could not have taken it. */
void platzFreimachen(Datenbank &db, const QString &pfad, qint64 ausser)
{
    Stapel stapel(db);
    for (const Zeile &z : db.abfragen(u"SELECT id FROM dokumente WHERE pfad=? AND id<>?"_s, {pfad, ausser}))
        Wiedererkennung::pfadFreigeben(stapel, z.ganz(u"id"), pfad);
    stapel.abschliessen();
}

void werteSchreiben(const Transaktion &t, Datenbank &db, const Dokument &d)
{
    muss(t, db,
         u"UPDATE dokumente SET datum=?, gegenueber=?, titel=?, zweig=?, ablage=?, rubrik=?, jahr=?\nWHERE id=?"_s,
         {d.datum, d.gegenueber, d.titel, d.zweig, d.ablage, d.rubrik, d.jahr, d.id});
    // What the user has accepted is not read anew because its file was away once.
    muss(t, db, u"DELETE FROM abwesend WHERE dokument_id=?"_s, {d.id});
}

void ortSchreiben(const Transaktion &t, Datenbank &db, qint64 id, const QString &status, const QString &pfad)
{
    const QString sql = u"UPDATE dokumente SET status=?, pfad=?, dateiname=? WHERE id=?"_s;
    const QVariantList werte = {status, pfad, nameVon(pfad), id};
    if (db.ausfuehren(sql, werte) == 0)
        return;
    platzFreimachen(db, pfad, id); // paths are unique, so this is what can stand in the way
    muss(t, db, sql, werte);
}

void ruecknahme(const Transaktion &t, Datenbank &db, const Absicht &a)
{
    if (a.protokollId == 0)
        return;
    muss(t, db, u"UPDATE protokoll SET rueckgaengig=1 WHERE id=?"_s, {a.protokollId});
    ortSchreiben(t, db, a.zeile.dokument, a.status, a.zeile.von);
}

/** What a movement brings along that has tables of its own. */
void beiwerk(const Transaktion &t, Datenbank &db, const Absicht &a, qint64 protokollId)
{
    if (!a.zeile.vonName.isEmpty())
        muss(t, db, u"INSERT OR REPLACE INTO schreibweisen (protokoll_id, name) VALUES (?,?)"_s,
             {protokollId, QString::fromLatin1(a.zeile.vonName.toPercentEncoding())});
    if (a.tat != 0)
        Taten::eintragen(db, a.tat,
                         {.dokument = a.zeile.dokument,
                          .altStatus = a.zeile.altStatus,
                          .neuStatus = a.status,
                          .protokollId = protokollId});
}
} // namespace

Aufzeichnung::Ergebnis Aufzeichnung::bewegung(Datenbank &db, const Absicht &a)
{
    Lernspeicher speicher(db, a.profil);
    if (a.werte)
        speicher.vorlesen(*a.werte, a.vorher); // the transaction stays short, however many documents wait
    Transaktion t(db);
    Ergebnis ergebnis;
    if (a.werte) {
        werteSchreiben(t, db, *a.werte);
        ergebnis.angepasst = speicher.merken(*a.werte, a.vorher);
    }
    const Protokollzeile &z = a.zeile;
    muss(t, db,
         u"INSERT INTO protokoll (dokument_id, zeit, aktion, von_pfad, nach_pfad, alt_status, kopiert)\n"
         "VALUES (?,?,?,?,?,?,?)"_s,
         {z.dokument, z.zeit, z.aktion, z.von, z.nach, z.altStatus, z.kopiert});
    ergebnis.protokollId = neuesteZeile(db);
    beiwerk(t, db, a, ergebnis.protokollId);
    // A copying profile leaves the document where it was; so does a document that lay right already.
    if (z.kopiert || z.von == z.nach)
        muss(t, db, u"UPDATE dokumente SET status=? WHERE id=?"_s, {a.status, z.dokument});
    else
        ortSchreiben(t, db, z.dokument, a.status, z.nach);
    t.abschliessen();
    return ergebnis;
}

void Aufzeichnung::ruecknahmen(Datenbank &db, const QList<Absicht> &absichten)
{
    Transaktion t(db);
    for (const Absicht &a : absichten)
        ruecknahme(t, db, a);
    t.abschliessen();
}

bool Aufzeichnung::istErfolgt(Datenbank &db, const Absicht &a)
{
    if (a.art == Absicht::Art::Ruecknahme)
        return a.protokollId == 0 ||
               !db.abfragen(u"SELECT 1 FROM protokoll WHERE id=? AND rueckgaengig=1"_s, {a.protokollId}).isEmpty();
    return !db.abfragen(u"SELECT 1 FROM protokoll WHERE id>? AND dokument_id=? AND von_pfad=? AND nach_pfad=?"_s,
                        {a.protokollId, a.zeile.dokument, a.zeile.von, a.zeile.nach})
                .isEmpty();
}

qint64 Aufzeichnung::neuesteZeile(Datenbank &db)
{
    const QList<Zeile> zeilen = db.abfragen(u"SELECT MAX(id) n FROM protokoll"_s);
    return zeilen.isEmpty() ? 0 : zeilen.first().ganz(u"n");
}
