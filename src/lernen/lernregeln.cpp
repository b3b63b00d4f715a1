#include "lernregeln.h"

#include "rechtsform.h"
#include "text.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
constexpr qsizetype zeichenJeFehler = 7;
constexpr qsizetype wenigsteBuchstaben = 3;

/** The digit at @p stelle is the only one in a word of letters. */
bool stehtInWort(const QString &text, qsizetype stelle)
{
    const qsizetype beginn = text.lastIndexOf(u' ', stelle) + 1;
    const qsizetype ende = text.indexOf(u' ', stelle);
    const QStringView wort = QStringView(text).sliced(beginn, (ende < 0 ? text.size() : ende) - beginn);
    return std::count_if(wort.begin(), wort.end(), [](QChar c) { return c.isLetter(); }) == wort.size() - 1 &&
           wort.size() > wenigsteBuchstaben;
}
} // namespace

QString Lernregeln::schluessel(const QString &name) { return Rechtsform::ohne(gefaltet(name, Faltung::Namen)); }

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

bool Lernregeln::istVerlesen(const QString &gelesen, const QString &bekannt)
{
    if (gelesen.size() != bekannt.size())
        return false;
    qsizetype falsche = 0;
    for (qsizetype i = 0; i < gelesen.size(); ++i) {
        if (gelesen.at(i) == bekannt.at(i))
            continue;
        if (!gelesen.at(i).isDigit() || !bekannt.at(i).isLetter() || !stehtInWort(gelesen, i))
            return false;
        ++falsche;
    }
    return falsche > 0 && falsche <= gelesen.size() / zeichenJeFehler;
}

const Eintrag *Lernregeln::verlesener(const QList<Eintrag> &alle, const QString &schluessel)
{
    const auto gemeint = [&](const Eintrag &e) { return istVerlesen(schluessel, e.schluessel); };
    const auto erster = std::find_if(alle.begin(), alle.end(), gemeint);
    if (erster == alle.end() || std::any_of(std::next(erster), alle.end(), gemeint))
        return nullptr;
    return &*erster;
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
