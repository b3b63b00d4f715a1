#include "ausgabe.h"
#include "ausnahmefilter.h"
#include "dokumente.h"
#include "kommandozeile.h"
#include "lernspeicher.h"
#include "selbstpruefung.h"
#include "text.h"
#include "transaktion.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
using Ausgabe::drucken;

namespace
{
constexpr qint64 hoechstensDokumente = 50;

Angaben bestaetigt(const QString &gegenueber)
{
    Angaben a;
    a.gegenueber = gegenueber;
    a.ort = {.zweig = u"Selbsttest"_s, .ablage = u"Stammdaten"_s, .rubrik = u"Telefon"_s};
    return a;
}

void namensregeln(Selbstpruefung &p)
{
    using namespace Lernregeln;
    const QString kurz = u"Beispiel Telefon"_s;
    const QString lang = u"Beispiel Telefon Deutschland"_s;
    p.pruefe(schluessel(u"Beispiel Telefon GmbH"_s) == schluessel(kurz), u"Rechtsform wird abgestreift"_s);
    p.pruefe(schluessel(u"Stadtwerke Köln"_s) == schluessel(u"Stadtwerke Koeln"_s), u"Umlaute vereinheitlicht"_s);
    p.pruefe(passt(schluessel(kurz), schluessel(lang)), u"Kurzform trifft Langform"_s);
    p.pruefe(!passt(schluessel(kurz), schluessel(u"Musterbank"_s)), u"fremde Gegenseiten bleiben getrennt"_s);
    p.pruefe(!darfErsetzen(kurz, kurz), u"gleicher Name löst keine Änderung aus"_s);
    p.pruefe(darfErsetzen(kurz, u"Beispiel Telefon GmbH"_s), u"Rechtsform wird vereinheitlicht"_s);
    p.pruefe(darfErsetzen(lang, kurz), u"kurze Schreibweise wird ergänzt"_s);
    p.pruefe(!darfErsetzen(kurz, lang), u"längere Schreibweise wird nicht verkürzt"_s);
    p.pruefe(!darfErsetzen(kurz, u"Musterbank"_s), u"fremder Name wird nicht überschrieben"_s);
}

void zuordnungen(Selbstpruefung &p, Lernspeicher &speicher)
{
    const auto eintrag = [&speicher] { return speicher.vorschlag(u"Selbsttestwerk Nord"_s); };
    const qsizetype vorher = speicher.alle().size();
    speicher.merken(0, bestaetigt(u"Selbsttestwerk Nord GmbH"_s), u"Selbsttestwerk Nord GmbH"_s);
    p.pruefe(speicher.alle().size() == vorher + 1, u"eine Zuordnung gemerkt"_s);
    p.pruefe(eintrag() && eintrag()->ort.rubrik == u"Telefon"_s, u"Schreibvariante findet die Zuordnung wieder"_s);
    p.pruefe(eintrag() && eintrag()->anzeige == u"Selbsttestwerk Nord GmbH"_s, u"Schreibweise wird mitgespeichert"_s);
    p.pruefe(!speicher.vorschlag(u"Zzz Unbekannt Qqq"_s), u"fremde Gegenseite findet nichts"_s);
    speicher.merken(0, bestaetigt(u"Selbsttestwerk Nord GmbH"_s), u"Selbsttestwerk Nord GmbH"_s);
    p.pruefe(eintrag() && eintrag()->anzahl == 2, u"zweite Bestätigung wird gezählt"_s);
}

void gleichungen(Selbstpruefung &p, Lernspeicher &speicher)
{
    const qsizetype vorher = speicher.gleichungen().size();
    speicher.merken(0, bestaetigt(u"Selbsttestwerk Süd GmbH"_s), u"Altername Selbsttest AG"_s);
    p.pruefe(speicher.gleichungen().size() == vorher + 1, u"Namensgleichung gemerkt"_s);
    p.pruefe(speicher.gleichwertig(u"Altername Selbsttest AG"_s) == u"Selbsttestwerk Süd GmbH"_s,
             u"alter Name führt zum neuen"_s);
    p.pruefe(speicher.gleichwertig(u"Altername Selbsttest GmbH"_s) == u"Selbsttestwerk Süd GmbH"_s,
             u"Rechtsform stört die Gleichung nicht"_s);
}

void gedaechtnis(Selbstpruefung &p, Datenbank &db)
{
    p.block(u"Gedächtnis"_s);
    // Rolled back at the end: nothing that is learned here stays.
    const Transaktion probe(db);
    Lernspeicher speicher(db);
    zuordnungen(p, speicher);
    namensregeln(p);
    gleichungen(p, speicher);
}

void ausnahmeregeln(Selbstpruefung &p)
{
    const Ausnahmefilter filter({u"Fotos"_s, u""_s, u"privat/2019/Belege"_s, u"/Vorlagen/"_s});
    const auto trifft = [&](const QString &ordner, const QString &datei) { return filter.erste(ordner, datei); };
    const QString brief = u"Brief.pdf"_s;
    p.pruefe(filter.regeln().size() == 3, u"leere Regel verworfen, 3 übrig"_s);
    p.pruefe(trifft(u"Fotograf/Jahresablage/2019/Fotos"_s, brief).has_value(), u"bloßer Name trifft überall"_s);
    p.pruefe(trifft(u"privat/Stammdaten/Fotos"_s, brief).has_value(), u"derselbe Name trifft auch an zweiter Stelle"_s);
    p.pruefe(trifft(u"privat/2019/Belege"_s, brief).has_value(), u"Pfadregel trifft ihren Ort"_s);
    p.pruefe(!trifft(u"Fotograf/2019/Belege"_s, brief), u"Pfadregel trifft nicht den gleichnamigen Ordner anderswo"_s);
    p.pruefe(trifft(u"Firma/Vorlagen"_s, brief).has_value(), u"Schrägstriche am Rand werden abgestreift"_s);
    p.pruefe(trifft(u"Firma"_s, u"Urlaubsfotos 2020.pdf"_s).has_value(), u"bloßer Name trifft auch im Dateinamen"_s);
    p.pruefe(!trifft(u"Firma"_s, u"Rechnung.pdf"_s), u"unbeteiligte Datei bleibt drin"_s);
    const auto pfadregel = trifft(u"privat/2019/Belege"_s, brief);
    p.pruefe(pfadregel && pfadregel->istPfad, u"Pfadregel wird als Pfad erkannt"_s);
}

void ordnerwahl(Selbstpruefung &p)
{
    Profil profil;
    profil.quelle = u"/Volumes/Platte/Ablage"_s;
    p.pruefe(profil.regelFuer(u"/Volumes/Platte/Ablage/privat/2019/Fotos"_s) == u"privat/2019/Fotos"_s,
             u"Ordnerwahl liefert den Zwischenpfad"_s);
    p.pruefe(!profil.regelFuer(profil.quelle), u"Herkunftsordner selbst ergibt keine Regel"_s);
    p.pruefe(profil.regelFuer(u"/ganz/woanders/Fotos"_s) == u"Fotos"_s,
             u"Ordner außerhalb fällt auf den bloßen Namen zurück"_s);
}
} // namespace

void Kommandozeile::selbsttest(const std::shared_ptr<Datenbank> &katalog, const Profil &profil)
{
    Datenbank &db = *katalog;
    const qint64 anzahl = Dokumente(db).anzahl();
    if (anzahl > hoechstensDokumente)
        return drucken(gefuellt(u"Abbruch. Das Profil %@ hat %@ Dokumente. Der Selbsttest ist nur für "
                                "kleine Probeprofile gedacht."_s,
                                {profil.name, QString::number(anzahl)}));
    Selbstpruefung p;
    gedaechtnis(p, db);
    p.block(u"Ausnahmen"_s);
    ausnahmeregeln(p);
    ordnerwahl(p);
    betriebsartPruefen(p, katalog, profil);
    p.ergebnis();
}
} // namespace quillmar::app
