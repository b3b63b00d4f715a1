#include "belege.h"

#include "datumsfunde.h"
#include "namensfunde.h"
#include "titelfunde.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
/** The folded words of a text. */
QSet<QString> worteVon(const QString &text)
{
    QSet<QString> worte;
    for (const auto &stueck : Wortfolge(0, {{.text = text, .ort = {}}}).stuecke())
        worte.insert(stueck.text);
    return worte;
}

/** Both stand on one line, with nothing between them but words that the title has too. */
bool grenztAn(const Wortfolge &seite, const Fundstelle &a, const Fundstelle &b, const QSet<QString> &titel)
{
    const Fundstelle &vorn = a.wort <= b.wort ? a : b;
    const Fundstelle &hinten = a.wort <= b.wort ? b : a;
    if (seite.zeile(vorn.wort) != seite.zeile(hinten.wort))
        return false;
    for (qsizetype i = vorn.wort + vorn.worte; i < hinten.wort; ++i) {
        if (!titel.contains(zusammengezogen(seite.worte().at(i).text)))
            return false;
    }
    return true;
}

Fundstelle vereint(const Fundstelle &a, const Fundstelle &b)
{
    const qsizetype wort = std::min(a.wort, b.wort);
    return {.seite = a.seite, .wort = wort, .worte = std::max(a.wort + a.worte, b.wort + b.worte) - wort};
}

/** @p neue with all of @p stellen that touch it, in place of the first of them. */
void einfuegen(const QList<Wortfolge> &seiten, QList<Fundstelle> &stellen, Fundstelle neue, const QSet<QString> &titel)
{
    qsizetype ort = stellen.size();
    for (qsizetype i = stellen.size() - 1; i >= 0; --i) {
        const Fundstelle &andere = stellen.at(i);
        if (andere.seite != neue.seite || !grenztAn(seiten.at(neue.seite), andere, neue, titel))
            continue;
        neue = vereint(stellen.takeAt(i), neue);
        ort = i;
    }
    stellen.insert(std::min(ort, stellen.size()), neue);
}

void titelBelegen(const QList<Wortfolge> &seiten, const QString &titel, Belege &belege)
{
    const QSet<QString> worte = worteVon(titel + u" Nr Nummer No"_s);
    QList<Fundstelle> stellen;
    for (const Titelwort &wort : Titelfunde::zu(seiten, titel)) {
        if (wort.stelle)
            einfuegen(seiten, stellen, *wort.stelle, worte);
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
