#include "wortstimmen.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
constexpr qsizetype hoechstensZahlen = 40;
constexpr qsizetype hoechstensWoerter = 80;
constexpr qsizetype kuerzestesWort = 5;
constexpr qsizetype laengstesWort = 40;
constexpr int wenigsteZiffern = 4;
constexpr double bedeutsam = 12; // G statistic: one chance in two thousand, for a text has a hundred words
constexpr qsizetype woerterJePlatz = 3;
constexpr double klar = 1;
constexpr double vorsprung = 2;

int ziffern(QStringView wort)
{
    return int(std::count_if(wort.begin(), wort.end(), [](QChar c) { return c.isDigit(); }));
}

/** Dates, amounts, times and years differ from letter to letter, whatever it is about. */
bool wechselt(const QString &wort)
{
    static const QRegularExpression muster(u"^(?:\\d{1,2}[./-]\\d{1,2}[./-](?:\\d{4}|\\d{2})|\\d{4}-\\d{2}-\\d{2}|"
                                           "\\d{1,2}[./]\\d{4}|[+-]?\\d{1,3}(?:[.']?\\d{3})*[,.]\\d{2}|"
                                           "\\d{1,2}:\\d{2}(?::\\d{2})?|(?:19|20)\\d{2})$"_s);
    return muster.match(wort).hasMatch();
}

QString ohneRaender(QStringView wort)
{
    while (!wort.isEmpty() && !wort.front().isLetterOrNumber())
        wort = wort.sliced(1);
    while (!wort.isEmpty() && !wort.back().isLetterOrNumber())
        wort.chop(1);
    return wort.toString();
}

bool istZahl(const QString &wort) { return ziffern(wort) >= wenigsteZiffern && !wechselt(wort); }

bool istWort(const QString &wort)
{
    return wort.size() >= kuerzestesWort &&
           std::all_of(wort.begin(), wort.end(), [](QChar c) { return c.isLetter() || c == u'-' || c == u'.'; });
}

/** Distinct ones up to a number. */
class Sammlung
{
public:
    explicit Sammlung(qsizetype hoechstens) : m_hoechstens(hoechstens) {}
    void dazu(const QString &wort)
    {
        const QString gleich = Wortstimmen::gefaltetesWort(wort);
        if (m_liste.size() >= m_hoechstens || m_bekannt.contains(gleich))
            return;
        m_bekannt.insert(gleich);
        m_liste << wort;
    }
    [[nodiscard]] const QStringList &liste() const { return m_liste; }

private:
    qsizetype m_hoechstens;
    QSet<QString> m_bekannt;
    QStringList m_liste;
};

/** The words of a text one after the other. */
class Wortlese
{
public:
    void dazu(QStringView roh)
    {
        const QString wort = ohneRaender(roh);
        const bool nurZiffern = !wort.isEmpty() && ziffern(wort) == wort.size();
        if (nurZiffern)
            m_gruppe += m_gruppe.isEmpty() ? wort : u' ' + wort;
        if (!nurZiffern || roh.size() != wort.size())
            gruppeSchliessen();
        if (wort.size() <= laengstesWort && istZahl(wort))
            m_zahlen.dazu(wort);
        else if (wort.size() <= laengstesWort && istWort(wort))
            m_woerter.dazu(wort);
    }
    [[nodiscard]] QStringList ernte()
    {
        gruppeSchliessen();
        return m_zahlen.liste() + m_woerter.liste();
    }

private:
    void gruppeSchliessen()
    {
        if (m_gruppe.contains(u' ') && m_gruppe.size() <= laengstesWort && istZahl(m_gruppe))
            m_zahlen.dazu(m_gruppe);
        m_gruppe.clear();
    }

    Sammlung m_zahlen{hoechstensZahlen};
    Sammlung m_woerter{hoechstensWoerter};
    QString m_gruppe; ///< digits printed in groups, as account numbers are
};

/** What one word says: for which place, and how strongly. */
struct Stimme {
    QString wort = {};
    bool zahl = false;
    qsizetype platz = -1;
    double gewicht = 0;
    qint64 dokumente = 0;
};

/** In what share of the documents there, as far as so few can tell (Jeffreys' estimate). */
double anteil(const Wortstimmen::Platz &platz, qint64 mit)
{
    return (double(mit) + 0.5) / (double(platz.dokumente) + 1);
}

/** How unlikely it is by chance that a word stands where it does (G test of a place against all others). */
double bedeutung(qint64 hier, qint64 dokumente, qint64 mit, qint64 alle)
{
    const auto teil = [](qint64 gezaehlt, double erwartet) {
        return gezaehlt == 0 ? 0 : double(gezaehlt) * std::log(double(gezaehlt) / erwartet);
    };
    const double anteilMit = double(mit) / double(alle);
    const qint64 andere = alle - dokumente;
    return 2 * (teil(hier, anteilMit * double(dokumente)) + teil(mit - hier, anteilMit * double(andere)) +
                teil(dokumente - hier, (1 - anteilMit) * double(dokumente)) +
                teil(andere - (mit - hier), (1 - anteilMit) * double(andere)));
}

/** The word may stand where it does by chance. */
bool istZufall(const Stimme &stimme, const QString &gleich, const QList<Wortstimmen::Platz> &plaetze)
{
    qint64 mit = 0;
    qint64 alle = 0;
    for (const Wortstimmen::Platz &platz : plaetze) {
        mit += platz.worte.value(gleich);
        alle += platz.dokumente;
    }
    const qint64 dort = plaetze.at(stimme.platz).dokumente;
    return dort == alle || bedeutung(stimme.dokumente, dort, mit, alle) < bedeutsam;
}

Stimme stimmeVon(const QString &wort, const QList<Wortstimmen::Platz> &plaetze)
{
    const QString gleich = Wortstimmen::gefaltetesWort(wort);
    Stimme stimme{.wort = wort, .zahl = istZahl(wort)};
    double zweiter = 0;
    double erster = 0;
    for (qsizetype i = 0; i < plaetze.size(); ++i) {
        if (plaetze.at(i).dokumente == 0)
            continue;
        const qint64 hier = plaetze.at(i).worte.value(gleich);
        const double wert = anteil(plaetze.at(i), hier);
        if (wert > erster) {
            zweiter = std::exchange(erster, wert);
            stimme.platz = i;
            stimme.dokumente = hier;
        } else {
            zweiter = std::max(zweiter, wert);
        }
    }
    if (stimme.dokumente == 0 || zweiter <= 0 || (!stimme.zahl && istZufall(stimme, gleich, plaetze)))
        return {};
    stimme.gewicht = std::log(erster / zweiter);
    return stimme;
}
} // namespace

QString Wortstimmen::gefaltetesWort(const QString &wort) { return wort.toCaseFolded(); }

QStringList Wortstimmen::worte(const QString &text)
{
    static const QRegularExpression leerraum(u"\\s+"_s);
    Wortlese lese;
    for (const QStringView roh : QStringView(text).split(leerraum, Qt::SkipEmptyParts))
        lese.dazu(roh);
    return lese.ernte();
}

Wortstimmen::Ergebnis Wortstimmen::abstimmen(const QStringList &worte, const QList<Platz> &plaetze)
{
    QList<Stimme> stimmen;
    for (const QString &wort : worte) {
        if (Stimme stimme = stimmeVon(wort, plaetze); stimme.platz >= 0 && stimme.gewicht > 0)
            stimmen << std::move(stimme);
    }
    std::stable_sort(stimmen.begin(), stimmen.end(),
                     [](const Stimme &a, const Stimme &b) { return a.gewicht > b.gewicht; });
    QList<double> summen(plaetze.size(), 0);
    QList<qsizetype> woerter(plaetze.size(), 0);
    for (const Stimme &s : std::as_const(stimmen)) {
        if (s.zahl || woerter[s.platz]++ < woerterJePlatz)
            summen[s.platz] += s.gewicht;
    }
    const auto erster = std::max_element(summen.cbegin(), summen.cend());
    if (erster == summen.cend() || *erster < klar)
        return {};
    const qsizetype platz = erster - summen.cbegin();
    for (qsizetype i = 0; i < summen.size(); ++i) {
        if (i != platz && summen.at(i) * vorsprung > *erster)
            return {};
    }
    const auto staerkste =
        std::find_if(stimmen.cbegin(), stimmen.cend(), [&](const Stimme &s) { return s.platz == platz; });
    return {.platz = platz, .wort = staerkste->wort, .dokumente = staerkste->dokumente};
}
} // namespace quillmar::lernen
