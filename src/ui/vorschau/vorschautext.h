#pragma once

#include "namensraeume.h"
#include "seitenwerk.h"
#include "zeichen.h"

#include <QString>

namespace quillmar::vorschau
{
/** Sign, title and line that the preview shows in place of pages. */
struct Vorschausatz {
    Symbol zeichen = Symbol::Keines;
    QString titel;
    QString zeile;
};

/** The words for a file that cannot be shown. */
[[nodiscard]] Vorschausatz vorschausatz(Vorschaubefund befund);

/** The words for no document at all. */
[[nodiscard]] Vorschausatz satzOhneDokument();

/** "Seite 2 von 5", "1 Seite"; empty without pages. */
[[nodiscard]] QString seitenanzeige(int seite, int seiten);
} // namespace quillmar::vorschau
