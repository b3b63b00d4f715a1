#include "datumsfunde.h"

#include <QDate>
#include <QHash>
#include <QRegularExpression>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
constexpr int jahrhundertwende = 70; // two-digit years from here on are of the last century
constexpr double kopf = 0.45;        // of the page's height
constexpr qsizetype davor = 40;      // characters in front of a date that tell what it is
constexpr int monate = 12;

/** Lower case, as far as letters write them, with and without accents. */
const QHash<QString, int> &monatsnamen()
{
    static const QHash<QString, int> namen = [] {
        const QList<QStringList> jeMonat = {
            {u"januar"_s, u"jänner"_s, u"jaenner"_s, u"jan"_s, u"january"_s, u"janvier"_s, u"janv"_s},
            {u"februar"_s, u"feber"_s, u"feb"_s, u"february"_s, u"février"_s, u"fevrier"_s, u"févr"_s, u"fevr"_s},
            {u"märz"_s, u"maerz"_s, u"marz"_s, u"mär"_s, u"mrz"_s, u"march"_s, u"mar"_s, u"mars"_s},
            {u"april"_s, u"apr"_s, u"avril"_s, u"avr"_s},
            {u"mai"_s, u"may"_s},
            {u"juni"_s, u"jun"_s, u"june"_s, u"juin"_s},
            {u"juli"_s, u"jul"_s, u"july"_s, u"juillet"_s, u"juil"_s},
            {u"august"_s, u"aug"_s, u"août"_s, u"aout"_s},
            {u"september"_s, u"sept"_s, u"sep"_s, u"septembre"_s},
            {u"oktober"_s, u"okt"_s, u"october"_s, u"oct"_s, u"octobre"_s},
            {u"november"_s, u"nov"_s, u"novembre"_s},
            {u"dezember"_s, u"dez"_s, u"december"_s, u"dec"_s, u"décembre"_s, u"decembre"_s, u"déc"_s}};
        QHash<QString, int> alle;
        for (int monat = 0; monat < jeMonat.size(); ++monat) {
            for (const QString &name : jeMonat.at(monat))
                alle.insert(name, monat + 1);
        }
        return alle;
    }();
    return namen;
}

/** An alternative of all names, the longer ones first. */
QString monatsmuster()
{
    QStringList namen = monatsnamen().keys();
    std::sort(namen.begin(), namen.end(),
              [](const QString &a, const QString &b) { return a.size() != b.size() ? a.size() > b.size() : a < b; });
    return u"(?<m>"_s + namen.join(u'|') + u")\\b\\.?"_s;
}

/** A form in which dates are written. */
struct Form {
    QRegularExpression muster; ///< with the groups t, m and j as far as it has them
    bool tauschbar = false;    ///< the day may stand behind the month
};

const QList<Form> &formen()
{
    static const QList<Form> alle = [] {
        const QString monat = monatsmuster();
        // Two digits are a year only where no amount, time or count goes on.
        const QString nurJahr =
            u"(?![.,:’]?\\d)(?! ?(?:Uhr|h|Stück|Stk|St|%|€|EUR|Euro|kWh|Tage?|Seiten?)(?!\\p{L}))"_s;
        const QString jahr = u"(?<j>(?:19|20)\\d{2}|['’]?\\d{2}"_s + nurJahr + u')';
        const QString tag = u"(?<![\\d.])(?<t>\\d{1,2})"_s;
        const auto form = [](const QString &muster, bool tauschbar = false) {
            const auto arten =
                QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;
            return Form{.muster = QRegularExpression(muster, arten), .tauschbar = tauschbar};
        };
        return QList<Form>{
            form(u"(?<!\\d)(?<j>(?:19|20)\\d{2}) ?[-./] ?(?<m>\\d{1,2}) ?[-./] ?(?<t>\\d{1,2})(?!\\d)"_s),
            form(tag + u"[.,] ?(?<m>\\d{1,2})[.,] ?(?<j>(?:19|20)\\d{2})(?![.]?\\d)"_s),
            form(tag + u" [.] ?(?<m>\\d{1,2}) ?[.] ?(?<j>(?:19|20)\\d{2})(?![.]?\\d)"_s),
            form(tag + u"[.](?<m>\\d{1,2})[.]"_s + jahr + u"(?![.]?\\d)"_s),
            form(tag + u"[.] (?<m>\\d{1,2})[.] "_s + jahr + u"(?![.]?\\d)"_s),
            form(tag + u" ?(?<z>[/-]) ?(?<m>\\d{1,2}) ?\\k<z> ?"_s + jahr + u"(?![.]?\\d)"_s, true),
            form(tag + u" ?(?:\\.|er|st|nd|rd|th)? ?(?:de |of )?"_s + monat + u",? ?"_s + jahr + u"(?![.]?\\d)"_s),
            form(tag + u"-"_s + monat + u"-"_s + jahr + u"(?![.]?\\d)"_s),
            form(u"\\b"_s + monat + u" ?(?<t>\\d{1,2})(?:st|nd|rd|th)?\\.?,? (?<j>(?:19|20)\\d{2})(?!\\d)"_s),
            form(u"\\b"_s + monat + u",? ?(?<j>(?:19|20)\\d{2})(?!\\d)"_s),
            form(u"(?<![\\d./-])(?<m>0?[1-9]|1[0-2]) ?[./] ?(?<j>(?:19|20)\\d{2})(?![\\d./-]\\d)"_s)};
    }();
    return alle;
}

int jahrAus(QString text)
{
    text.remove(u'\'').remove(u'’');
    const int jahr = text.toInt();
    if (text.size() > 2)
        return jahr;
    constexpr int voriges = 1900;
    constexpr int dieses = 2000;
    return jahr < jahrhundertwende ? dieses + jahr : voriges + jahr;
}

/** Empty if there is no such day. */
QString tagesform(int jahr, int monat, int tag)
{
    const QDate datum(jahr, monat, tag);
    return datum.isValid() ? datum.toString(Qt::ISODate) : QString();
}

/** What the match says; without a value if that is no date. */
Datumsfund gelesen(const QRegularExpressionMatch &treffer, bool tauschbar)
{
    const QString monatstext = treffer.captured(u"m"_s).toLower();
    const int monat = monatsnamen().value(monatstext, monatstext.toInt());
    const int jahr = jahrAus(treffer.captured(u"j"_s));
    const QString tag = treffer.hasCaptured(u"t"_s) ? treffer.captured(u"t"_s) : QString();
    Datumsfund fund;
    if (tag.isEmpty()) {
        if (monat >= 1 && monat <= monate)
            fund.wert = u"%1-%2"_s.arg(jahr).arg(monat, 2, 10, QChar(u'0'));
        return fund;
    }
    fund.wert = tagesform(jahr, monat, tag.toInt());
    if (tauschbar && monat != tag.toInt())
        fund.andereLesart = tagesform(jahr, tag.toInt(), monat);
    if (fund.wert.isEmpty())
        std::swap(fund.wert, fund.andereLesart);
    return fund;
}

/** What stands in front of a date, or above it, says what it is. */
int rangNach(const QString &umfeld)
{
    static const auto arten =
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;
    static const QRegularExpression anderes(u"(?:liefer|leistungs|geburts|bestell|auftrags|vertrags|fälligkeits|druck|"
                                            u"eingangs|zahlungs|buchungs|valuta)[- ]?datum|f[aä]llig|zahlbar|"
                                            "\\bbis\\b|sp[aä]testens|geb(?:oren|\\.)|\\bab\\b(?!-)|\\border "
                                            "date|\\bseit\\b|\\bzum\\b|valuta|\\bdue\\b|until|\\bborn\\b|"
                                            "\\bbirth\\b|jusqu|éch[eé]ance|\\bn[eé]e? le\\b|zeitraum|period"_s,
                                            arten);
    static const QRegularExpression datum(u"(?:datum|\\bdate|dated|datiert)\\W*(?:vom|den|of|du|le)?\\W*$"_s, arten);
    static const QRegularExpression fernesDatum(u"(?:datum|\\bdate)\\b"_s, arten);
    static const QRegularExpression ort(u"\\p{L}[\\p{L}.-]+, ?(?:den|le|the|am)? ?$|\\b(?:den|le) ?$"_s, arten);
    if (umfeld.contains(anderes))
        return -40;
    if (umfeld.contains(datum))
        return 50;
    if (umfeld.contains(ort))
        return 40;
    return umfeld.contains(fernesDatum) ? 30 : 0;
}

/** The words of the same line in front of @p beginn, behind the number or date that comes before. */
QString davorInDerZeile(const Wortfolge &folge, qsizetype wort, qsizetype beginn)
{
    const Fundstelle zeile = folge.zeilenstelle(folge.zeile(wort));
    const qsizetype von = std::max(folge.anfang(zeile.wort), beginn - davor);
    const QString text = folge.text().sliced(von, beginn - von);
    static const QRegularExpression zahl(u"\\d{2,}[,.;]?\\s"_s);
    QRegularExpressionMatch letzte;
    const qsizetype stelle = text.lastIndexOf(zahl, -1, &letzte);
    return stelle < 0 ? text : text.sliced(letzte.capturedEnd());
}

int rang(const Wortfolge &folge, const Datumsfund &fund, qsizetype beginn)
{
    const qsizetype wort = fund.stelle.wort;
    int rang = rangNach(davorInDerZeile(folge, wort, beginn));
    for (const auto kopfwort : {folge.links(wort), folge.darueber(wort)}) {
        if (rang == 0 && kopfwort)
            rang = rangNach(folge.wortlaut({.seite = folge.seite(), .wort = *kopfwort})) / 2;
    }
    if (fund.stelle.seite == 0)
        rang += folge.worte().at(fund.stelle.wort).ort.top() < kopf ? 20 : 10;
    constexpr qsizetype mitTag = 10;
    return rang + (fund.wert.size() == mitTag ? 5 : 0);
}

/** No form finds once more what another one has found. */
bool istBelegt(const QList<std::pair<qsizetype, qsizetype>> &belegte, qsizetype von, qsizetype bis)
{
    return std::any_of(belegte.begin(), belegte.end(), [&](const auto &b) { return von < b.second && b.first < bis; });
}

/** What stands in two columns, or where one line ends and the next begins, is no date. */
bool stehtInEinerZeile(const Wortfolge &folge, const Fundstelle &stelle)
{
    return folge.zeile(stelle.wort) == folge.zeile(stelle.wort + stelle.worte - 1);
}

void suchen(const Wortfolge &folge, QList<Datumsfund> &funde)
{
    QList<std::pair<qsizetype, qsizetype>> belegte;
    for (const Form &form : formen()) {
        for (auto treffer = form.muster.globalMatch(folge.text()); treffer.hasNext();) {
            const QRegularExpressionMatch eins = treffer.next();
            Datumsfund fund = gelesen(eins, form.tauschbar);
            fund.stelle = folge.stelle(eins.capturedStart(), eins.capturedLength());
            if (fund.wert.isEmpty() || istBelegt(belegte, eins.capturedStart(), eins.capturedEnd()))
                continue;
            if (!stehtInEinerZeile(folge, fund.stelle))
                continue;
            belegte << std::pair(eins.capturedStart(), eins.capturedEnd());
            fund.rang = rang(folge, fund, eins.capturedStart());
            funde << fund;
        }
    }
}

/** The first or last day of its month, which stands for the month where no day is given. */
bool kannMonatMeinen(const QDate &tag) { return tag.day() == 1 || tag.day() == tag.daysInMonth(); }
} // namespace

QList<Datumsfund> Datumsfunde::alle(const QList<Wortfolge> &seiten)
{
    QList<Datumsfund> funde;
    for (const Wortfolge &folge : seiten)
        suchen(folge, funde);
    std::stable_sort(funde.begin(), funde.end(), [](const Datumsfund &a, const Datumsfund &b) {
        return std::tuple(-a.rang, a.stelle.seite, a.stelle.wort) < std::tuple(-b.rang, b.stelle.seite, b.stelle.wort);
    });
    return funde;
}

std::optional<Fundstelle> Datumsfunde::zu(const QList<Datumsfund> &alle, const QString &datum)
{
    const auto erste = [&](const auto &passt) -> std::optional<Fundstelle> {
        const auto fund = std::find_if(alle.begin(), alle.end(), passt);
        return fund == alle.end() ? std::nullopt : std::optional(fund->stelle);
    };
    if (const auto ganzes = erste([&](const Datumsfund &f) { return f.wert == datum; }))
        return ganzes;
    if (const auto andere = erste([&](const Datumsfund &f) { return f.andereLesart == datum; }))
        return andere;
    const QDate tag = QDate::fromString(datum, Qt::ISODate);
    constexpr qsizetype bisMonat = 7;
    if (!tag.isValid() || !kannMonatMeinen(tag))
        return std::nullopt;
    return erste([&](const Datumsfund &f) { return f.wert == datum.first(bisMonat); });
}
} // namespace quillmar::fundstellen
