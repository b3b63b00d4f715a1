#include "namensfunde.h"

#include "rechtsform.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
constexpr double kopf = 0.35; // of the page's height

/** How much of the page's pieces a name takes from one on; the more exact the better. */
struct Treffer {
    qsizetype stuecke = 0; ///< 0: none
    bool genau = true;
};

/** What names have or leave out: "und", degrees, the initial of a second name. */
bool istBeiwerk(const QString &stueck)
{
    static const QSet<QString> beiwerk = {u"und"_s, u"and"_s,  u"et"_s,   u"med"_s,
                                          u"jur"_s, u"phil"_s, u"dipl"_s, u"ing"_s};
    return stueck.size() == 1 || beiwerk.contains(stueck);
}

/** Compares a name with the pieces of a page. */
class Vergleich
{
public:
    Vergleich(const Wortfolge &folge, const QStringList &name) : m_stuecke(folge.stuecke()), m_name(name) {}

    [[nodiscard]] Treffer ab(qsizetype erstes) const
    {
        Treffer treffer;
        qsizetype ort = erstes;
        for (qsizetype k = 0; k < m_name.size();) {
            const Schritt schritt = naechster(ort, k);
            if (schritt.stuecke == 0)
                return {};
            ort += schritt.stuecke;
            k += schritt.worte;
            treffer.genau = treffer.genau && schritt.genau;
        }
        treffer.stuecke = ort - erstes;
        return treffer;
    }

private:
    struct Schritt {
        qsizetype stuecke = 0; ///< 0: it does not go on
        qsizetype worte = 0;
        bool genau = true;
    };

    [[nodiscard]] Schritt naechster(qsizetype ort, qsizetype k) const
    {
        const QString stueck = m_stuecke.value(ort).text;
        if (stueck.isEmpty())
            return {};
        const QString &wort = m_name.at(k);
        if (fastGleich(stueck, wort))
            return {.stuecke = 1, .worte = 1, .genau = stueck == wort};
        if (wort.startsWith(stueck) && stueck + m_stuecke.value(ort + 1).text == wort)
            return {.stuecke = 2, .worte = 1};
        if (k + 1 < m_name.size() && wort + m_name.at(k + 1) == stueck)
            return {.stuecke = 1, .worte = 2};
        if (k > 0 && (Rechtsform::istTeil(stueck) || istBeiwerk(stueck)))
            return {.stuecke = 1, .worte = 0};
        return {};
    }

    const QList<Wortfolge::Stueck> &m_stuecke;
    const QStringList &m_name;
};

QStringList worteVon(const QString &name)
{
    QStringList worte;
    for (const auto &stueck : Wortfolge(0, {{.text = Namensfunde::ohneRechtsform(name), .ort = {}}}).stuecke())
        worte << stueck.text;
    const QStringList alle = worte;
    worte.removeIf(istBeiwerk);
    return worte.isEmpty() ? alle : worte;
}

bool istNetzadresse(const QString &wort)
{
    return wort.contains(u'@') || wort.contains(u"www."_s, Qt::CaseInsensitive) || wort.contains(u"://"_s);
}

/** A place of a name, and how good it is: larger is better. */
struct Namensstelle {
    Fundstelle ort;
    std::tuple<bool, bool, bool, bool> rang;
};

std::tuple<bool, bool, bool, bool> rang(const Wortfolge &folge, const Fundstelle &stelle, bool genau)
{
    const Seitenwort &erstes = folge.worte().at(stelle.wort);
    return {!istNetzadresse(erstes.text), stelle.seite == 0, genau, stelle.seite == 0 && erstes.ort.top() < kopf};
}

QList<Namensstelle> alleStellen(const Wortfolge &seite, const QStringList &worte)
{
    const Vergleich vergleich(seite, worte);
    QList<Namensstelle> stellen;
    for (qsizetype i = 0; i < seite.stuecke().size(); ++i) {
        const Treffer treffer = vergleich.ab(i);
        if (treffer.stuecke == 0)
            continue;
        const Fundstelle ort = seite.stelleVonStuecken(i, treffer.stuecke);
        stellen << Namensstelle{.ort = ort, .rang = rang(seite, ort, treffer.genau)};
    }
    return stellen;
}
} // namespace

QString Namensfunde::ohneRechtsform(const QString &name)
{
    static const QRegularExpression beschraenkt(u"\\s*\\(haftungsbeschränkt\\)"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    // Besides those that make two names one for the memory.
    static const QSet<QString> weitere = {u"eg"_s,  u"ek"_s, u"kgaa"_s, u"ggmbh"_s, u"mbh"_s, u"partg"_s,
                                          u"mbb"_s, u"sa"_s, u"sarl"_s, u"llc"_s,   u"plc"_s, u"bv"_s};
    QString rest = Rechtsform::ausgeschriebenOhne(QString(name).remove(beschraenkt));
    for (qsizetype luecke = rest.lastIndexOf(u' ');
         luecke > 0 && weitere.contains(zusammengezogen(rest.sliced(luecke))); luecke = rest.lastIndexOf(u' '))
        rest = Rechtsform::ausgeschriebenOhne(rest.first(luecke));
    return rest;
}

std::optional<Fundstelle> Namensfunde::zu(const QList<Wortfolge> &seiten, const QString &name)
{
    const QStringList worte = worteVon(name);
    if (worte.isEmpty())
        return std::nullopt;
    QList<QStringList> folgen{worte};
    if (worte.size() == 2)
        folgen << QStringList{worte.last(), worte.first()};
    std::optional<Namensstelle> beste;
    for (const Wortfolge &seite : seiten) {
        for (const QStringList &folge : std::as_const(folgen)) {
            for (const Namensstelle &stelle : alleStellen(seite, folge)) {
                if (!beste || stelle.rang > beste->rang)
                    beste = stelle;
            }
        }
    }
    return beste ? std::optional(beste->ort) : std::nullopt;
}
} // namespace quillmar::fundstellen
