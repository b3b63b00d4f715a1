#include "titelfunde.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
constexpr qsizetype kuerzestesWort = 3;
constexpr qsizetype kuerzesterAnfang = 5; // of a longer word
constexpr qsizetype meisteStuecke = 8;    // that one number is parted into

/** Folded words that tell nothing. */
bool istFuellwort(const QString &wort)
{
    static const QSet<QString> fuellworte = {
        u"fur"_s,  u"der"_s,   u"die"_s,      u"das"_s,   u"des"_s,     u"dem"_s,      u"den"_s,   u"und"_s,
        u"ein"_s,  u"eine"_s,  u"einer"_s,    u"eines"_s, u"einem"_s,   u"einen"_s,    u"von"_s,   u"vom"_s,
        u"zum"_s,  u"zur"_s,   u"mit"_s,      u"auf"_s,   u"aus"_s,     u"bei"_s,      u"beim"_s,  u"nach"_s,
        u"uber"_s, u"unter"_s, u"zwischen"_s, u"wegen"_s, u"durch"_s,   u"gegen"_s,    u"ohne"_s,  u"sowie"_s,
        u"oder"_s, u"nicht"_s, u"auch"_s,     u"wird"_s,  u"ist"_s,     u"sie"_s,      u"als"_s,   u"bis"_s,
        u"pro"_s,  u"per"_s,   u"the"_s,      u"for"_s,   u"and"_s,     u"with"_s,     u"from"_s,  u"your"_s,
        u"this"_s, u"that"_s,  u"are"_s,      u"les"_s,   u"une"_s,     u"sur"_s,      u"par"_s,   u"pour"_s,
        u"avec"_s, u"dans"_s,  u"votre"_s,    u"sehr"_s,  u"geehrte"_s, u"geehrter"_s, u"damen"_s, u"herren"_s,
        u"herr"_s, u"frau"_s};
    return fuellworte.contains(wort);
}

QList<Titelwort> worteVon(const QString &titel)
{
    static const QRegularExpression luecke(u"\\s+"_s);
    QList<Titelwort> zahlen;
    QList<Titelwort> worte;
    for (const QString &text : titel.split(luecke, Qt::SkipEmptyParts)) {
        const QString eins = zusammengezogen(text);
        if (hatZiffer(eins))
            zahlen << Titelwort{.text = text, .zahl = true, .stelle = {}};
        else if (eins.size() >= kuerzestesWort && !istFuellwort(eins))
            worte << Titelwort{.text = text, .zahl = false, .stelle = {}};
    }
    return zahlen + worte;
}

/** How many pieces from @p erstes on make up @p gesucht; 0 for none. */
qsizetype reichweite(const QList<Wortfolge::Stueck> &stuecke, qsizetype erstes, const QString &gesucht)
{
    QString bisher;
    for (qsizetype n = 0; n < meisteStuecke && erstes + n < stuecke.size(); ++n) {
        bisher += stuecke.at(erstes + n).text;
        if (bisher == gesucht)
            return n + 1;
        if (!gesucht.startsWith(bisher))
            return 0;
    }
    return 0;
}

bool istNurBuchstaben(const QString &text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

/** A day or an amount: what it is put together from is no number of its own, but for the year of a day. */
bool istTagOderBetrag(const QString &wort)
{
    static const QRegularExpression muster(
        u"^\\D*\\d{1,2}[./-]\\d{1,2}[./-]\\d{2,4}\\D*$|^\\D*\\d{4}-\\d{2}-\\d{2}\\D*$|^\\D*[\\d.]*\\d[.,]\\d{2}\\D*$"_s);
    return wort.contains(muster);
}

/** The pieces stand for a number of their own: no digits of their words are left over, and no day or amount is cut. */
bool istGanzeZahl(const Wortfolge &seite, qsizetype erstes, qsizetype anzahl, const Titelwort &gesucht)
{
    const auto &stuecke = seite.stuecke();
    const auto &vorn = stuecke.at(erstes);
    const auto &hinten = stuecke.at(erstes + anzahl - 1);
    const QString &wort = seite.worte().at(vorn.wort).text;
    static const QRegularExpression trenner(u"\\d[.,/-]\\d"_s);
    if (istTagOderBetrag(wort) && !gesucht.text.contains(trenner)) {
        constexpr qsizetype jahr = 4;
        return anzahl == 1 && vorn.text.size() == jahr && gesucht.text.size() == jahr;
    }
    constexpr qsizetype kuerzesteInGruppen = 6;
    if (vorn.wort != hinten.wort && zusammengezogen(gesucht.text).size() < kuerzesteInGruppen)
        return false;
    const auto restLosgeloest = [&](qsizetype i, qsizetype eigenes) {
        return i < 0 || i >= stuecke.size() || stuecke.at(i).wort != eigenes || istNurBuchstaben(stuecke.at(i).text);
    };
    return anzahl == 1 || (restLosgeloest(erstes - 1, vorn.wort) && restLosgeloest(erstes + anzahl, hinten.wort));
}

/** A place of a word, and how surely it is one. */
struct Stelle {
    Fundstelle ort;
    int guete = 0; ///< 2: the word itself, 1: a longer one that begins with it, 0: as recognition may have got it wrong
};

QList<Stelle> alleStellen(const QList<Wortfolge> &seiten, const Titelwort &wort)
{
    const QString gesucht = zusammengezogen(wort.text);
    QList<Stelle> stellen;
    for (const Wortfolge &seite : seiten) {
        for (qsizetype i = 0; i < seite.stuecke().size(); ++i) {
            const QString &stueck = seite.stuecke().at(i).text;
            const qsizetype n = reichweite(seite.stuecke(), i, gesucht);
            if (n > 0 && (!wort.zahl || istGanzeZahl(seite, i, n, wort)))
                stellen << Stelle{.ort = seite.stelleVonStuecken(i, n), .guete = 2};
            else if (!wort.zahl && gesucht.size() >= kuerzesterAnfang && stueck.startsWith(gesucht))
                stellen << Stelle{.ort = seite.stelleVonStuecken(i, 1), .guete = 1};
            else if (!wort.zahl && fastGleich(stueck, gesucht))
                stellen << Stelle{.ort = seite.stelleVonStuecken(i, 1), .guete = 0};
        }
    }
    return stellen;
}

/** Numbers that stand nowhere by themselves may be the parts of one: "2024 0815" is "20240815" on the page. */
void teileSuchen(const QList<Wortfolge> &seiten, const QList<Titelwort> &worte, QList<QList<Stelle>> &stellen)
{
    const auto fehlt = [&](qsizetype i) { return i < worte.size() && worte.at(i).zahl && stellen.at(i).isEmpty(); };
    for (qsizetype i = 0; i < worte.size(); ++i) {
        QString ganze;
        qsizetype bis = i;
        for (; fehlt(bis); ++bis)
            ganze += worte.at(bis).text;
        const bool mehrere = bis > i + 1;
        const QList<Stelle> gemeinsame =
            mehrere ? alleStellen(seiten, {.text = ganze, .zahl = true, .stelle = {}}) : QList<Stelle>();
        for (qsizetype teil = i; teil < bis; ++teil)
            stellen[teil] = gemeinsame;
        i = std::max(i, bis);
    }
}

using Zeile = std::pair<int, int>; // page and line

Zeile zeileVon(const QList<Wortfolge> &seiten, const Fundstelle &stelle)
{
    return {stelle.seite, seiten.at(stelle.seite).zeile(stelle.wort)};
}

/** The place whose line has the most of the title; of equals the surest, then the first. */
Fundstelle beste(const QList<Wortfolge> &seiten, const QList<Stelle> &stellen, const QHash<Zeile, int> &gemeinsame)
{
    const auto rang = [&](const Stelle &s) { return std::pair(gemeinsame.value(zeileVon(seiten, s.ort)), s.guete); };
    return std::max_element(stellen.begin(), stellen.end(),
                            [&](const Stelle &a, const Stelle &b) { return rang(a) < rang(b); })
        ->ort;
}
} // namespace

QList<Titelwort> Titelfunde::zu(const QList<Wortfolge> &seiten, const QString &titel)
{
    QList<Titelwort> worte = worteVon(titel);
    QList<QList<Stelle>> stellen;
    for (const Titelwort &wort : std::as_const(worte))
        stellen << alleStellen(seiten, wort);
    teileSuchen(seiten, worte, stellen);
    QHash<Zeile, int> gemeinsame; // how many words of the title a line has
    for (const QList<Stelle> &einWort : std::as_const(stellen)) {
        QSet<Zeile> zeilen;
        for (const Stelle &stelle : einWort)
            zeilen.insert(zeileVon(seiten, stelle.ort));
        for (const Zeile &zeile : std::as_const(zeilen))
            ++gemeinsame[zeile];
    }
    for (qsizetype i = 0; i < worte.size(); ++i) {
        if (!stellen.at(i).isEmpty())
            worte[i].stelle = beste(seiten, stellen.at(i), gemeinsame);
    }
    return worte;
}
} // namespace quillmar::fundstellen
