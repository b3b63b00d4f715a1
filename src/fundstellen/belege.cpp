#include "belege.h"

#include "datumsfunde.h"
#include "namensfunde.h"
#include "titelfunde.h"

#include <algorithm>

namespace quillmar::fundstellen
{
namespace
{
/** The words @p neu and those of @p stelle follow each other on one line. */
bool grenztAn(const QList<Wortfolge> &seiten, const Fundstelle &stelle, const Fundstelle &neu)
{
    const Wortfolge &seite = seiten.at(stelle.seite);
    return stelle.seite == neu.seite && neu.wort <= stelle.wort + stelle.worte && stelle.wort <= neu.wort + neu.worte &&
           seite.zeile(stelle.wort) == seite.zeile(neu.wort);
}

Fundstelle vereint(const Fundstelle &a, const Fundstelle &b)
{
    const qsizetype wort = std::min(a.wort, b.wort);
    return {.seite = a.seite, .wort = wort, .worte = std::max(a.wort + a.worte, b.wort + b.worte) - wort};
}

/** @p neue with all of @p stellen that touch it, in place of the first of them. */
void einfuegen(const QList<Wortfolge> &seiten, QList<Fundstelle> &stellen, Fundstelle neue)
{
    qsizetype ort = stellen.size();
    for (qsizetype i = stellen.size() - 1; i >= 0; --i) {
        if (!grenztAn(seiten, stellen.at(i), neue))
            continue;
        neue = vereint(stellen.takeAt(i), neue);
        ort = i;
    }
    stellen.insert(std::min(ort, stellen.size()), neue);
}

void titelBelegen(const QList<Wortfolge> &seiten, const QString &titel, Belege &belege)
{
    QList<Fundstelle> stellen;
    for (const Titelwort &wort : Titelfunde::zu(seiten, titel)) {
        if (wort.stelle)
            einfuegen(seiten, stellen, *wort.stelle);
        else if (wort.zahl)
            belege.fehlendeZahlen << wort.text;
    }
    for (const Fundstelle &stelle : stellen)
        belege.stellen << Beleg{.wert = Wert::Titel, .stelle = stelle};
}
} // namespace

Belege belege(const QList<Wortfolge> &seiten, const QString &datum, const QString &gegenueber, const QString &titel)
{
    Belege belege;
    if (std::all_of(seiten.begin(), seiten.end(), [](const Wortfolge &s) { return s.stuecke().isEmpty(); }))
        return belege;
    if (!datum.isEmpty()) {
        const auto stelle = Datumsfunde::zu(Datumsfunde::alle(seiten), datum);
        belege.datumFehlt = !stelle;
        if (stelle)
            belege.stellen << Beleg{.wert = Wert::Datum, .stelle = *stelle};
    }
    if (!gegenueber.isEmpty()) {
        const auto stelle = Namensfunde::zu(seiten, gegenueber);
        belege.gegenueberFehlt = !stelle && !zusammengezogen(gegenueber).isEmpty();
        if (stelle)
            belege.stellen << Beleg{.wert = Wert::Gegenueber, .stelle = *stelle};
    }
    titelBelegen(seiten, titel, belege);
    return belege;
}
} // namespace quillmar::fundstellen
