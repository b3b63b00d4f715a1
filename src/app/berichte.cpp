#include "ablagewerk.h"
#include "ausgabe.h"
#include "dokumente.h"
#include "einordnung.h"
#include "kommandozeile.h"
#include "lernspeicher.h"
#include "sprache.h"

#include <QSet>

using namespace Qt::StringLiterals;
using Ausgabe::drucken;

namespace
{
struct Guete {
    qint64 anzahl = 0;
    qint64 datum = 0;
    qint64 gegenueber = 0;
    qint64 titel = 0;
    qint64 umsortierung = 0;
    QSet<QString> namen;

    void dazu(const Dokument &d, const QString &name)
    {
        ++anzahl;
        datum += Einordnung::istDatum(d.angaben.datum) ? 1 : 0;
        gegenueber += d.angaben.gegenueber.isEmpty() ? 0 : 1;
        titel += d.angaben.titel.isEmpty() ? 0 : 1;
        umsortierung += d.ortQuelle == u"umsortierung"_s ? 1 : 0;
        namen.insert(name);
    }
};
} // namespace

void Kommandozeile::bestandDrucken(const Ablagewerk &werk)
{
    const Zaehlwerk z = werk.zaehlen();
    drucken(Sprache::text(u"\nBestand\n  in Analyse      "_s) + QString::number(z.neu) +
            Sprache::text(u"\n  zu prüfen       "_s) + QString::number(z.bereit) +
            Sprache::text(u"\n  einsortiert     "_s) + QString::number(z.erledigt) +
            Sprache::text(u"\n  zurückgestellt  "_s) + QString::number(z.zurueckgestellt) +
            Sprache::text(u"\n  Dubletten       "_s) + QString::number(z.dubletten) +
            Sprache::text(u"\n  aussortiert     "_s) + QString::number(z.aussortiert));
}

void Kommandozeile::bericht(Datenbank &db, const Ablagewerk &werk)
{
    Guete g;
    Dokumente(db).jedesBereite([&](const Dokument &d) { g.dazu(d, werk.dateiname(d)); });
    if (g.anzahl == 0)
        return;
    const QString von = Sprache::text(u" von "_s) + QString::number(g.anzahl);
    drucken(Sprache::text(u"Güte der Vorschläge\n  gültiges Datum  "_s) + QString::number(g.datum) + von +
            Sprache::text(u"\n  Gegenüber       "_s) + QString::number(g.gegenueber) + von +
            Sprache::text(u"\n  Titel           "_s) + QString::number(g.titel) + von +
            Sprache::text(u"\n  Umsortierung    "_s) + QString::number(g.umsortierung) +
            Sprache::text(u"\n  doppelte Namen  "_s) + QString::number(g.anzahl - g.namen.size()));
}

void Kommandozeile::gelernt(Datenbank &db, const Profil &profil, bool anwenden)
{
    Lernspeicher speicher(db, profil);
    const QList<Eintrag> eintraege = speicher.alle();
    if (eintraege.isEmpty()) {
        drucken(Sprache::text(u"Noch nichts gelernt."_s));
    } else {
        drucken(Sprache::text(u"Gelernte Zuordnungen, "_s) + QString::number(eintraege.size()) +
                Sprache::text(u" Stück\n"_s));
        for (const Eintrag &eintrag : eintraege) {
            drucken(u"  "_s + QString::number(eintrag.anzahl) + u"x  "_s + eintrag.anzeige);
            drucken(u"        -> "_s + eintrag.ziel());
        }
    }
    if (anwenden)
        drucken(Sprache::text(u"\nAuf die Warteschlange angewendet: "_s) + QString::number(speicher.allesAnwenden()) +
                Sprache::text(u" Dokumente"_s));
}
