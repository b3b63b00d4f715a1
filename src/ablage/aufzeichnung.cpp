#include "aufzeichnung.h"

#include "bewegungen.h"
#include "dateien.h"
#include "dokumente.h"
#include "lernspeicher.h"
#include "modellantworten.h"
#include "taten.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
const QString einsortiert = u"einsortiert"_s;

void werteSchreiben(Datenbank &db, qint64 id, const Angaben &angaben)
{
    Dokumente(db).angabenSchreiben(id, angaben);
    // What the user has accepted is not read anew because its file was away once.
    Dateien(db).abwesendStreichen(id);
}

void standSchreiben(Datenbank &db, const Absicht &a)
{
    const Protokollzeile &z = a.zeile;
    // A copying profile leaves the document where it was; so does a document that lay right already.
    if (z.kopiert || z.von == z.nach)
        Dokumente(db).setzeStatus(z.dokument, a.status);
    else
        Dokumente(db).ortSchreiben(z.dokument, a.status, z.nach);
}

void tatSchreiben(Datenbank &db, const Absicht &a, qint64 protokollId)
{
    Taten::eintragen(db, a.tat,
                     {.dokument = a.zeile.dokument,
                      .altStatus = statusAus(a.zeile.altStatus),
                      .neuStatus = a.status,
                      .protokollId = protokollId});
}

void ruecknahme(Datenbank &db, const Absicht &a)
{
    if (a.protokollId == 0)
        return;
    Bewegungen(db).alsZurueckVermerken(a.protokollId);
    Dokumente(db).ortSchreiben(a.zeile.dokument, a.status, a.zeile.von);
    // Also one that an earlier version has filed: the values are the reviewer's own.
    if (a.zeile.aktion == einsortiert)
        Modellantworten(db).zurueckgekehrt(a.zeile.dokument);
}
/** Documents on whose values the reviewer had not decided. */
QList<qint64> beiseitegelegte(const QList<Absicht> &absichten)
{
    QList<qint64> dokumente;
    for (const Absicht &a : absichten) {
        if (a.protokollId != 0 && a.zeile.aktion != einsortiert)
            dokumente << a.zeile.dokument;
    }
    return dokumente;
}
} // namespace

Aufzeichnung::Ergebnis Aufzeichnung::bewegung(Datenbank &db, const Absicht &a)
{
    const qint64 dokument = a.zeile.dokument;
    Lernspeicher speicher(db, a.profil);
    if (a.werte)
        speicher.vorlesen(*a.werte, a.vorher); // the transaction stays short, however many documents wait
    Transaktion t(db);
    Ergebnis ergebnis;
    ergebnis.protokollId = zeileSchreiben(db, a.zeile);
    if (a.werte) {
        // Before the values are written: the memory looks at what was proposed.
        ergebnis.angepasst = speicher.merken(dokument, *a.werte, a.vorher, ergebnis.protokollId);
        werteSchreiben(db, dokument, *a.werte);
    }
    if (a.tat != 0)
        tatSchreiben(db, a, ergebnis.protokollId);
    standSchreiben(db, a);
    t.abschliessen();
    return ergebnis;
}

void Aufzeichnung::ruecknahmen(Datenbank &db, const QList<Absicht> &absichten)
{
    if (absichten.isEmpty())
        return;
    QList<qint64> zeilen;
    for (const Absicht &a : absichten) {
        if (a.protokollId != 0)
            zeilen << a.protokollId;
    }
    Lernspeicher speicher(db, absichten.first().profil);
    speicher.vorlesen(zeilen);
    Transaktion t(db);
    for (const Absicht &a : absichten)
        ruecknahme(db, a);
    speicher.zuruecknehmen(zeilen);
    speicher.nachrechnen(beiseitegelegte(absichten));
    t.abschliessen();
}

bool Aufzeichnung::istErfolgt(Datenbank &db, const Absicht &a)
{
    const Bewegungen bewegungen(db);
    if (a.art == Absicht::Art::Ruecknahme)
        return a.protokollId == 0 || bewegungen.istZurueck(a.protokollId);
    const Protokollzeile &z = a.zeile;
    // A copy that has taken the catalogue's place has other rows: there the time tells.
    return bewegungen.istEingetragen(a.protokollId, z.dokument, z.von, z.nach) ||
           bewegungen.besteht(z.zeit, z.von, z.nach);
}

qint64 Aufzeichnung::zeileSchreiben(Datenbank &db, const Protokollzeile &z)
{
    return Bewegungen(db).eintragen({.dokument = z.dokument,
                                     .zeit = z.zeit,
                                     .aktion = z.aktion,
                                     .von = z.von,
                                     .nach = z.nach,
                                     .altStatus = z.altStatus,
                                     .kopiert = z.kopiert,
                                     .vonName = z.vonName});
}

Protokollzeile Aufzeichnung::zeileAus(const Bewegung &b)
{
    return {.zeit = b.zeit,
            .aktion = b.aktion,
            .dokument = b.dokument,
            .von = b.von,
            .nach = b.nach,
            .altStatus = b.altStatus,
            .kopiert = b.kopiert,
            .vonName = b.vonName};
}
} // namespace quillmar::ablage
