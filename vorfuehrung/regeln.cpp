#include "regeln.h"

#include "anfrage.h"
#include "angaben.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

struct Stichwort {
    QString rubrik;
    QString wort;
    int gewicht;
};

const QList<Stichwort> &stichworte()
{
    static const QList<Stichwort> liste{
        {u"Eingangsrechnungen"_s, u"rechnungsnummer"_s, 6},
        {u"Eingangsrechnungen"_s, u"rechnung nr."_s, 6},
        {u"Eingangsrechnungen"_s, u"rechnungsbetrag"_s, 3},
        {u"Kontoauszüge"_s, u"kontoauszug"_s, 6},
        {u"Kontoauszüge"_s, u"kontostand"_s, 4},
        {u"Steuerbescheide"_s, u"finanzamt"_s, 3},
        {u"Steuerbescheide"_s, u"steuerbescheid"_s, 6},
        {u"Steuerbescheide"_s, u"vorauszahlungsbescheid"_s, 6},
        {u"Versicherungen"_s, u"versicherung"_s, 4},
        {u"Versicherungen"_s, u"haftpflicht"_s, 3},
        {u"Versicherungen/Auto"_s, u"kfz-versicherung"_s, 7},
        {u"Versicherungen/Auto"_s, u"kraftfahrzeug"_s, 4},
        {u"Versicherungen/Hausrat"_s, u"hausrat"_s, 7},
        {u"Verträge"_s, u"vertrag"_s, 5},
        {u"Verträge"_s, u"kündigungsfrist"_s, 2},
        {u"Urkunden"_s, u"urkunde"_s, 6},
        {u"Urkunden"_s, u"zeugnis"_s, 6},
        {u"Protokolle"_s, u"protokoll der"_s, 6},
        {u"Protokolle"_s, u"tagesordnung"_s, 3},
        {u"Einladungen"_s, u"einladung"_s, 6},
        {u"Wohnung"_s, u"wohnung"_s, 4},
        {u"Schriftverkehr"_s, u"schreiben"_s, 1},
        {u"Schriftverkehr"_s, u"herzliche grüße"_s, 3},
    };
    return liste;
}

int wertung(const QString &rubrik, const QString &text)
{
    int summe = 0;
    for (const Stichwort &eintrag : stichworte())
        if (eintrag.rubrik == rubrik && text.contains(eintrag.wort))
            summe += eintrag.gewicht;
    return summe;
}

bool istGeschaeftlich(const QString &text)
{
    static const QStringList worte{u"lichtbilder"_s, u"atelier"_s, u"betrieb"_s, u"gewerbe"_s, u"geschäftskonto"_s};
    return std::ranges::any_of(worte, [&text](const QString &wort) { return text.contains(wort); });
}

/** Of equal rubrics in several branches the one whose branch suits the text. */
bool passtBesser(const Ort &ort, bool geschaeftlich)
{
    static const QStringList geschaeft{u"Firma"_s, u"Geschäft"_s, u"Betrieb"_s, u"Gewerbe"_s, u"Büro"_s};
    return geschaeft.contains(ort.zweig) == geschaeftlich;
}

std::optional<Ort> ortAus(const Anfrage &anfrage)
{
    const QString text = anfrage.zeilen.join(u'\n').toLower();
    const bool geschaeftlich = istGeschaeftlich(text);
    std::optional<Ort> bester;
    int beste = 0;
    for (const Ort &ort : anfrage.orte) {
        const int punkte = 2 * wertung(ort.rubrik, text) + (passtBesser(ort, geschaeftlich) ? 1 : 0);
        if (punkte > std::max(beste, 1)) {
            bester = ort;
            beste = punkte;
        }
    }
    return bester;
}

} // namespace

QJsonObject antwortAuf(const QString &prompt)
{
    const Anfrage anfrage = anfrageLesen(prompt);
    if (anfrage.nachfrage)
        return {{u"gegenueber"_s, anderePartei(anfrage.zeilen, anfrage.eigene)}};
    const QString datum = datumAus(anfrage.zeilen);
    const QString gegenueber = gegenueberAus(anfrage.zeilen, anfrage.eigene);
    const std::optional<Ort> ort = ortAus(anfrage);
    const double konfidenz = 0.92 - (datum.isEmpty() ? 0.3 : 0) - (gegenueber.isEmpty() ? 0.2 : 0) - (ort ? 0 : 0.4);
    return {{u"datum"_s, datum},
            {u"gegenueber"_s, gegenueber},
            {u"titel"_s, titelAus(anfrage.zeilen)},
            {u"zweig"_s, ort ? ort->zweig : QString()},
            {u"ablage"_s, ort ? ort->ablage : QString()},
            {u"rubrik"_s, ort ? ort->rubrik : QString()},
            {u"konfidenz"_s, std::max(0.0, konfidenz)}};
}

} // namespace vorfuehrung
