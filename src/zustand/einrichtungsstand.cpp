#include "einrichtungsstand.h"

#include "baumwissen.h"
#include "bestand.h"
#include "dokumente.h"
#include "einordnung.h"
#include "lernspeicher.h"
#include "ollama.h"
#include "sprache.h"
#include "text.h"
#include "werkzeuge.h"
#include "ziel.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr double zeichenJeToken = 3; // German with the tokenizers of common models: 3.1 to 3.8
constexpr int tokenDerAntwort = 300;
constexpr int zeichenDesRahmens = 300; // file name and what stands around the text

QStringList ebenen(const QString &ordner, const Profil &profil)
{
    const QString wurzel = QDir::cleanPath(profil.zielWurzel);
    return (profil.zielWurzel.isEmpty() ? ordner : ordner.mid(wurzel.size())).split(u'/', Qt::SkipEmptyParts);
}

QStringList zielebenen(const Angaben &a, const Profil &profil)
{
    return profil.zielWurzel.isEmpty() ? QStringList() : ebenen(Ziel::ordner(a.ort, a.jahr, profil), profil);
}

/** A place that the structure knows, so that the example shows all levels. */
Ort erfundenerOrt(const Profil &profil)
{
    for (const Zweig &zweig : profil.zweige) {
        for (const Ablageart &art : zweig.ablagen) {
            if (!art.rubriken.isEmpty())
                return {.zweig = zweig.name, .ablage = art.name, .rubrik = art.rubriken.first()};
        }
    }
    return {};
}

Dokument erfundenes(const Profil &profil)
{
    Dokument d;
    d.dateiname = u"Scan_0042.pdf"_s;
    d.angaben = {.datum = u"2024-03-01"_s,
                 .gegenueber = Sprache::text(u"Stadtwerke Musterstadt"_s),
                 .titel = Sprache::text(u"Jahresabrechnung Strom"_s),
                 .ort = erfundenerOrt(profil),
                 .jahr = u"2024"_s};
    return d;
}
} // namespace

bool Programmstand::kann(const QString &sprache) const
{
    const QStringList teile = sprache.split(u'+', Qt::SkipEmptyParts);
    return !teile.isEmpty() &&
           std::all_of(teile.begin(), teile.end(), [this](const QString &teil) { return sprachen.contains(teil); });
}

QStringList Programmstand::sprachenAus(const QByteArray &ausgabe)
{
    QStringList codes;
    for (const QString &zeile : QString::fromUtf8(ausgabe).split(u'\n', Qt::SkipEmptyParts)) {
        const QString code = zeile.trimmed();
        // The first line is a heading; "script/Latin" and "osd" are no languages.
        if (!code.isEmpty() && !code.contains(u' ') && !code.contains(u'/') && code != "osd"_L1)
            codes << code;
    }
    codes.sort();
    codes.removeDuplicates();
    return codes;
}

Programmstand Programmstand::pruefen()
{
    Programmstand stand;
    for (const auto &[name, paket] :
         {std::pair(u"pdftotext"_s, u"poppler-utils"_s), std::pair(u"pdftoppm"_s, u"poppler-utils"_s),
          std::pair(u"tesseract"_s, u"tesseract-ocr"_s)})
        stand.werkzeuge << Werkzeug{.name = name, .paket = paket, .pfad = Werkzeuge::pfad(name).value_or(QString())};
    try {
        stand.sprachen = sprachenAus(Werkzeuge::starten(u"tesseract"_s, {u"--list-langs"_s}, {.uhr = 10s}));
    } catch (const Fehler &) {
        return stand; // that it is missing or broken shows in the list being empty
    }
    return stand;
}

Quellstand Quellstand::zaehlen(const Profil &profil, const std::shared_ptr<Datenbank> &db,
                               const std::function<bool()> &halt)
{
    const Bestand::Eigenes eigenes = db ? Bestand::eigenesVon(*db, profil.quelle) : Bestand::Eigenes();
    const Bestand::Ergebnis ergebnis = Bestand::suchen(profil, eigenes, halt);
    Quellstand stand{.anzahl = ergebnis.funde.size(),
                     .ausgelassen = ergebnis.verweise + ergebnis.unlesbareNamen + ergebnis.doppelteNamen,
                     .ausgenommen = ergebnis.ausgenommen,
                     .ausgenommene = {}};
    for (const Bestand::Ausgenommene &a : ergebnis.ausgenommene)
        stand.ausgenommene << gefuellt(Sprache::text(u"%@ (Ausnahme: %@)"_s), {a.pfad, a.regel});
    return stand;
}

Beispiel Beispiel::fuer(const Profil &profil, const std::optional<Dokument> &dokument)
{
    const Dokument d = dokument.value_or(erfundenes(profil));
    Angaben ohneTitel = d.angaben;
    ohneTitel.titel.clear();
    Angaben ohneRubrik = d.angaben;
    ohneRubrik.ort.rubrik.clear();
    return {.echt = dokument.has_value(),
            .dokument = d.dateiname,
            .name = Ziel::dateiname(d.angaben, d.dateiname, profil),
            .ort = zielebenen(d.angaben, profil),
            .ohneTitel = Ziel::dateiname(ohneTitel, d.dateiname, profil),
            .ohneRubrik = zielebenen(ohneRubrik, profil)};
}

std::optional<Dokument> Beispiel::naechstes(Datenbank &db, qint64 id)
{
    return Dokumente(db).naechstesVollstaendige(id);
}

Lernstand Lernstand::lesen(Datenbank &db)
{
    const Lernspeicher speicher(db);
    Lernstand stand{.zuordnungen = speicher.alle(),
                    .orte = {},
                    .gleichungen = speicher.gleichungen(),
                    .ausAblage = Baumwissen(db).istUebernommen()};
    const auto orte = speicher.alleOrte();
    for (const Eintrag &e : std::as_const(stand.zuordnungen)) {
        QList<Ortszahl> eigene = orte.value(e.schluessel);
        if (eigene.isEmpty()) // of an earlier version
            eigene << Ortszahl{.ort = e.ort, .anzahl = e.anzahl};
        for (const Ortszahl &o : std::as_const(eigene))
            stand.orte << Lernort{.kennung = kennungFuer(e.schluessel, o.ort),
                                  .gegenueber = e.anzeige,
                                  .ziel = Eintrag{.schluessel = {}, .anzeige = {}, .ort = o.ort}.ziel(),
                                  .anzahl = o.anzahl,
                                  .baum = o.baum};
    }
    return stand;
}

QString Lernstand::kennungFuer(const QString &schluessel, const Ort &ort)
{
    return QStringList{schluessel, ort.zweig, ort.ablage, ort.rubrik}.join(u'\n');
}

std::pair<QString, Ort> Lernstand::gemeint(const QString &kennung)
{
    const QStringList teile = kennung.split(u'\n');
    return {teile.value(0), {.zweig = teile.value(1), .ablage = teile.value(2), .rubrik = teile.value(3)}};
}

double platzImModell(const Profil &profil)
{
    const auto zeichen = double(Einordnung::anweisung(profil).size() + profil.maxZeichen + zeichenDesRahmens);
    return (zeichen / zeichenJeToken + tokenDerAntwort) / Ollama::kontext;
}

QString ordnernamenmangel(const QString &name)
{
    const QString sauber = name.trimmed();
    if (sauber.isEmpty())
        return Sprache::text(u"Der Ordner braucht einen Namen."_s);
    if (sauber.contains(u'/') || sauber == "."_L1 || sauber == ".."_L1)
        return Sprache::text(u"Nur ein Name, kein Pfad."_s);
    return {};
}
} // namespace quillmar::zustand
