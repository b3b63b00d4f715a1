#include "neuzugang.h"

#include <algorithm>

namespace quillmar::zustand
{
void Neuzugang::gesehen(const QList<Datei> &neue, Zeitpunkt jetzt)
{
    QHash<QString, Stand> dateien;
    for (const Datei &datei : neue)
        dateien.insert(datei.pfad, standVon(datei, jetzt));
    m_dateien = std::move(dateien);
    m_eigene.clear(); // a later file of the same name is a scan again
}

Neuzugang::Stand Neuzugang::standVon(const Datei &datei, Zeitpunkt jetzt) const
{
    const auto bekannt = m_dateien.constFind(datei.pfad);
    const bool gleich = bekannt != m_dateien.constEnd() && bekannt->datei == datei;
    Stand stand = gleich ? *bekannt : Stand{.datei = datei, .seit = jetzt};
    stand.erledigt = stand.erledigt || m_eigene.contains(datei.pfad);
    return stand;
}

void Neuzugang::eigene(const QStringList &pfade) { m_eigene += QSet<QString>(pfade.begin(), pfade.end()); }

qsizetype Neuzugang::wartende() const
{
    return std::count_if(m_dateien.begin(), m_dateien.end(), [](const Stand &s) { return !s.erledigt; });
}

bool Neuzugang::istSoweit(Zeitpunkt jetzt) const
{
    bool eine = false;
    bool alle = true;
    bool langeGenug = false;
    for (const Stand &s : m_dateien) {
        if (s.erledigt)
            continue;
        const bool ruht = jetzt - s.seit >= ruhe;
        eine = eine || ruht;
        alle = alle && ruht;
        langeGenug = langeGenug || jetzt - s.seit >= laengstens;
    }
    return eine && (alle || langeGenug);
}

std::optional<Neuzugang::Zeitpunkt> Neuzugang::naechsterBlick() const
{
    std::optional<Zeitpunkt> letzter;
    for (const Stand &s : m_dateien) {
        if (!s.erledigt)
            letzter = std::max(letzter.value_or(s.seit), s.seit);
    }
    return letzter ? std::optional(*letzter + ruhe) : std::nullopt;
}

void Neuzugang::aufgenommen()
{
    for (Stand &s : m_dateien)
        s.erledigt = true;
}
} // namespace quillmar::zustand
