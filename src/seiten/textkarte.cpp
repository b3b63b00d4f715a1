#include "textkarte.h"

#include <QStringList>
#include <algorithm>

namespace quillmar::seiten
{
Wortspanne spanne(const Wortort &a, const Wortort &b)
{
    const auto [von, bis] = std::minmax(a, b);
    return {von, bis};
}

Textkarte::Textkarte(QList<Wortkarte> seiten) : m_seiten(std::move(seiten)) {}

const Wortkarte &Textkarte::seite(int seite) const
{
    return seite >= 0 && seite < m_seiten.size() ? m_seiten.at(seite) : m_keine;
}

std::optional<Wortspanne> Textkarte::alles() const
{
    std::optional<Wortspanne> alles;
    for (int i = 0; i < seiten(); ++i) {
        const qsizetype anzahl = m_seiten.at(i).anzahl();
        if (anzahl > 0)
            alles = Wortspanne{.von = alles ? alles->von : Wortort{i, 0}, .bis = {i, anzahl - 1}};
    }
    return alles;
}

std::optional<Wortort> Textkarte::naechstes(int seite, const QPointF &ort) const
{
    if (const auto wort = this->seite(seite).naechstes(ort))
        return Wortort{seite, *wort};
    for (int i = std::min(seite, seiten()) - 1; i >= 0; --i)
        if (const qsizetype anzahl = m_seiten.at(i).anzahl(); anzahl > 0)
            return Wortort{i, anzahl - 1};
    const auto ganzes = alles();
    return ganzes ? std::optional(ganzes->von) : std::nullopt;
}

/** First and last of the words that @p spanne has on a page; the last before the first if there are none. */
std::pair<qsizetype, qsizetype> Textkarte::worte(const Wortspanne &spanne, int seite) const
{
    const qsizetype letztes = this->seite(seite).anzahl() - 1;
    if (seite < spanne.von.seite || seite > spanne.bis.seite)
        return {0, -1};
    return {seite == spanne.von.seite ? spanne.von.wort : 0,
            seite == spanne.bis.seite ? std::min(spanne.bis.wort, letztes) : letztes};
}

QList<QRectF> Textkarte::orte(const Wortspanne &spanne, int seite) const
{
    const auto [von, bis] = worte(spanne, seite);
    return this->seite(seite).orte(von, bis);
}

QString Textkarte::verbunden(const Wortspanne &spanne, QChar umbruch) const
{
    QStringList teile;
    for (int i = spanne.von.seite; i <= std::min(spanne.bis.seite, seiten() - 1); ++i) {
        const auto [von, bis] = worte(spanne, i);
        if (von <= bis)
            teile << seite(i).text(von, bis, umbruch);
    }
    return teile.join(umbruch);
}
} // namespace quillmar::seiten
