#include "baustein.h"

#include "sprache.h"

using namespace Qt::StringLiterals;

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

QString bausteinAnzeige(Baustein baustein)
{
    switch (baustein) {
    case Baustein::datum:
        return Sprache::text(u"Datum"_s);
    case Baustein::jahr:
        return Sprache::text(u"Jahr"_s);
    case Baustein::monat:
        return Sprache::text(u"Monat"_s);
    case Baustein::gegenueber:
        return Sprache::text(u"Gegenüber"_s);
    case Baustein::titel:
        return Sprache::text(u"Titel"_s);
    case Baustein::zweig:
        return Sprache::text(u"Zweig"_s);
    case Baustein::ablage:
        return Sprache::text(u"Ablageart"_s);
    case Baustein::rubrik:
        return Sprache::text(u"Rubrik"_s);
    case Baustein::altname:
        return Sprache::text(u"Bisheriger Name"_s);
    }
    return {};
}

QString bausteinErklaerung(Baustein baustein)
{
    switch (baustein) {
    case Baustein::datum:
        return Sprache::text(u"Datum des Schreibens, JJJJ-MM-TT"_s);
    case Baustein::jahr:
        return Sprache::text(u"Jahr aus dem Datum"_s);
    case Baustein::monat:
        return Sprache::text(u"Monat aus dem Datum"_s);
    case Baustein::gegenueber:
        return Sprache::text(u"Absender oder Empfänger"_s);
    case Baustein::titel:
        return Sprache::text(u"Worum es im Schreiben geht"_s);
    case Baustein::zweig:
        return Sprache::text(u"Oberste Ebene der Ablage"_s);
    case Baustein::ablage:
        return Sprache::text(u"Zweite Ebene, etwa Jahresablage oder Stammdaten"_s);
    case Baustein::rubrik:
        return Sprache::text(u"Sachgruppe innerhalb der Ablage"_s);
    case Baustein::altname:
        return Sprache::text(u"Dateiname vor der Umbenennung"_s);
    }
    return {};
}
