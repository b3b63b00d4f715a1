#include "unterschiede.h"

#include <optional>
#include <vector>

namespace quillmar::fundstellen
{
namespace
{
constexpr int meisteAbweichungen = 1000;

/** A word that has letters or digits. */
struct Eins {
    QString text;
    int seite = 0;
    qsizetype wort = 0;
};

QList<Eins> worteVon(const QList<Wortfolge> &seiten)
{
    QList<Eins> alle;
    for (const Wortfolge &seite : seiten) {
        for (const auto &stueck : seite.stuecke()) {
            if (!alle.isEmpty() && alle.last().seite == seite.seite() && alle.last().wort == stueck.wort)
                alle.last().text += stueck.text;
            else
                alle << Eins{.text = stueck.text, .seite = seite.seite(), .wort = stueck.wort};
        }
    }
    return alle;
}

/** The furthest points of each number of edits, until both ends are reached. */
class Weg
{
public:
    Weg(const QList<Eins> &a, const QList<Eins> &b) : m_a(a), m_b(b) {}

    /** Whether the words are in the other list too; none if there are too many that are not. */
    [[nodiscard]] std::optional<std::pair<QList<bool>, QList<bool>>> gemeinsame()
    {
        std::vector<qsizetype> weiteste(2 * size_t(meisteAbweichungen) + 3, 0);
        for (int d = 0; d <= meisteAbweichungen; ++d) {
            m_spur.push_back(weiteste);
            for (int k = -d; k <= d; k += 2) {
                qsizetype &x = weiteste[stelle(k)];
                x = geradeaus(anfang(weiteste, k, d), k);
                if (x >= m_a.size() && x - k >= m_b.size())
                    return zurueck(d, k);
            }
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] static size_t stelle(int k) { return size_t(k + meisteAbweichungen + 1); }

    [[nodiscard]] static qsizetype anfang(const std::vector<qsizetype> &v, int k, int d)
    {
        const bool hinab = k == -d || (k != d && v[stelle(k - 1)] < v[stelle(k + 1)]);
        return hinab ? v[stelle(k + 1)] : v[stelle(k - 1)] + 1;
    }

    [[nodiscard]] qsizetype geradeaus(qsizetype x, int k) const
    {
        while (x < m_a.size() && x - k < m_b.size() && m_a.at(x).text == m_b.at(x - k).text)
            ++x;
        return x;
    }

    [[nodiscard]] std::pair<QList<bool>, QList<bool>> zurueck(int d, int k) const
    {
        QList<bool> links(m_a.size(), false);
        QList<bool> rechts(m_b.size(), false);
        qsizetype x = m_a.size();
        for (; d >= 0; --d) {
            const qsizetype von = d == 0 ? 0 : anfang(m_spur[size_t(d)], k, d);
            for (; x > von; --x) {
                links[x - 1] = true;
                rechts[x - 1 - k] = true;
            }
            if (d == 0)
                break;
            const auto &v = m_spur[size_t(d)];
            k += k == -d || (k != d && v[stelle(k - 1)] < v[stelle(k + 1)]) ? 1 : -1;
            x = v[stelle(k)];
        }
        return {links, rechts};
    }

    const QList<Eins> &m_a;
    const QList<Eins> &m_b;
    std::vector<std::vector<qsizetype>> m_spur;
};

/** Neighbours as one. */
QList<Fundstelle> uebrige(const QList<Eins> &worte, const QList<bool> &gemeinsame)
{
    QList<Fundstelle> stellen;
    for (qsizetype i = 0; i < worte.size(); ++i) {
        const Eins &wort = worte.at(i);
        if (gemeinsame.at(i))
            continue;
        if (!stellen.isEmpty() && i > 0 && !gemeinsame.at(i - 1) && stellen.last().seite == wort.seite)
            stellen.last().worte = wort.wort - stellen.last().wort + 1;
        else
            stellen << Fundstelle{.seite = wort.seite, .wort = wort.wort, .worte = 1};
    }
    return stellen;
}
} // namespace

Unterschiede unterschiede(const QList<Wortfolge> &links, const QList<Wortfolge> &rechts)
{
    const QList<Eins> a = worteVon(links);
    const QList<Eins> b = worteVon(rechts);
    const auto gemeinsame = Weg(a, b).gemeinsame();
    if (!gemeinsame)
        return {};
    return {.links = uebrige(a, gemeinsame->first), .rechts = uebrige(b, gemeinsame->second)};
}
} // namespace quillmar::fundstellen
