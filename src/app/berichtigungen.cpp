#include "ausgabe.h"
#include "datenbank.h"
#include "einordner.h"
#include "kommandozeile.h"
#include "stapel.h"
#include "text.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;
using Ausgabe::drucken;

namespace
{
/** Without a counterpart the proposal cannot be called certain. */
constexpr double konfidenzOhneGegenueber = 0.4;

struct Nachfragebilanz {
    qint64 ersetzt = 0;
    qint64 geleert = 0;
};

QList<Zeile> eigeneAlsGegenueber(Datenbank &db, const Gegenpruefung &pruefung)
{
    QList<Zeile> zeilen;
    db.durchlaufen(u"SELECT d.id, d.gegenueber, d.konfidenz, t.text FROM dokumente d\n"
                   "JOIN texte t ON t.dokument_id = d.id\n"
                   "WHERE d.status IN ('bereit','zurueckgestellt') AND d.ausgenommen=0"_s,
                   {}, [&](const Zeile &zeile) {
                       if (pruefung.istEigen(zeile.text(u"gegenueber")))
                           zeilen << zeile;
                   });
    return zeilen;
}

bool wartetNoch(Datenbank &db, qint64 id, const QString &gegenueber)
{
    return !db.abfragen(u"SELECT 1 FROM dokumente WHERE id=? AND gegenueber=? AND ausgenommen=0\n"
                        "AND status IN ('bereit','zurueckgestellt')"_s,
                        {id, gegenueber})
                .isEmpty();
}

void einesNachfragen(Datenbank &db, const Gegenpruefung &pruefung, const Profil &profil, const Zeile &zeile,
                     Nachfragebilanz &bilanz)
{
    const qint64 id = zeile.ganz(u"id");
    if (!wartetNoch(db, id, zeile.text(u"gegenueber")))
        return;
    const auto name = nachfragen(pruefung, zeile.text(u"text"), profil, Ollama());
    // Whoever handled or corrected the document during the question knew better.
    Transaktion transaktion(db);
    if (!wartetNoch(db, id, zeile.text(u"gegenueber")))
        return;
    Stapel stapel(db);
    if (name)
        stapel.schreiben(u"UPDATE dokumente SET gegenueber=? WHERE id=?"_s, {*name, id});
    else
        stapel.schreiben(u"UPDATE dokumente SET gegenueber='', konfidenz=? WHERE id=?"_s,
                         {konfidenzOhneGegenueber, id});
    stapel.abschliessen();
    transaktion.abschliessen();
    ++(name ? bilanz.ersetzt : bilanz.geleert);
}

struct Berichtigung {
    qint64 id = 0;
    QString alt;
    QString neu;
    double konfidenz = 0;
};

struct Richtungsbilanz {
    qint64 betrachtet = 0;
    qint64 rechnungen = 0;
    QList<Berichtigung> berichtigt;
};

Richtungsbilanz richtungenPruefen(Datenbank &db, const Profil &profil)
{
    Richtungsbilanz bilanz;
    const Rechnungsrichtung richtung(profil.eigeneAnschriften);
    db.durchlaufen(u"SELECT d.id, d.rubrik, d.konfidenz, t.text FROM dokumente d\n"
                   "JOIN texte t ON t.dokument_id = d.id\n"
                   "WHERE d.status IN ('bereit','zurueckgestellt') AND d.ausgenommen=0"_s,
                   {}, [&](const Zeile &z) {
                       const QString alt = z.text(u"rubrik");
                       ++bilanz.betrachtet;
                       bilanz.rechnungen += Rechnungsrichtung::istRechnungsrubrik(alt, profil) ? 1 : 0;
                       if (const auto neu = richtung.berichtigt(alt, z.text(u"text"), profil))
                           bilanz.berichtigt << Berichtigung{
                               .id = z.ganz(u"id"), .alt = alt, .neu = *neu, .konfidenz = z.komma(u"konfidenz")};
                   });
    return bilanz;
}

void richtungenSchreiben(Datenbank &db, const QList<Berichtigung> &liste)
{
    Stapel stapel(db);
    for (const Berichtigung &b : liste)
        stapel.schreiben(u"UPDATE dokumente SET rubrik=?, konfidenz=? WHERE id=? AND rubrik=? AND ausgenommen=0\n"
                         "AND status IN ('bereit','zurueckgestellt')"_s,
                         {b.neu, std::max(b.konfidenz, Einordner::mindestensNachRegel), b.id, b.alt});
    stapel.abschliessen();
}
} // namespace

void Kommandozeile::gegenueberBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen)
{
    if (profil.eigenkennungen().isEmpty())
        return drucken(u"Im Profil ist kein eigener Name hinterlegt."_s);
    const Gegenpruefung pruefung(profil);
    const QList<Zeile> betroffene = eigeneAlsGegenueber(db, pruefung);
    drucken(gefuellt(u"Betroffen: %@ Dokumente"_s, {QString::number(betroffene.size())}));
    if (nurZeigen)
        return drucken(u"Nur gezeigt. Mit --anwenden wird nachgefragt und geschrieben."_s);
    Nachfragebilanz bilanz;
    for (qsizetype i = 0; i < betroffene.size(); ++i) {
        try {
            einesNachfragen(db, pruefung, profil, betroffene.at(i), bilanz);
        } catch (const Fehler &f) {
            Ausgabe::melden(f.text()); // an unanswered question changes nothing; the next run asks again
        }
        drucken(gefuellt(u"%@ von %@"_s, {QString::number(i + 1), QString::number(betroffene.size())}));
    }
    drucken(gefuellt(u"\nGegenueber berichtigt\n"
                     "  ersetzt  %@\n"
                     "  geleert  %@"_s,
                     {QString::number(bilanz.ersetzt), QString::number(bilanz.geleert)}));
}

void Kommandozeile::rechnungenBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen)
{
    if (Rechnungsrichtung(profil.eigeneAnschriften).istLeer())
        return drucken(u"Im Profil ist keine eigene Anschrift hinterlegt."_s);
    const Richtungsbilanz bilanz = richtungenPruefen(db, profil);
    drucken(gefuellt(u"Richtungsregel fuer Rechnungen\n"
                     "  betrachtete Dokumente  %@\n"
                     "  mit Rechnungsrubrik    %@\n"
                     "  berichtigt             %@"_s,
                     {QString::number(bilanz.betrachtet), QString::number(bilanz.rechnungen),
                      QString::number(bilanz.berichtigt.size())}));
    for (const Berichtigung &b : bilanz.berichtigt)
        drucken(gefuellt(u"    %@ nach %@"_s, {b.alt, b.neu}));
    if (nurZeigen)
        return drucken(u"Nur gezeigt. Mit --anwenden wird es geschrieben."_s);
    richtungenSchreiben(db, bilanz.berichtigt);
    drucken(u"Geschrieben."_s);
}
