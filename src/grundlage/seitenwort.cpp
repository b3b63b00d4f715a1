#include "seitenwort.h"

namespace quillmar::grundlage
{
QRectF gedreht(const QRectF &ort, int grad)
{
    constexpr int ganz = 360;
    switch ((grad % ganz + ganz) % ganz) {
    case 90:
        return {1 - ort.bottom(), ort.left(), ort.height(), ort.width()};
    case 180:
        return {1 - ort.right(), 1 - ort.bottom(), ort.width(), ort.height()};
    case 270:
        return {ort.top(), 1 - ort.right(), ort.height(), ort.width()};
    default:
        return ort;
    }
}

Seitenworte gedreht(Seitenworte worte, int grad)
{
    for (Seitenwort &wort : worte)
        wort.ort = gedreht(wort.ort, grad);
    return worte;
}
} // namespace quillmar::grundlage
