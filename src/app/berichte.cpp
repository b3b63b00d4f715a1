#include "ablagewerk.h"
#include "ausgabe.h"
#include "dokumente.h"
#include "einordnung.h"
#include "katalog.h"
#include "kommandozeile.h"
#include "lernspeicher.h"
#include "text.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
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
    drucken(
        gefuellt(u"\nBestand\n"
                 "  in Analyse      %@\n"
                 "  zu prüfen       %@\n"
                 "  einsortiert     %@\n"
                 "  zurückgestellt  %@\n"
                 "  Dubletten       %@\n"
                 "  aussortiert     %@"_s,
                 {QString::number(z.neu), QString::number(z.bereit), QString::number(z.erledigt),
                  QString::number(z.zurueckgestellt), QString::number(z.dubletten), QString::number(z.aussortiert)}));
}

void Kommandozeile::bericht(Datenbank &db, const Ablagewerk &werk)
{
    Guete g;
    try {
        Dokumente(db).jedesBereite([&](const Dokument &d) { g.dazu(d, werk.dateiname(d)); });
    } catch (const Katalogfehler &f) {
        Ausgabe::melden(f.text());
        Ausgabe::melden(u"Der Bericht nennt nur, was sich lesen ließ"_s);
    }
    if (g.anzahl == 0)
        return;
    const QString alle = QString::number(g.anzahl);
    drucken(gefuellt(u"Güte der Vorschläge\n"
                     "  gültiges Datum  %@ von %@\n"
                     "  Gegenüber       %@ von %@\n"
                     "  Titel           %@ von %@\n"
                     "  Umsortierung    %@\n"
                     "  doppelte Namen  %@"_s,
                     {QString::number(g.datum), alle, QString::number(g.gegenueber), alle, QString::number(g.titel),
                      alle, QString::number(g.umsortierung), QString::number(g.anzahl - g.namen.size())}));
}

void Kommandozeile::gelernt(Datenbank &db, const Profil &profil, bool anwenden)
{
    Lernspeicher speicher(db, profil);
    const QList<Eintrag> eintraege = speicher.alle();
    if (eintraege.isEmpty()) {
        drucken(u"Noch nichts gelernt."_s);
    } else {
        drucken(gefuellt(u"Gelernte Zuordnungen, %@ Stück\n"_s, {QString::number(eintraege.size())}));
        for (const Eintrag &eintrag : eintraege) {
            drucken(gefuellt(u"  %@x  %@"_s, {QString::number(eintrag.anzahl), eintrag.anzeige}));
            drucken(gefuellt(u"        -> %@"_s, {eintrag.ziel()}));
        }
    }
    if (anwenden)
        drucken(gefuellt(u"\nAuf die Warteschlange angewendet: %@ Dokumente"_s,
                         {QString::number(speicher.allesAnwenden())}));
}
} // namespace quillmar::app
