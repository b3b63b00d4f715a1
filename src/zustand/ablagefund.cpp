#include "ablagefund.h"

#include "pfade.h"
#include "sprache.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
using Ablagelesung::Vorbehalt;
using Marke = Befund::Marke;

namespace
{
constexpr qsizetype genannte = 3; // examples

QString zahl(qint64 wert) { return QString::number(wert); }

QString ziel(const Ort &ort) { return Eintrag{.schluessel = {}, .anzeige = {}, .ort = ort}.ziel(); }

QString dokumente(qint64 anzahl)
{
    return gefuellt(Sprache::text(anzahl, u"%@ Dokument"_s, u"%@ Dokumente"_s), {zahl(anzahl)});
}

/** A single document needs no word besides its count. */
QString vorbehaltswort(Vorbehalt vorbehalt)
{
    switch (vorbehalt) {
    case Vorbehalt::EigenerName:
        return Sprache::text(u"eigener Name"_s);
    case Vorbehalt::NurZiffern:
        return Sprache::text(u"nur Ziffern"_s);
    case Vorbehalt::ZuKurz:
        return Sprache::text(u"zu kurz zum Lernen"_s);
    case Vorbehalt::EinzelnesDokument:
    case Vorbehalt::Keiner:
        break;
    }
    return {};
}

QString beispiele(const Ablagelesung::Uebrige &uebrige, bool nurNamen)
{
    QStringList namen;
    for (const QString &pfad : uebrige.beispiele.first(std::min(genannte, uebrige.beispiele.size())))
        namen << gefuellt(Sprache::text(u"„%@“"_s), {nurNamen ? nameVon(pfad) : pfad});
    return namen.join(u", "_s);
}

QString nichtsZuLernen(const Ablagelesung::Ergebnis &fund, const QString &namensVorlage)
{
    if (fund.dateien == 0)
        return Sprache::text(u"Unter dem Zielordner liegt noch keine PDF-Datei, aus der sich lernen ließe."_s);
    QString satz = Sprache::text(u"Hier ist nichts zu lernen."_s) + u' ' + restsaetze(fund).join(u' ');
    if (fund.namen.anzahl > 0)
        satz += u' ' + gefuellt(Sprache::text(u"Die Vorlage „%@“ steht unter „Namen“."_s), {namensVorlage});
    if (fund.orte.anzahl > 0)
        satz += u' ' + Sprache::text(u"Die Struktur wird unter „Ziel“ eingelesen."_s);
    return satz;
}
} // namespace

Fundzeile fundzeile(const Ablagelesung::Zeile &zeile)
{
    const auto &plaetze = zeile.kenntnis.plaetze;
    Fundzeile neue{.gegenueber = zeile.kenntnis.anzeige,
                   .orte = {},
                   .zeugen = {},
                   .wort = dokumente(zeile.dokumente),
                   .waehlbar = zeile.vorbehalt != Vorbehalt::ZuKurz,
                   .angekreuzt = zeile.angekreuzt};
    for (const auto &platz : plaetze)
        neue.orte << (plaetze.size() == 1 ? ziel(platz.ort) : u"%1 (%2)"_s.arg(ziel(platz.ort), zahl(platz.dokumente)));
    for (const QString &pfad : zeile.zeugen)
        neue.zeugen << nameVon(pfad);
    if (const QString vorbehalt = vorbehaltswort(zeile.vorbehalt); !vorbehalt.isEmpty())
        neue.wort = vorbehalt + u" · "_s + neue.wort;
    return neue;
}

bool trifftSuche(const Ablagelesung::Zeile &zeile, const QString &suche)
{
    const QString gesucht = suchform(suche);
    if (suchform(zeile.kenntnis.anzeige).contains(gesucht))
        return true;
    return std::any_of(zeile.kenntnis.plaetze.begin(), zeile.kenntnis.plaetze.end(),
                       [&](const auto &platz) { return suchform(ziel(platz.ort)).contains(gesucht); });
}

Befund lesebefund(qint64 dateien)
{
    const QString satz = Sprache::text(u"Namen und Ordner werden gelesen …"_s);
    if (dateien == 0)
        return {.marke = Marke::Laeuft, .satz = satz};
    return {.marke = Marke::Laeuft,
            .satz = satz + u' ' + gefuellt(Sprache::text(u"Dateien bisher: %@"_s), {zahl(dateien)})};
}

Befund fundbefund(const Ablagelesung::Ergebnis &fund, const QString &namensVorlage)
{
    if (fund.zeilen.isEmpty())
        return {.marke = Marke::Hinweis, .satz = nichtsZuLernen(fund, namensVorlage)};
    const QStringList saetze = {
        gefuellt(Sprache::text(u"PDF-Dateien in der Ablage: %@, Gegenüber: %@."_s),
                 {zahl(fund.dateien), zahl(fund.zeilen.size())}),
        Sprache::text(u"Kreuze an, was das Programm lernen soll."_s),
        Sprache::text(u"Was du selbst bestätigt hast, geht immer vor; was früher aus der Ablage gelernt wurde, wird "
                      "ersetzt."_s)};
    return {.marke = fund.unlesbareOrdner > 0 ? Marke::Warnung : Marke::Keine, .satz = saetze.join(u' ')};
}

QStringList restsaetze(const Ablagelesung::Ergebnis &fund)
{
    QStringList saetze;
    if (const auto &namen = fund.namen; namen.anzahl > 0)
        saetze << gefuellt(Sprache::text(namen.anzahl, u"%@ Dateiname passt nicht zur Namensvorlage: %@."_s,
                                         u"%@ Dateinamen passen nicht zur Namensvorlage, etwa %@."_s),
                           {zahl(namen.anzahl), beispiele(namen, true)});
    if (const auto &orte = fund.orte; orte.anzahl > 0)
        saetze << gefuellt(Sprache::text(orte.anzahl, u"%@ Datei liegt an keinem Ort der Struktur: %@."_s,
                                         u"%@ Dateien liegen an keinem Ort der Struktur, etwa %@."_s),
                           {zahl(orte.anzahl), beispiele(orte, false)});
    if (fund.unlesbareOrdner > 0)
        saetze << gefuellt(Sprache::text(fund.unlesbareOrdner, u"%@ Ordner ließ sich nicht lesen."_s,
                                         u"%@ Ordner ließen sich nicht lesen."_s),
                           {zahl(fund.unlesbareOrdner)});
    return saetze;
}

Befund schreibbefund(qint64 gegenueber, qint64 erledigt, qint64 gesamt)
{
    const QString satz =
        gegenueber > 0 ? Sprache::text(u"Wird übernommen …"_s) : Sprache::text(u"Wird zurückgenommen …"_s);
    if (gesamt == 0)
        return {.marke = Marke::Laeuft, .satz = satz};
    return {.marke = Marke::Laeuft,
            .satz = satz + u' ' + gefuellt(Sprache::text(u"%@ von %@"_s), {zahl(erledigt), zahl(gesamt)})};
}

Befund gelungen(qint64 gegenueber, qint64 angepasste)
{
    QString satz = gegenueber > 0
                       ? gefuellt(Sprache::text(u"Aus der Ablage gelernt, Gegenüber: %@."_s), {zahl(gegenueber)})
                       : Sprache::text(u"Was aus der Ablage gelernt war, ist zurückgenommen."_s);
    if (angepasste > 0)
        satz += u' ' + gefuellt(Sprache::text(angepasste, u"%@ wartendes Dokument wurde angepasst."_s,
                                              u"%@ wartende Dokumente wurden angepasst."_s),
                                {zahl(angepasste)});
    return {.marke = Marke::Gut, .satz = satz};
}

Befund gescheitert(qint64 gegenueber, const QString &fehler)
{
    const QString was = gegenueber > 0 ? Sprache::text(u"Es wurde nicht alles übernommen: %@."_s)
                                       : Sprache::text(u"Es wurde nicht alles zurückgenommen: %@."_s);
    const QString rat = Sprache::text(u"Noch einmal drücken holt den Rest nach."_s);
    const QString grund = fehler.endsWith(u'.') ? fehler.chopped(1) : fehler;
    return {.marke = Marke::Warnung, .satz = gefuellt(was, {grund}) + u' ' + rat};
}
} // namespace quillmar::zustand
