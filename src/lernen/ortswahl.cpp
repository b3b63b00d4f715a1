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

/** What the model has said of the place, if not all of it, is said of this one. */
bool erweitert(const Ort &ort, const Ort &unvollstaendig)
{
    const auto gleich = [](const QString &gesagt, const QString &hier) { return gesagt.isEmpty() || gesagt == hier; };
    return !unvollstaendig.zweig.isEmpty() && gleich(unvollstaendig.zweig, ort.zweig) &&
           gleich(unvollstaendig.ablage, ort.ablage) && gleich(unvollstaendig.rubrik, ort.rubrik);
}

/** The one that the model names, as far as it names one; -1 for none or several. */
qsizetype genannter(const QList<Ortszahl> &orte, const Ort &modell)
{
    qsizetype gefunden = -1;
    for (qsizetype i = 0; i < orte.size(); ++i) {
        if (!erweitert(orte.at(i).ort, modell))
            continue;
        if (gefunden >= 0)
            return -1;
        gefunden = i;
    }
    return gefunden;
}

/** The one for which most speaks, and of equals the first; -1 for none. */
qsizetype haeufigster(const QList<Ortszahl> &orte, bool nurKorrigierte)
{
    qsizetype bester = -1;
    for (qsizetype i = 0; i < orte.size(); ++i) {
        if (nurKorrigierte && orte.at(i).korrekturen == 0)
            continue;
        if (bester < 0 || sprichtMehr(orte.at(i), orte.at(bester)))
            bester = i;
    }
    return bester;
}
} // namespace

qsizetype Ortswahl::waehlen(const QList<Ortszahl> &orte, const Wortstimmen::Ergebnis &stimme, const Ort &modell,
                            bool nurKorrigierte)
{
    if (stimme.platz >= 0)
        return stimme.platz;
    const qsizetype ort = genannter(orte, modell);
    return ort >= 0 ? ort : haeufigster(orte, nurKorrigierte);
}

bool Ortswahl::istVollstaendig(const Ort &ort)
{
    return !ort.zweig.isEmpty() && !ort.ablage.isEmpty() && !ort.rubrik.isEmpty();
}
} // namespace quillmar::lernen
