#include "baustein.h"

#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
/** What the user reads of a placeholder. */
struct Bausteinworte {
    QString anzeige;
    QString erklaerung;
};

const Bausteinworte &worte(Baustein baustein)
{
    static const std::array<Bausteinworte, alleBausteine.size()> alle = {
        {{QUILLMAR_TEXT(u"Datum"_s), QUILLMAR_TEXT(u"Datum des Schreibens, JJJJ-MM-TT"_s)},
         {QUILLMAR_TEXT(u"Jahr"_s), QUILLMAR_TEXT(u"Jahr aus dem Datum"_s)},
         {QUILLMAR_TEXT(u"Monat"_s), QUILLMAR_TEXT(u"Monat aus dem Datum"_s)},
         {QUILLMAR_TEXT(u"Gegenüber"_s), QUILLMAR_TEXT(u"Absender oder Empfänger"_s)},
         {QUILLMAR_TEXT(u"Titel"_s), QUILLMAR_TEXT(u"Worum es im Schreiben geht"_s)},
         {QUILLMAR_TEXT(u"Zweig"_s), QUILLMAR_TEXT(u"Oberste Ebene der Ablage"_s)},
         {QUILLMAR_TEXT(u"Ablageart"_s), QUILLMAR_TEXT(u"Zweite Ebene, etwa Jahresablage oder Stammdaten"_s)},
         {QUILLMAR_TEXT(u"Rubrik"_s), QUILLMAR_TEXT(u"Sachgruppe innerhalb der Ablage"_s)},
         {QUILLMAR_TEXT(u"Bisheriger Name"_s), QUILLMAR_TEXT(u"Dateiname vor der Umbenennung"_s)}}};
    return alle.at(size_t(baustein));
}
} // namespace

QString bausteinWort(Baustein baustein)
{
    static const std::array woerter = {u"datum"_s, u"jahr"_s,   u"monat"_s,  u"gegenueber"_s, u"titel"_s,
                                       u"zweig"_s, u"ablage"_s, u"rubrik"_s, u"altname"_s};
    return woerter.at(size_t(baustein));
}

std::optional<Baustein> bausteinAus(QStringView wort)
{
    for (const Baustein baustein : alleBausteine) {
        if (bausteinWort(baustein) == wort)
            return baustein;
    }
    return std::nullopt;
}

QString bausteinAnzeige(Baustein baustein) { return Sprache::text(/* QUILLMAR_TEXT */ worte(baustein).anzeige); }

QString bausteinErklaerung(Baustein baustein) { return Sprache::text(/* QUILLMAR_TEXT */ worte(baustein).erklaerung); }
} // namespace quillmar::ablage
