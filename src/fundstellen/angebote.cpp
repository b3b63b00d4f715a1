#include "angebote.h"

#include "datumsfunde.h"
#include "namensfunde.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
constexpr qsizetype umfeldworte = 4; // on either side
constexpr double kopf = 0.36;        // of the first page's height
constexpr double obererKopf = 0.15;
constexpr int mitAnkuendigung = 40;    // rank of a date that is told to be one
constexpr qsizetype laengsterName = 7; // words
constexpr qsizetype bisMonat = 7;      // characters of JJJJ-MM

constexpr auto arten = QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;

/** A date without a day is the first of its month. */
QString mitTag(const QString &datum) { return datum.size() == bisMonat ? datum + u"-01"_s : datum; }

/** With some words of the same line on either side. */
QString umfeldVon(const Wortfolge &seite, const Fundstelle &stelle)
{
    const Fundstelle zeile = seite.zeilenstelle(seite.zeile(stelle.wort));
    const qsizetype von = std::max(zeile.wort, stelle.wort - umfeldworte);
    const qsizetype bis = std::max(stelle.wort + stelle.worte,
                                   std::min(zeile.wort + zeile.worte, stelle.wort + stelle.worte + umfeldworte));
    const auto links = stelle.wort == zeile.wort ? seite.links(stelle.wort) : std::nullopt; // beyond a wide gap
    const QString davor = links ? seite.worte().at(*links).text + u" … "_s : QString();
    return davor + seite.wortlaut({.seite = stelle.seite, .wort = von, .worte = bis - von});
}

/** Of equal values the likeliest one; likeliest first. */
QList<Angebot> geordnet(QList<Angebot> alle)
{
    std::stable_sort(alle.begin(), alle.end(), [](const Angebot &a, const Angebot &b) { return a.rang > b.rang; });
    QSet<QString> bekannte;
    alle.removeIf([&](const Angebot &a) {
        const QString eins = zusammengezogen(a.wert);
        if (eins.isEmpty() || bekannte.contains(eins))
            return true;
        bekannte.insert(eins);
        return false;
    });
    return alle;
}

/** Trimmed of what stands around words: colons, bars, brackets. A dot at the end stays, it may be an abbreviation's. */
QString beschnitten(QString text)
{
    static const QRegularExpression rand(u"^[\\s,;:|·•*()\\[\\]<>–—-]+|[\\s,;:|·•*(\\[\\]<>–—-]+$"_s);
    static const QRegularExpression zu(u"[\\s)]+$"_s);
    text.remove(rand);
    return text.contains(u'(') ? text : text.remove(zu).remove(rand); // a pair stays one
}

/** Streets, towns, numbers and the like, which stand where names do. */
bool istKeinName(const QString &text)
{
    static const QRegularExpression nichts(
        u"\\d{4,}|@|www\\.|https?:|^(?:tel|telefon|fax|mobil|e-?mail|iban|bic|ust|steuernr|seite|datum|date|postfach|"
        "betreff|mahnung|kundenservice|ihr|ihre|unser|unsere|an|von|invoice|rechnung|page|blz|konto|telephone|phone|"
        "sehr|dear)\\b|"
        "(?:str\\.?|straße|strasse|weg|platz|allee|gasse|ring|ufer|damm|road|street|rue|avenue)\\s*\\d|"
        "^(?:am|an|auf|hinter|unter|vor|bei|im|zum|zur|in)\\s.*\\s\\d+\\s?[a-z]?$"_s,
        arten);
    static const QRegularExpression name(u"^[\\p{Lu}\\d].*\\p{L}{2}"_s, QRegularExpression::UseUnicodePropertiesOption);
    return text.contains(nichts) || !text.contains(name);
}

QString ohneAnredetitel(QString text)
{
    static const QRegularExpression titel(u"^(?:herrn?|frau|mr\\.?|mrs\\.?|ms\\.?|monsieur|madame|firma)\\s+"_s, arten);
    return text.remove(titel);
}

bool hatRechtsform(const QString &text) { return Namensfunde::ohneRechtsform(text) != text; }

/** The folded words of a name without its legal form. */
QSet<QString> namensworte(const QString &name)
{
    QSet<QString> worte;
    for (const auto &stueck : Wortfolge(0, {{.text = Namensfunde::ohneRechtsform(name), .ort = {}}}).stuecke())
        worte.insert(stueck.text);
    return worte;
}

/** Looks for names line by line, and between bars and dots within them. */
class Namenssuche
{
public:
    Namenssuche(const Wortfolge &seite, const QList<QSet<QString>> &eigene) : m_seite(seite), m_eigene(eigene) {}

    [[nodiscard]] QList<Angebot> alle()
    {
        for (int zeile = 0; zeile < m_seite.zeilen(); ++zeile)
            zeileLesen(m_seite.zeilenstelle(zeile));
        return m_funde;
    }

private:
    void zeileLesen(const Fundstelle &zeile)
    {
        Fundstelle stueck{.seite = zeile.seite, .wort = zeile.wort, .worte = 0};
        for (qsizetype i = zeile.wort; i < zeile.wort + zeile.worte; ++i) {
            const QString &wort = m_seite.worte().at(i).text;
            const bool trennt = beschnitten(wort).isEmpty() && wort != u"&"_s && wort != u"-"_s;
            if (!trennt)
                ++stueck.worte;
            const bool kuendigtAn = wort.endsWith(u':'); // what stands behind it may be a name
            if (trennt || kuendigtAn || wort.endsWith(u',') || wort.endsWith(u';')) {
                if (!kuendigtAn)
                    pruefen(stueck);
                stueck = {.seite = zeile.seite, .wort = i + 1, .worte = 0};
            }
        }
        pruefen(stueck);
    }

    void pruefen(const Fundstelle &stueck)
    {
        if (stueck.worte == 0 || stueck.worte > laengsterName)
            return;
        const QString text = ohneAnredetitel(beschnitten(m_seite.wortlaut(stueck)));
        const double oben = m_seite.worte().at(stueck.wort).ort.top();
        const bool imKopf = stueck.seite == 0 && oben < kopf;
        const bool firma = hatRechtsform(text);
        if (text.isEmpty() || istKeinName(text) || (!imKopf && !firma) || istEigen(text))
            return;
        const int rang = (firma ? 40 : 0) + (imKopf ? 20 : 0) + (imKopf && oben < obererKopf ? 10 : 0) +
                         (stueck.worte > 1 ? 5 : 0) - int(std::clamp(oben, 0.0, 1.0) * 4) - stueck.seite;
        m_funde << Angebot{.wert = Namensfunde::ohneRechtsform(text),
                           .umfeld = umfeldVon(m_seite, stueck),
                           .stelle = stueck,
                           .rang = rang};
    }

    /** All of an own name, or a part of one: "Anna Müller" of "Anna und Peter Müller". */
    [[nodiscard]] bool istEigen(const QString &text) const
    {
        const QSet<QString> worte = namensworte(text);
        return std::any_of(m_eigene.begin(), m_eigene.end(), [&](const QSet<QString> &eigener) {
            return !eigener.isEmpty() && (worte.contains(eigener) || eigener.contains(worte));
        });
    }

    const Wortfolge &m_seite;
    const QList<QSet<QString>> &m_eigene;
    QList<Angebot> m_funde;
};

/** "Rechnungsnummer:", "Kd.-Nr.", "Az." */
bool kuendigtZahlAn(const QString &wort)
{
    static const QRegularExpression muster(
        u"(?:nr|nummer|number|num[eé]ro|zeichen|referenz|reference|konto|(?<!\\p{L})(?:no|az|ref|iban))[.:#]*$|^n°$"_s,
        arten);
    return wort.contains(muster);
}

/** What stands behind "Nr." in the same word, as in "Kd.-Nr.4714"; empty if nothing does. */
QString angehaengteZahl(const QString &wort)
{
    static const QRegularExpression muster(
        u"(?:(?:nr|nummer|number|num[eé]ro|zeichen|(?<!\\p{L})(?:no|az|ref|iban))[.:#]+|n°)(?<zahl>\\S*\\d\\S*)$"_s,
        arten);
    return muster.match(wort).captured(u"zahl"_s);
}

bool istTag(const QString &wort)
{
    static const QRegularExpression muster(u"^\\d{1,2}[./-]\\d{1,2}[./-]\\d{2,4}\\W*$|^\\d{4}-\\d{2}-\\d{2}\\W*$"_s);
    return wort.contains(muster);
}

/** "RE", "C": what stands in numbers besides digits. */
bool istKuerzel(const QString &wort)
{
    constexpr qsizetype laengstes = 4;
    return wort.size() <= laengstes && std::all_of(wort.begin(), wort.end(), [](QChar c) { return c.isUpper(); });
}

/** A number in one word or in several, such as an account's in groups; no words if there is none. */
Fundstelle zahlAb(const Wortfolge &seite, qsizetype wort)
{
    constexpr qsizetype meisteGruppen = 6;
    const auto istDa = [&](qsizetype i) { return i < seite.worte().size() && seite.zeile(i) == seite.zeile(wort); };
    const auto zahlIn = [&](qsizetype i) {
        return istDa(i) && hatZiffer(seite.worte().at(i).text) && !istTag(seite.worte().at(i).text);
    };
    const auto kuerzelIn = [&](qsizetype i) {
        const auto eines = [&](qsizetype n) { return istDa(n) && istKuerzel(seite.worte().at(n).text); };
        return eines(i) && (zahlIn(i + 1) || (eines(i + 1) && zahlIn(i + 2)));
    };
    Fundstelle zahl{.seite = seite.seite(), .wort = wort, .worte = 0};
    for (qsizetype i = wort; zahl.worte < meisteGruppen && (zahlIn(i) || kuerzelIn(i)); ++i) {
        ++zahl.worte;
        if (seite.worte().at(i).text.endsWith(u',') || seite.worte().at(i).text.endsWith(u';'))
            break;
    }
    return zahl;
}

bool istJahr(const QString &wort)
{
    static const QRegularExpression muster(u"^(?:19|20)\\d{2}$"_s);
    return wort.contains(muster);
}

bool stehtUnter(const QRectF &unten, const QRectF &oben)
{
    return unten.top() > oben.top() && unten.left() < oben.right() && oben.left() < unten.right();
}

/** The number that the word announces: behind it, or below it in a table. */
Fundstelle angekuendigte(const Wortfolge &seite, qsizetype wort)
{
    const auto inDerZeile = [&](qsizetype i) {
        return i < seite.worte().size() && seite.zeile(i) == seite.zeile(wort);
    };
    qsizetype naechstes = wort + 1;
    while (inDerZeile(naechstes) && beschnitten(seite.worte().at(naechstes).text).isEmpty())
        ++naechstes;
    if (inDerZeile(naechstes) && zahlAb(seite, naechstes).worte > 0)
        return zahlAb(seite, naechstes);
    for (qsizetype i = 0; i < seite.worte().size(); ++i) {
        // Most words are nowhere near: to look for their heads as well would take its time on a large page.
        if (!stehtUnter(seite.worte().at(i).ort, seite.worte().at(wort).ort) || seite.darueber(i) != wort)
            continue;
        if (const Fundstelle zahl = zahlAb(seite, i); zahl.worte > 0)
            return zahl;
    }
    return {.seite = seite.seite(), .wort = wort, .worte = 0};
}

int zahlenrang(const QString &ankuendigung)
{
    static const QRegularExpression eigene(
        u"rechn|beleg|vertrag|polic|versicherung|auftrag|invoice|akten|\\baz\\b|vorgang"_s, arten);
    static const QRegularExpression fremde(u"ust|steuer|iban|bic|tel|fax|konto|hrb|register|blz"_s, arten);
    return ankuendigung.contains(eigene) ? 20 : ankuendigung.contains(fremde) ? -20 : 0;
}

/** The number in the word itself, with the groups behind it where letters show that it goes on: "Az.:4 O 7/24". */
std::optional<Angebot> angehaengtes(const Wortfolge &seite, qsizetype wort)
{
    const QString &ankuendigung = seite.worte().at(wort).text;
    const QString zahl = angehaengteZahl(ankuendigung);
    if (zahl.isEmpty() || istTag(zahl))
        return std::nullopt;
    Fundstelle stelle{.seite = seite.seite(), .wort = wort, .worte = 1};
    const bool gehtWeiter = wort + 1 < seite.worte().size() && seite.zeile(wort + 1) == seite.zeile(wort) &&
                            istKuerzel(seite.worte().at(wort + 1).text);
    QString wert = zahl;
    if (const Fundstelle weitere = gehtWeiter ? zahlAb(seite, wort + 1) : Fundstelle{.worte = 0}; weitere.worte > 0) {
        stelle.worte += weitere.worte;
        wert += u' ' + seite.wortlaut(weitere);
    }
    return Angebot{.wert = beschnitten(wert),
                   .umfeld = seite.wortlaut(stelle),
                   .stelle = stelle,
                   .rang = zahlenrang(ankuendigung) - seite.seite(),
                   .istZahl = true};
}

void zahlenSuchen(const Wortfolge &seite, QList<Angebot> &funde)
{
    for (qsizetype i = 0; i < seite.worte().size(); ++i) {
        const QString &ankuendigung = seite.worte().at(i).text;
        if (const auto angebot = angehaengtes(seite, i))
            funde << *angebot;
        if (!kuendigtZahlAn(ankuendigung))
            continue;
        const Fundstelle zahl = angekuendigte(seite, i);
        if (zahl.worte == 0)
            continue;
        const bool allein = i == 0 || seite.zeile(i - 1) != seite.zeile(i);
        const QString davor = allein ? QString() : seite.worte().at(i - 1).text + u' ';
        const QString wert = beschnitten(seite.wortlaut(zahl));
        funde << Angebot{.wert = wert,
                         .umfeld = davor + ankuendigung + u' ' + wert,
                         .stelle = zahl,
                         .rang = zahlenrang(davor + ankuendigung) - seite.seite(),
                         .istZahl = true};
    }
}

Angebot betreffAus(const Wortfolge &seite, int zeile)
{
    static const QRegularExpression kopfwort(
        u"^(?:betreff|betr\\.|subject|objet)(?:\\b|(?<=\\.)):?\\s+|^(?:re|betrifft):\\s*"_s, arten);
    constexpr int vorAllem = 100;
    const Fundstelle stelle = seite.zeilenstelle(zeile);
    const QString text = beschnitten(seite.wortlaut(stelle).remove(kopfwort));
    return {.wert = text, .umfeld = text, .stelle = stelle, .rang = vorAllem};
}

/** "Rechnungsnummer: 17" and the like tell a number, not what it is about. */
bool istAngabe(const QString &text)
{
    static const QRegularExpression muster(u"^[^:]{2,30}:\\s|^\\P{L}*$"_s, arten);
    return text.contains(muster);
}

/** The line above the salutation; without one the first below the date that tells what it is about. */
std::optional<Angebot> betreff(const Wortfolge &seite)
{
    static const QRegularExpression anrede(
        u"^(?:sehr geehrte|liebe|hallo|guten (?:tag|morgen)|dear|hello|madame|monsieur|bonjour|cher|chère)"_s, arten);
    for (int zeile = 1; zeile < seite.zeilen(); ++zeile) {
        if (seite.wortlaut(seite.zeilenstelle(zeile)).contains(anrede))
            return betreffAus(seite, zeile - 1);
    }
    const QList<Datumsfund> daten = Datumsfunde::alle({seite});
    if (daten.isEmpty() || daten.first().rang < mitAnkuendigung)
        return std::nullopt;
    for (int zeile = seite.zeile(daten.first().stelle.wort) + 1; zeile < seite.zeilen(); ++zeile) {
        if (!istAngabe(seite.wortlaut(seite.zeilenstelle(zeile))))
            return betreffAus(seite, zeile);
    }
    return std::nullopt;
}
} // namespace

QList<Angebot> Angebote::daten(const QList<Wortfolge> &seiten)
{
    constexpr int ohneTag = 1000;
    QList<Angebot> angebote;
    for (const Datumsfund &fund : Datumsfunde::alle(seiten)) {
        const bool monat = fund.wert.size() == bisMonat;
        angebote << Angebot{.wert = mitTag(fund.wert),
                            .umfeld = umfeldVon(seiten.at(fund.stelle.seite), fund.stelle),
                            .stelle = fund.stelle,
                            .rang = fund.rang - (monat ? ohneTag : 0)};
    }
    return geordnet(angebote);
}

QList<Angebot> Angebote::namen(const QList<Wortfolge> &seiten, const QStringList &eigene)
{
    QList<QSet<QString>> eigeneWorte;
    for (const QString &name : eigene)
        eigeneWorte << namensworte(name);
    QList<Angebot> angebote;
    for (const Wortfolge &seite : seiten)
        angebote << Namenssuche(seite, eigeneWorte).alle();
    return geordnet(angebote);
}

QList<Angebot> Angebote::titel(const QList<Wortfolge> &seiten)
{
    QList<Angebot> angebote;
    if (!seiten.isEmpty()) {
        if (const auto zeile = betreff(seiten.first()))
            angebote << *zeile;
    }
    for (const Wortfolge &seite : seiten)
        zahlenSuchen(seite, angebote);
    return geordnet(angebote);
}

QString Uebernahme::alsDatum(const QString &text)
{
    const QList<Datumsfund> funde = Datumsfunde::alle({Wortfolge(0, {{.text = text, .ort = {}}})});
    return funde.isEmpty() ? text.trimmed() : mitTag(funde.first().wert);
}

QString Uebernahme::alsDatum(const Wortfolge &seite, qsizetype wort, qsizetype worte)
{
    for (const Datumsfund &fund : Datumsfunde::alle({seite})) {
        if (fund.stelle.wort < wort + worte && wort < fund.stelle.wort + fund.stelle.worte)
            return mitTag(fund.wert);
    }
    return alsDatum(seite.wortlaut({.seite = seite.seite(), .wort = wort, .worte = worte}));
}

QString Uebernahme::alsGegenueber(const QString &text) { return Namensfunde::ohneRechtsform(beschnitten(text)); }

QString Uebernahme::zahlImTitel(const QString &titel, const QString &zahl, const QStringList &fehlende)
{
    QStringList worte = titel.split(u' ', Qt::SkipEmptyParts);
    const auto zahlBei = [&](qsizetype i) { return i >= 0 && i < worte.size() && hatZiffer(worte.at(i)); };
    qsizetype stelle = worte.size();
    for (qsizetype i = worte.size() - 1; i >= 0; --i) {
        if (fehlende.contains(worte.at(i)) ||
            (fehlende.isEmpty() && zahlBei(i) && !istJahr(worte.at(i)) && stelle == worte.size()))
            stelle = i;
    }
    if (stelle == worte.size())
        return (worte << zahl).join(u' ');
    // Numbers are written in groups, with letters in front.
    qsizetype von = stelle;
    while (zahlBei(von - 1) || (von > 0 && istKuerzel(worte.at(von - 1))))
        --von;
    qsizetype bis = stelle + 1;
    while (zahlBei(bis))
        ++bis;
    worte.remove(von, bis - von);
    worte.insert(von, zahl);
    return worte.join(u' ');
}
} // namespace quillmar::fundstellen
