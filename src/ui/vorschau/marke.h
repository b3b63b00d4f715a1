#pragma once

#include "namensraeume.h"

#include <QList>
#include <QRectF>

namespace quillmar::vorschau
{
/** What a mark on a page is for; each has its own quiet tone and letter. */
enum class Markenton { Datum, Gegenueber, Titel, Unterschied, Angebot };

/** A passage to be marked. */
struct Marke {
    int seite = 0;        ///< from 0
    QList<QRectF> orte{}; ///< one for each line, in shares of the page as it lies (unturned), 0 to 1
    Markenton ton = Markenton::Datum;
    bool stark = false; ///< of the field that has the focus
    bool operator==(const Marke &) const = default;
};
} // namespace quillmar::vorschau
