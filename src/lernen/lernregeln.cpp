#include "lernregeln.h"

#include "text.h"

#include <QStringList>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
QString Lernregeln::schluessel(const QString &name)
{
    static const QStringList rechtsformen = {u" gmbh co kg"_s, u" gmbh und co kg"_s,
                                             u" gmbh"_s,       u" mbh"_s,
                                             u" ag"_s,         u" kg"_s,
                                             u" ohg"_s,        u" se"_s,
                                             u" ev"_s,         u" e v"_s,
                                             u" ug"_s,         u" gbr"_s,
                                             u" ltd"_s,        u" inc"_s,
                                             u" co"_s,         u" aktiengesellschaft"_s};
    QString text = gefaltet(name, Faltung::Namen);
    for (const QString &form : rechtsformen) {
        if (text.endsWith(form))
            text.chop(form.size());
    }
    return text.trimmed();
}

bool Lernregeln::passt(const QString &a, const QString &b)
{
    if (a.size() < kuerzesterSchluessel || b.size() < kuerzesterSchluessel)
        return a == b;
    return a.contains(b) || b.contains(a);
}

bool Lernregeln::darfErsetzen(const QString &gelernt, const QString &vorhanden)
{
    const QString neu = schluessel(gelernt);
    if (neu.size() < kuerzesterSchluessel || gelernt == vorhanden)
        return false;
    return neu.contains(schluessel(vorhanden));
}

bool Lernregeln::istGanzesWort(const QString &a, const QString &b)
{
    const QString &lang = a.size() > b.size() ? a : b;
    const QString &kurz = a.size() > b.size() ? b : a;
    return !kurz.isEmpty() && (u' ' + lang + u' ').contains(u' ' + kurz + u' ');
}

const Eintrag *Lernregeln::vorschlag(const QList<Eintrag> &alle, const QString &schluessel)
{
    return schluessel.size() < kuerzesterSchluessel ? nullptr : passender(alle, schluessel);
}

const Eintrag *Lernregeln::passender(const QList<Eintrag> &alle, const QString &schluessel, bool naeheZaehlt,
                                     const std::function<bool(const Eintrag &)> &nachrangig)
{
    if (schluessel.isEmpty())
        return nullptr;
    const Eintrag *bester = nullptr;
    std::tuple<int, bool, qint64, qsizetype> hoechster;
    for (const Eintrag &eintrag : alle) {
        if (!passt(eintrag.schluessel, schluessel))
            continue;
        const int naehe = !naeheZaehlt                       ? 0
                          : eintrag.schluessel == schluessel ? 2
                                                             : int(istGanzesWort(eintrag.schluessel, schluessel));
        const bool vorn = !nachrangig || !nachrangig(eintrag);
        const std::tuple rang{naehe, vorn, eintrag.anzahl, eintrag.schluessel.size()};
        if (!bester || rang > hoechster) {
            bester = &eintrag;
            hoechster = rang;
        }
    }
    return bester;
}
} // namespace quillmar::lernen
