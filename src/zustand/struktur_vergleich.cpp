#include "struktur_vergleich.h"

#include <QSet>
#include <algorithm>

namespace quillmar::zustand
{
using Wechsel = Strukturzeile::Wechsel;

namespace
{
template <typename Liste>
auto nachName(const Liste &liste, const QString &name) -> decltype(&liste.first())
{
    const auto treffer = std::find_if(liste.begin(), liste.end(), [&](const auto &e) { return e.name == name; });
    return treffer == liste.end() ? nullptr : &*treffer;
}

/** Lines of two versions of one level. @p zeigen gets the entry before and now; one of them may be null. */
template <typename Liste, typename Zeigen>
void abgleichen(const Liste &vorher, const Liste &jetzt, const Zeigen &zeigen)
{
    for (const auto &eintrag : jetzt)
        zeigen(nachName(vorher, eintrag.name), &eintrag);
    for (const auto &eintrag : vorher) {
        if (!nachName(jetzt, eintrag.name))
            zeigen(&eintrag, nullptr);
    }
}

Wechsel wechselVon(const void *vorher, const void *jetzt)
{
    if (!jetzt)
        return Wechsel::Entfallen;
    return vorher ? Wechsel::Gleich : Wechsel::Neu;
}

void rubriken(QList<Strukturzeile> &zeilen, const QStringList &vorher, const QStringList &jetzt)
{
    const QSet<QString> alte(vorher.begin(), vorher.end());
    const QSet<QString> neue(jetzt.begin(), jetzt.end());
    for (const QString &name : jetzt)
        zeilen << Strukturzeile{
            .ebene = 2, .name = name, .wechsel = alte.contains(name) ? Wechsel::Gleich : Wechsel::Neu};
    for (const QString &name : vorher) {
        if (!neue.contains(name))
            zeilen << Strukturzeile{.ebene = 2, .name = name, .wechsel = Wechsel::Entfallen};
    }
}

void ablagen(QList<Strukturzeile> &zeilen, const QList<Ablageart> &vorher, const QList<Ablageart> &jetzt)
{
    abgleichen(vorher, jetzt, [&](const Ablageart *alt, const Ablageart *neu) {
        const Ablageart &art = neu ? *neu : *alt;
        zeilen << Strukturzeile{.ebene = 1, .name = art.name, .mitJahr = art.mitJahr, .wechsel = wechselVon(alt, neu)};
        rubriken(zeilen, alt ? alt->rubriken : QStringList(), neu ? neu->rubriken : QStringList());
    });
}
} // namespace

QList<Strukturzeile> strukturzeilen(const QList<Zweig> &vorher, const QList<Zweig> &jetzt)
{
    QList<Strukturzeile> zeilen;
    abgleichen(vorher.isEmpty() ? jetzt : vorher, jetzt, [&](const Zweig *alt, const Zweig *neu) {
        const Zweig &zweig = neu ? *neu : *alt;
        zeilen << Strukturzeile{.ebene = 0, .name = zweig.name, .wechsel = wechselVon(alt, neu)};
        ablagen(zeilen, alt ? alt->ablagen : QList<Ablageart>(), neu ? neu->ablagen : QList<Ablageart>());
    });
    return zeilen;
}

Strukturzahlen strukturzahlen(const QList<Strukturzeile> &zeilen)
{
    Strukturzahlen zahlen;
    for (const Strukturzeile &zeile : zeilen) {
        const bool da = zeile.wechsel != Wechsel::Entfallen;
        zahlen.zweige += da && zeile.ebene == 0 ? 1 : 0;
        zahlen.ablagen += da && zeile.ebene == 1 ? 1 : 0;
        if (zeile.ebene != 2)
            continue;
        zahlen.rubriken += da ? 1 : 0;
        zahlen.neu += zeile.wechsel == Wechsel::Neu ? 1 : 0;
        zahlen.entfallen += da ? 0 : 1;
    }
    return zahlen;
}

bool kenntRubrik(const QList<Strukturzeile> &zeilen, const QString &rubrik)
{
    return std::any_of(zeilen.begin(), zeilen.end(), [&](const Strukturzeile &z) {
        return z.ebene == 2 && z.name == rubrik && z.wechsel != Wechsel::Entfallen;
    });
}
} // namespace quillmar::zustand
