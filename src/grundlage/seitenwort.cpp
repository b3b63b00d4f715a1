#include "seitenwort.h"

#include <algorithm>

namespace quillmar::grundlage
{
namespace
{
/** How many more words follow the one before to the right than to the left, at its height. */
qsizetype nachRechts(const Seitenworte &worte)
{
    qsizetype mehr = 0;
    for (qsizetype i = 1; i < worte.size(); ++i) {
        const QRectF &a = worte.at(i - 1).ort;
        const QRectF &b = worte.at(i).ort;
        if (b.center().y() > a.top() && b.center().y() < a.bottom())
            mehr += b.left() > a.left() ? 1 : -1;
    }
    return mehr;
}
} // namespace

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

int leserichtung(const Seitenworte &worte)
{
    constexpr qsizetype langesWort = 4; // is wider than high, whatever the page's shape
    const auto hohe = std::count_if(worte.begin(), worte.end(), [](const Seitenwort &w) {
        return w.text.size() >= langesWort && w.ort.height() > w.ort.width();
    });
    const auto lange =
        std::count_if(worte.begin(), worte.end(), [](const Seitenwort &w) { return w.text.size() >= langesWort; });
    const int grad = 2 * hohe > lange ? 90 : 0;
    return grad + (nachRechts(gedreht(worte, grad)) < 0 ? 180 : 0);
}
} // namespace quillmar::grundlage
