#include "wortkarte.h"

#include <algorithm>
#include <limits>

namespace quillmar::seiten
{
namespace
{
constexpr double saum = 0.2; // of a word's height: what still belongs to it

/** @p b goes on where @p a ends, at the same height. */
bool stehenInEinerZeile(const QRectF &a, const QRectF &b)
{
    const double gemeinsam = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    return gemeinsam > std::min(a.height(), b.height()) / 2 && b.left() >= a.left();
}

double luecke(double wert, double von, double bis) { return std::max({0.0, von - wert, wert - bis}); }
} // namespace

Wortkarte::Wortkarte(Seitenworte worte, double breiteZuHoehe)
    : m_worte(std::move(worte)), m_breiteZuHoehe(breiteZuHoehe)
{
    m_zeilen.reserve(m_worte.size());
    const Seitenworte aufrechte = gedreht(m_worte, leserichtung(m_worte)); // a page may be looked at from the side
    int zeile = 0;
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        if (i > 0 && !stehenInEinerZeile(aufrechte.at(i - 1).ort, aufrechte.at(i).ort))
            ++zeile;
        m_zeilen << zeile;
        if (zeile == m_zeilenorte.size())
            m_zeilenorte << QRectF();
        m_zeilenorte.last() |= m_worte.at(i).ort;
    }
}

/** How far @p ort is from a word to the side and up or down, both in shares of the page's height. */
QPointF Wortkarte::abstand(const QPointF &ort, qsizetype wort) const
{
    const QRectF &da = m_worte.at(wort).ort;
    return {luecke(ort.x(), da.left(), da.right()) * m_breiteZuHoehe, luecke(ort.y(), da.top(), da.bottom())};
}

std::optional<qsizetype> Wortkarte::wortBei(const QPointF &ort) const
{
    std::optional<qsizetype> bestes;
    double naehe = std::numeric_limits<double>::max();
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        const double weite = abstand(ort, i).manhattanLength();
        if (weite < naehe && weite <= m_worte.at(i).ort.height() * saum) {
            naehe = weite;
            bestes = i;
        }
    }
    return bestes;
}

std::optional<qsizetype> Wortkarte::naechstes(const QPointF &ort) const
{
    std::optional<qsizetype> bestes;
    std::pair<double, double> naehe;
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        const QRectF &zeile = m_zeilenorte.at(m_zeilen.at(i));
        const std::pair weite(luecke(ort.y(), zeile.top(), zeile.bottom()), abstand(ort, i).x());
        if (!bestes || weite < naehe) {
            naehe = weite;
            bestes = i;
        }
    }
    return bestes;
}

QString Wortkarte::text(qsizetype von, qsizetype bis, QChar umbruch) const
{
    QString text;
    for (qsizetype i = von; i <= bis; ++i) {
        if (i > von)
            text += m_zeilen.at(i) == m_zeilen.at(i - 1) ? QChar(u' ') : umbruch;
        text += m_worte.at(i).text;
    }
    return text;
}

QList<QRectF> Wortkarte::orte(qsizetype von, qsizetype bis) const
{
    QList<QRectF> orte;
    for (qsizetype i = von; i <= bis; ++i) {
        if (i > von && m_zeilen.at(i) == m_zeilen.at(i - 1))
            orte.last() |= m_worte.at(i).ort;
        else
            orte << m_worte.at(i).ort;
    }
    return orte;
}

std::optional<QRectF> Wortkarte::freier(const QList<QRectF> &plaetze) const
{
    const auto istFrei = [this](const QRectF &platz) {
        return QRectF(0, 0, 1, 1).contains(platz) &&
               std::none_of(m_worte.cbegin(), m_worte.cend(), [&platz](const Seitenwort &wort) {
                   // Boxes of words reach a little above and below their letters.
                   const double luft = wort.ort.height() * saum;
                   return platz.intersects(wort.ort.adjusted(0, luft, 0, -luft));
               });
    };
    const auto freier = std::find_if(plaetze.cbegin(), plaetze.cend(), istFrei);
    return freier == plaetze.cend() ? std::nullopt : std::optional(*freier);
}
} // namespace quillmar::seiten
