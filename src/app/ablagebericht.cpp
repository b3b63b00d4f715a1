#include "ablagelesung.h"
#include "ausgabe.h"
#include "baumwissen.h"
#include "kommandozeile.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
using Ablagelesung::Vorbehalt;
using Ablagelesung::Zeile;
using Ausgabe::drucken;
using Ausgabe::einzeilig;

namespace
{
QString wort(Vorbehalt vorbehalt)
{
    switch (vorbehalt) {
    case Vorbehalt::EinzelnesDokument:
        return u" (einzelnes Dokument)"_s;
    case Vorbehalt::EigenerName:
        return u" (eigener Name)"_s;
    case Vorbehalt::NurZiffern:
        return u" (nur Ziffern)"_s;
    case Vorbehalt::ZuKurz:
        return u" (zu kurz)"_s;
    case Vorbehalt::Keiner:
        break;
    }
    return {};
}

void zeileDrucken(const Zeile &zeile)
{
    drucken(
        gefuellt(u"  %@x  %@%@"_s, {QString::number(zeile.dokumente), zeile.kenntnis.anzeige, wort(zeile.vorbehalt)}));
    for (const auto &platz : zeile.kenntnis.plaetze) {
        const Eintrag eintrag{.schluessel = {}, .anzeige = {}, .ort = platz.ort};
        drucken(gefuellt(u"        -> %@, %@x"_s, {einzeilig(eintrag.ziel()), QString::number(platz.dokumente)}));
    }
    for (const QString &zeuge : zeile.zeugen)
        drucken(u"        etwa "_s + einzeilig(zeuge));
}

void zeilenDrucken(const QString &titel, const QList<Zeile> &alle, bool angekreuzte)
{
    QList<Zeile> zeilen = alle;
    zeilen.removeIf([&](const Zeile &z) { return z.angekreuzt != angekreuzte; });
    if (zeilen.isEmpty())
        return;
    drucken(gefuellt(titel, {QString::number(zeilen.size())}));
    for (const Zeile &zeile : std::as_const(zeilen))
        zeileDrucken(zeile);
}

void uebrigeDrucken(const QString &titel, const Ablagelesung::Uebrige &uebrige)
{
    if (uebrige.anzahl == 0)
        return;
    const QString dateien = uebrige.anzahl == 1 ? u"1 Datei"_s : QString::number(uebrige.anzahl) + u" Dateien"_s;
    drucken(u'\n' + titel + u": "_s + dateien);
    for (const QString &beispiel : uebrige.beispiele)
        drucken(u"        etwa "_s + einzeilig(beispiel));
}
} // namespace

void Kommandozeile::ausAblage(Datenbank &db, const Profil &profil, bool anwenden)
{
    const auto ergebnis = Ablagelesung::lesen(db, profil);
    drucken(gefuellt(u"PDF-Dateien in der Ablage: %@"_s, {QString::number(ergebnis.dateien)}));
    if (ergebnis.unlesbareOrdner > 0)
        Ausgabe::melden(gefuellt(u"Nicht lesbare Ordner: %@"_s, {QString::number(ergebnis.unlesbareOrdner)}));
    zeilenDrucken(u"\nAus der Ablage zu lernen, %@ Gegenüber\n"_s, ergebnis.zeilen, true);
    zeilenDrucken(u"\nNicht vorgeschlagen, %@ Gegenüber\n"_s, ergebnis.zeilen, false);
    uebrigeDrucken(u"Der Name sagt kein Gegenüber"_s, ergebnis.namen);
    uebrigeDrucken(u"Der Ort steht nicht in der Struktur"_s, ergebnis.orte);
    const auto kenntnisse = Ablagelesung::angekreuzte(ergebnis.zeilen);
    if (kenntnisse.isEmpty())
        return drucken(u"\nNichts zu lernen."_s);
    if (!anwenden)
        return drucken(u"\nNur gezeigt. Mit --anwenden wird es übernommen."_s);
    lernen::Baumwissen(db, profil).uebernehmen(kenntnisse, lernen::Baumwissen::Wartende::Lassen);
    drucken(gefuellt(u"\nAus der Ablage gelernt: %@ Gegenüber"_s, {QString::number(kenntnisse.size())}));
}
} // namespace quillmar::app
