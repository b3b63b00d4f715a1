#include "dokument.h"

#include "wert.h"

namespace quillmar::katalog
{
namespace
{
Angaben angabenAus(const Zeile &zeile)
{
    return {
        .datum = zeile.text(u"datum"),
        .gegenueber = zeile.text(u"gegenueber"),
        .titel = zeile.text(u"titel"),
        .ort = {.zweig = zeile.text(u"zweig"), .ablage = zeile.text(u"ablage"), .rubrik = zeile.text(u"rubrik")},
        .jahr = zeile.text(u"jahr"),
    };
}
} // namespace

Dokument Dokument::aus(const Zeile &zeile)
{
    const qint64 aehnlich = zeile.ganz(u"aehnlich_zu");
    return {
        .id = zeile.ganz(u"id"),
        .pfad = zeile.text(u"pfad"),
        .dateiname = zeile.text(u"dateiname"),
        .altOrdner = zeile.text(u"alt_ordner"),
        .status = statusAus(zeile.text(u"status")),
        .hatTextebene = zeile.ganz(u"hat_textebene") == 1,
        .angaben = angabenAus(zeile),
        .konfidenz = zeile.komma(u"konfidenz"),
        .vorschlag = zeile.text(u"vorschlag"),
        .ortQuelle = zeile.text(u"ort_quelle"),
        .zweitmeinung = zeile.ganz(u"zweitmeinung") == 1,
        .gelerntVon = zeile.text(u"gelernt_von"),
        .aehnlichZu = aehnlich == 0 ? std::nullopt : std::optional(aehnlich),
        .aehnlichkeit = zeile.komma(u"aehnlichkeit"),
        .fehler = zeile.textOderNil(u"fehler"),
    };
}
} // namespace quillmar::katalog
