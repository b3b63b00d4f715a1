#include "zeichentafel.h"

#include <algorithm>
#include <iterator>

namespace quillmar::bedienteile
{
namespace
{
using Farbe = Zeichenzeile::Farbe;

// Where the common themes show all but the same picture for two of our operations, only our own drawing is used.
constexpr Zeichenzeile zeilen[] = {
    // Cards
    {"slider.horizontal.3", "settings-configure", "regler"},
    {"play.circle", "media-playback-start", "start"},
    {"doc.text.magnifyingglass", "document-preview", "vorschau"},
    {"clock.arrow.circlepath", "clock", "uhr"},
    // Top bar
    {"plus", "list-add", "plus"},
    {"minus", "list-remove", "minus"},
    {"arrow.right.doc.on.clipboard", "document-export", "verschieben"},
    {"doc.on.doc.copy", "edit-copy", "kopieren"},
    {"menu", "application-menu", "menue"},
    // Preview
    {"minus.magnifyingglass", "", "lupe-minus"},
    {"plus.magnifyingglass", "", "lupe-plus"},
    {"arrow.left.and.right", "", "breite"},
    {"rectangle.arrowtriangle.2.inward", "", "ganze-seite"},
    {"doc.on.doc", "", "dublette"},
    // Actions
    {"skip", "mail-download-later", "spaeter"},
    {"undo", "edit-undo", "rueckgaengig"},
    {"arrow.left", "go-previous", "pfeil-links"},
    {"arrow.right", "go-next", "pfeil-rechts"},
    {"stop", "media-playback-stop", "halt"},
    {"reload", "view-refresh", "neu-laden"},
    {"folder", "folder", "ordner"},
    {"folder.open", "document-open", "ordner-auf"},
    {"arrow.up.forward.app", "document-open-folder", "aufschlagen"},
    {"pencil", "edit-rename", "umbenennen"},
    // Marks
    {"checkmark.circle", "", "gut", Farbe::Gut},
    {"exclamationmark.triangle", "", "warnung", Farbe::Warnung},
    {"xmark.circle", "", "fehler", Farbe::Fehler},
    {"questionmark.circle", "", "frage"},
    {"info.circle", "", "info"},
    {"circle", "", "offen"},
    {"circle.running", "", "laeuft", Farbe::Akzent},
    {"largecircle.fill.circle", "", "gewaehlt", Farbe::Akzent},
    {"arrow.uturn.backward", "", "rueckgaengig"},
    // Line signs of the empty states
    {"large.checkmark.circle", "", "gross-gut"},
    {"large.doc.text.magnifyingglass", "", "gross-vorschau"},
    {"large.lock", "", "gross-schloss"},
    {"large.damaged", "", "gross-beschaedigt"},
    {"large.missing", "", "gross-verschwunden"},
    {"large.clock", "", "gross-uhr"},
    {"large.folder", "", "gross-ordner"},
    {"large.play", "", "gross-start"},
};
} // namespace

const Zeichenzeile *Zeichentafel::zeile(const QString &name)
{
    const auto *gefunden = std::find_if(std::begin(zeilen), std::end(zeilen), [&name](const Zeichenzeile &zeile) {
        return name == QLatin1String(zeile.name);
    });
    return gefunden == std::end(zeilen) ? nullptr : gefunden;
}

QStringList Zeichentafel::namen()
{
    QStringList namen;
    for (const Zeichenzeile &zeile : zeilen)
        namen << QString::fromLatin1(zeile.name);
    return namen;
}
} // namespace quillmar::bedienteile
