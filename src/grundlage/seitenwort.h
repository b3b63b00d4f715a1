#pragma once

#include "namensraeume.h"

#include <QList>
#include <QRectF>
#include <QString>

namespace quillmar::grundlage
{
/** A word as it stands on a page. */
struct Seitenwort {
    QString text;
    QRectF ort; ///< in shares of the page, from its top left: 0 to 1
    bool operator==(const Seitenwort &) const = default;
};

/** The words of one page in the order in which they are read. */
using Seitenworte = QList<Seitenwort>;

/** Words that were taken from the pages of a document. */
struct Wortgriff {
    QString text;        ///< with a blank between each two
    int seite = 0;       ///< from 0
    qsizetype wort = 0;  ///< the first one, from 0
    qsizetype worte = 0; ///< how many of that page; 0 if they are of several pages
};

/** Where @p ort of a page lies when the page is turned clockwise by @p grad, a multiple of 90. */
[[nodiscard]] QRectF gedreht(const QRectF &ort, int grad);
[[nodiscard]] Seitenworte gedreht(Seitenworte worte, int grad);

/** Degrees clockwise (0, 90, 180 or 270) by which @p worte are to be turned, so that their lines run to the right. */
[[nodiscard]] int leserichtung(const Seitenworte &worte);
} // namespace quillmar::grundlage
