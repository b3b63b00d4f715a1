#include "ortswahl.h"

namespace quillmar::lernen
{
namespace
{
/** What the reviewer taught himself goes before whatever lies in the tree. */
bool sprichtMehr(const Ortszahl &a, const Ortszahl &b)
{
    return a.anzahl != b.anzahl ? a.anzahl > b.anzahl : a.baum > b.baum;
}
} // namespace

Ortswahl::Wahl Ortswahl::waehlen(const QList<Ortszahl> &orte, const Wortstimmen::Ergebnis &stimme, const Ort &modell,
                                 bool nurKorrigierte)
{
    if (stimme.platz >= 0)
        return {.ort = stimme.platz, .grund = Grund::Text};
    Wahl wahl;
    for (qsizetype i = 0; i < orte.size(); ++i) {
        if (orte.at(i).ort == modell)
            return {.ort = i, .grund = Grund::Bestaetigt};
        if (nurKorrigierte && orte.at(i).korrekturen == 0)
            continue;
        if (wahl.ort < 0 || sprichtMehr(orte.at(i), orte.at(wahl.ort)))
            wahl = {.ort = i, .grund = Grund::Haeufigster};
    }
    return wahl;
}

bool Ortswahl::istVollstaendig(const Ort &ort)
{
    return !ort.zweig.isEmpty() && !ort.ablage.isEmpty() && !ort.rubrik.isEmpty();
}
} // namespace quillmar::lernen
