#include "seitenordnung.h"

#include <algorithm>
#include <cmath>

namespace quillmar::seiten
{
namespace
{
constexpr int kleinsteSeite = 8;
constexpr double spielraum = 0.001;
// Even 20,000 of them below each other stay within the range of pixels.
constexpr double groessteKante = 100'000;
constexpr double groesstesBild = 24e6;

double massstab(const QSizeF &groesse, const Zoom &zoom, const Seitenraum &raum)
{
    const double breite = (raum.flaeche.width() - 2 * raum.rand) / groesse.width();
    switch (zoom.art) {
    case Zoom::Art::Breite:
        return breite;
    case Zoom::Art::Seite:
        return std::min(breite, (raum.flaeche.height() - 2 * raum.rand) / groesse.height());
    case Zoom::Art::Stufe:
        break;
    }
    return zoom.stufe * raum.pixelJePunkt;
}

QSize pixel(const QSizeF &groesse, double wunsch)
{
    const double massstab = std::min(wunsch, groessteKante / std::max(groesse.width(), groesse.height()));
    return {std::max(kleinsteSeite, int(std::lround(groesse.width() * massstab))),
            std::max(kleinsteSeite, int(std::lround(groesse.height() * massstab)))};
}
} // namespace

Zoom Zoom::ueber(double massstab)
{
    const auto *stufe = std::upper_bound(stufen.begin(), stufen.end(), massstab + spielraum);
    return {Art::Stufe, stufe == stufen.end() ? stufen.back() : *stufe};
}

Zoom Zoom::unter(double massstab)
{
    const auto *stufe = std::lower_bound(stufen.begin(), stufen.end(), massstab - spielraum);
    return {Art::Stufe, stufe == stufen.begin() ? stufen.front() : *std::prev(stufe)};
}

Seitenordnung::Seitenordnung(const QList<QSizeF> &groessen, const Zoom &zoom, const Seitenraum &raum)
{
    int y = raum.rand;
    int breiteste = 0;
    for (const QSizeF &groesse : groessen) {
        m_seiten << QRect(QPoint(0, y), pixel(groesse, massstab(groesse, zoom, raum)));
        y += m_seiten.last().height() + raum.luecke;
        breiteste = std::max(breiteste, m_seiten.last().width());
    }
    m_gesamt = {std::max(raum.flaeche.width(), breiteste + 2 * raum.rand), y - raum.luecke + raum.rand};
    for (QRect &seite : m_seiten)
        seite.moveLeft((m_gesamt.width() - seite.width()) / 2);
}

int Seitenordnung::seiteBei(int y) const
{
    const auto gefunden =
        std::find_if(m_seiten.begin(), m_seiten.end(), [y](const QRect &seite) { return seite.bottom() >= y; });
    return int(std::min<qsizetype>(gefunden - m_seiten.begin(), std::max<qsizetype>(m_seiten.size() - 1, 0)));
}

QPoint Seitenordnung::ortIn(const Seitenordnung &andere, const QPoint &ort) const
{
    const int seite = seiteBei(ort.y());
    const QRect hier = m_seiten.value(seite);
    const QRect dort = andere.m_seiten.value(seite);
    if (hier.isEmpty() || dort.isEmpty())
        return ort;
    const QPointF abstand = ort - hier.topLeft();
    return (dort.topLeft() +
            QPointF(abstand.x() * dort.width() / hier.width(), abstand.y() * dort.height() / hier.height()))
        .toPoint();
}

QSize bildgroesse(const QSize &seite, double pixelverhaeltnis)
{
    const double wunsch = double(seite.width()) * seite.height() * pixelverhaeltnis * pixelverhaeltnis;
    const double faktor = pixelverhaeltnis * std::min(1.0, std::sqrt(groesstesBild / wunsch));
    return (QSizeF(seite) * faktor).toSize().expandedTo(QSize(1, 1));
}
} // namespace quillmar::seiten
