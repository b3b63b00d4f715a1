#include "bekannte.h"

#include "lernspeicher.h"
#include "modellantworten.h"
#include "text.h"

#include <QSet>
#include <algorithm>

namespace quillmar::zustand
{
QString Bekannter::ziel() const { return Eintrag{.schluessel = {}, .anzeige = {}, .ort = ort}.ziel(); }

QList<Bekannter> bekannteGegenueber(Datenbank &db)
{
    const Lernspeicher speicher(db);
    const auto orte = speicher.alleOrte();
    QList<Bekannter> liste;
    QSet<QString> schluessel;
    for (const Eintrag &e : speicher.alle()) {
        const QList<Ortszahl> eigene = orte.value(e.schluessel);
        liste << Bekannter{
            .name = e.anzeige, .ort = eigene.isEmpty() ? e.ort : eigene.first().ort, .gesucht = suchform(e.anzeige)};
        schluessel.insert(e.schluessel);
    }
    const auto abgelegte = Modellantworten(db).abgelegteOrte();
    for (auto name = abgelegte.begin(); name != abgelegte.end(); ++name) {
        const QString eigener = Lernregeln::schluessel(name.key());
        if (schluessel.contains(eigener))
            continue;
        schluessel.insert(eigener);
        liste << Bekannter{.name = name.key(), .ort = name.value(), .gesucht = suchform(name.key())};
    }
    return liste;
}

QList<Bekannter> passende(const QList<Bekannter> &alle, const QString &getippt, qsizetype hoechstens)
{
    const QString teil = suchform(getippt);
    QList<Bekannter> amWortanfang;
    QList<Bekannter> irgendwo;
    for (const Bekannter &b : alle) {
        if (teil.isEmpty() || amWortanfang.size() == hoechstens)
            break;
        if ((u' ' + b.gesucht).contains(u' ' + teil))
            amWortanfang << b;
        else if (b.gesucht.contains(teil))
            irgendwo << b;
    }
    return (amWortanfang + irgendwo).first(std::min(hoechstens, amWortanfang.size() + irgendwo.size()));
}
} // namespace quillmar::zustand
