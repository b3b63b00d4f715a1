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

/** Where @p ort of a page lies when the page is turned clockwise by @p grad, a multiple of 90. */
[[nodiscard]] QRectF gedreht(const QRectF &ort, int grad);
[[nodiscard]] Seitenworte gedreht(Seitenworte worte, int grad);
} // namespace quillmar::grundlage
