#include "paare.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <unordered_map>
#include <vector>

namespace quillmar::analyse
{
namespace
{
using Rang = quint32;
using Werte = std::vector<Rang>;

/** Replaces each value by its rank in the order of rarity, so that equal values stay equal and rare ones come first. */
class Rangliste
{
public:
    explicit Rangliste(const QList<Paare::Abdruck> &abdruecke)
    {
        size_t anzahl = 0;
        for (const Paare::Abdruck &a : abdruecke)
            anzahl += size_t(a.werte.size());
        m_werte.reserve(anzahl);
        for (const Paare::Abdruck &a : abdruecke)
            m_werte.insert(m_werte.end(), a.werte.begin(), a.werte.end());
        std::sort(m_werte.begin(), m_werte.end());
        ordnen(zusammenfassen());
    }

    [[nodiscard]] Werte raenge(const QList<quint64> &werte) const
    {
        Werte ergebnis;
        ergebnis.reserve(size_t(werte.size()));
        for (const quint64 wert : werte) {
            const auto stelle = std::lower_bound(m_werte.begin(), m_werte.end(), wert) - m_werte.begin();
            ergebnis.push_back(m_rang[size_t(stelle)]);
        }
        std::sort(ergebnis.begin(), ergebnis.end());
        return ergebnis;
    }

private:
    /** Keeps each of the sorted values once; returns how often each was there. */
    std::vector<quint32> zusammenfassen()
    {
        std::vector<quint32> haeufigkeit;
        qsizetype letzter = -1;
        for (size_t i = 0; i < m_werte.size(); ++i) {
            if (i == 0 || m_werte[i] != m_werte[size_t(letzter)]) {
                m_werte[size_t(++letzter)] = m_werte[i];
                haeufigkeit.push_back(0);
            }
            ++haeufigkeit.back();
        }
        m_werte.resize(size_t(letzter + 1));
        m_werte.shrink_to_fit();
        return haeufigkeit;
    }

    void ordnen(const std::vector<quint32> &haeufigkeit)
    {
        std::vector<Rang> reihe(haeufigkeit.size());
        for (size_t i = 0; i < reihe.size(); ++i)
            reihe[i] = Rang(i);
        std::sort(reihe.begin(), reihe.end(), [&](Rang a, Rang b) {
            return haeufigkeit[a] != haeufigkeit[b] ? haeufigkeit[a] < haeufigkeit[b] : a < b;
        });
        m_rang.resize(reihe.size());
        for (size_t i = 0; i < reihe.size(); ++i)
            m_rang[reihe[i]] = Rang(i);
    }

    std::vector<quint64> m_werte;
    std::vector<Rang> m_rang;
};

double jaccard(const Werte &a, const Werte &b)
{
    size_t gemeinsam = 0;
    for (size_t i = 0, j = 0; i < a.size() && j < b.size();) {
        gemeinsam += a[i] == b[j] ? 1 : 0;
        const bool vor = a[i] <= b[j];
        j += b[j] <= a[i] ? 1 : 0;
        i += vor ? 1 : 0;
    }
    return double(gemeinsam) / double(a.size() + b.size() - gemeinsam);
}

/** How many of the rarest values two sketches of at least the threshold's similarity must share one of. */
size_t indexLaenge(size_t umfang) { return umfang - size_t(std::ceil(Paare::schwelle * double(umfang))) + 1; }

bool groessePasst(size_t a, size_t b) { return double(std::min(a, b)) >= Paare::schwelle * double(std::max(a, b)); }

/** The earlier sketches, findable by their rarest values. */
class Verzeichnis
{
public:
    explicit Verzeichnis(const std::vector<Werte> &mengen) : m_mengen(mengen) {}

    /** Numbers of the earlier sketches that may be similar to @p menge, ascending, each once. */
    [[nodiscard]] const std::vector<quint32> &kandidaten(const Werte &menge)
    {
        m_kandidaten.clear();
        for (size_t i = 0; i < indexLaenge(menge.size()); ++i) {
            if (const auto liste = m_index.find(menge[i]); liste != m_index.end())
                m_kandidaten.insert(m_kandidaten.end(), liste->second.begin(), liste->second.end());
        }
        std::sort(m_kandidaten.begin(), m_kandidaten.end());
        m_kandidaten.erase(std::unique(m_kandidaten.begin(), m_kandidaten.end()), m_kandidaten.end());
        return m_kandidaten;
    }

    void aufnehmen(quint32 nummer)
    {
        const Werte &menge = m_mengen[nummer];
        for (size_t i = 0; i < indexLaenge(menge.size()); ++i)
            m_index[menge[i]].push_back(nummer);
    }

private:
    const std::vector<Werte> &m_mengen;
    std::unordered_map<Rang, std::vector<quint32>> m_index;
    std::vector<quint32> m_kandidaten;
};

/** The values of each as ranks; takes the values themselves away, of which there are many. */
std::vector<Werte> rangmengen(QList<Paare::Abdruck> &abdruecke)
{
    const Rangliste rangliste(abdruecke);
    std::vector<Werte> mengen;
    for (Paare::Abdruck &a : abdruecke) {
        mengen.push_back(rangliste.raenge(a.werte));
        a.werte = {};
    }
    return mengen;
}

/** By number; what is known comes before what is new, which is compared with all before it. */
bool kommtVor(const Paare::Abdruck &a, const Paare::Abdruck &b) { return a.neu != b.neu ? b.neu : a.id < b.id; }
} // namespace

Paare::Sieb::Sieb(const QList<Abdruck> &neue)
{
    constexpr size_t felderJeWert = 16; // one in sixteen passes by accident, far fewer than three quarters
    size_t anzahl = 0;
    for (const Abdruck &a : neue)
        anzahl += size_t(a.werte.size());
    m_felder.resize(std::bit_ceil(felderJeWert * std::max<size_t>(1, anzahl)));
    for (const Abdruck &a : neue) {
        for (const quint64 wert : a.werte)
            m_felder[stelle(wert)] = true;
    }
}

bool Paare::Sieb::laesstDurch(const QList<quint64> &werte) const
{
    const auto gemeinsame =
        std::count_if(werte.begin(), werte.end(), [this](quint64 wert) { return m_felder[stelle(wert)]; });
    return double(gemeinsame) >= schwelle * double(werte.size());
}

QList<Paare::Paar> Paare::finden(QList<Abdruck> abdruecke, const Eignung &taugt)
{
    abdruecke.removeIf([](const Abdruck &a) { return a.werte.size() < mindestWerte; });
    std::sort(abdruecke.begin(), abdruecke.end(), kommtVor);
    const auto bekannte =
        quint32(std::count_if(abdruecke.begin(), abdruecke.end(), [](const Abdruck &a) { return !a.neu; }));
    const std::vector<Werte> mengen = rangmengen(abdruecke);
    Verzeichnis verzeichnis(mengen);
    QList<Paar> paare;
    for (quint32 i = 0; i < bekannte; ++i)
        verzeichnis.aufnehmen(i);
    for (quint32 i = bekannte; i < mengen.size(); ++i) {
        for (const quint32 j : verzeichnis.kandidaten(mengen[i])) {
            if (!groessePasst(mengen[i].size(), mengen[j].size()))
                continue;
            const double wert = jaccard(mengen[i], mengen[j]);
            if (wert >= schwelle && (j >= bekannte || !taugt || taugt(abdruecke.at(i).id, abdruecke.at(j).id))) {
                paare << Paar{.id = abdruecke.at(i).id, .partner = abdruecke.at(j).id, .aehnlichkeit = wert};
                break;
            }
        }
        verzeichnis.aufnehmen(i);
    }
    return paare;
}
} // namespace quillmar::analyse
