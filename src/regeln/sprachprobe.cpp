#include "sprachprobe.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::regeln
{
namespace
{
constexpr qsizetype kuerzestesWort = 3;
constexpr qsizetype genugWorte = 25;      // among which a frequent one is to be expected
constexpr qsizetype vieleWorte = 40;      // among which there is one, in a language that is known
constexpr qsizetype vokaleInHundert = 30; // letters; languages of Latin script have 35 and more
constexpr qsizetype genugFuerWirres = 2;  // one alone may be a stain
constexpr qsizetype wirreInHundert = 25;  // words

const QHash<QString, QString> &haeufigeJeSprache()
{
    static const QHash<QString, QString> worte = {
        {u"deu"_s,
         u"der die und in den von zu das mit sich des auf für ist im dem nicht ein eine als auch an aus er hat "
         "dass sie nach wird bei einer um am sind noch wie einem über einen so zum war haben nur oder aber "
         "vor zur bis mehr durch ihr ihre ihren ihrer ihnen wir uns bitte datum herr frau nr"_s},
        {u"eng"_s, u"the of and to for on with your you is that this from are have be by at we our it or please will "
                   "not was dear date no"_s},
        {u"fra"_s, u"le la les de des et du en un une pour que qui dans sur vous nous votre par est au aux avec ce ne "
                   "pas sont madame monsieur"_s},
    };
    return worte;
}

QSet<QString> haeufigeVon(const QString &sprachen)
{
    QSet<QString> alle;
    for (const QString &sprache : sprachen.split(u'+', Qt::SkipEmptyParts)) {
        for (const QString &wort : haeufigeJeSprache().value(sprache.trimmed()).split(u' ', Qt::SkipEmptyParts))
            alle.insert(wort);
    }
    return alle;
}

bool istVokal(QChar c)
{
    static const QString vokale = u"aeiouyäöüàáâãåæèéêëìíîïòóôõøùúûýÿœąęěůő"_s;
    return vokale.contains(c.toLower());
}

QString ohneRand(const QString &wort)
{
    static const QRegularExpression rand(u"^[^\\p{L}\\p{N}]+|[^\\p{L}\\p{N}]+$"_s);
    return QString(wort).remove(rand);
}

/** Private use and replacement characters stand for letters that nobody knows; so do "(cid:12)". */
bool hatNamenlose(const QString &wort)
{
    return wort.contains(u"(cid:"_s) || std::any_of(wort.begin(), wort.end(), [](QChar c) {
               return c.category() == QChar::Other_PrivateUse || c == QChar::ReplacementCharacter || c.isNull();
           });
}

/** Digits with separators, also with a few letters before or behind: "1.234,56", "A-2201", "12.03.2024", "4711b". */
bool istZahl(const QString &wort)
{
    static const QRegularExpression muster(
        u"^\\p{Lu}{0,4}[-./ ]?[0-9][0-9.,:/+-]*\\p{L}{0,3}$|^\\p{Lu}{1,4}[-./][0-9.,:/-]+[-./]?\\p{L}{0,3}$"_s);
    return muster.match(wort).hasMatch();
}

/** Letters of one case, or with a capital at the beginning; a vowel; no letter thrice, no heap of consonants. */
bool istGesund(const QString &teil)
{
    static const QRegularExpression schreibung(u"^(?:\\p{Ll}+|\\p{Lu}+|\\p{Lu}\\p{Ll}+)$"_s);
    static const QRegularExpression haufen(u"(.)\\1\\1|[bcdfghjklmnpqrstvwxzß]{7}"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    static const QString fremde = u"ıſ"_s; // readings of a letter on its head
    if (!schreibung.match(teil).hasMatch() || haufen.match(teil).hasMatch())
        return false;
    if (std::any_of(teil.begin(), teil.end(), [](QChar c) { return fremde.contains(c); }))
        return false;
    return teil.size() <= kuerzestesWort || std::any_of(teil.begin(), teil.end(), istVokal);
}

/** Also with a number behind it, as in "Blatt2". */
bool istWort(const QString &wort)
{
    static const QRegularExpression fugen(u"[-.'’/&]"_s);
    static const QRegularExpression nummer(u"(?<=\\p{L}{3})[0-9]+$"_s);
    const QStringList teile = QString(wort).remove(nummer).split(fugen, Qt::SkipEmptyParts);
    return !teile.isEmpty() && std::all_of(teile.begin(), teile.end(), istGesund);
}
} // namespace

Sprachprobe::Sprachprobe(const QString &text, const QString &sprachen)
{
    static const QRegularExpression leerraum(u"\\s+"_s);
    const QSet<QString> haeufige = haeufigeVon(sprachen);
    m_kenntHaeufige = !haeufige.isEmpty();
    for (const QString &wort : text.normalized(QString::NormalizationForm_C).split(leerraum, Qt::SkipEmptyParts))
        wortZaehlen(wort, haeufige);
}

void Sprachprobe::wortZaehlen(const QString &roh, const QSet<QString> &haeufige)
{
    const QString wort = ohneRand(roh);
    if (hatNamenlose(roh)) {
        ++m_wirre;
        return;
    }
    if (wort.isEmpty())
        return;
    for (const QChar c : wort) {
        m_buchstaben += c.isLetter() ? 1 : 0;
        m_vokale += istVokal(c) ? 1 : 0;
    }
    const bool kenntMan = haeufige.contains(wort.toLower());
    m_haeufige += kenntMan ? 1 : 0;
    if (istZahl(wort))
        ++m_zahlen;
    else if (!istWort(wort))
        ++m_wirre;
    else if (kenntMan || wort.size() >= kuerzestesWort)
        ++m_worte;
}

bool Sprachprobe::istSprache() const
{
    const qsizetype alle = m_worte + m_wirre;
    if (m_wirre >= genugFuerWirres && 100 * m_wirre >= wirreInHundert * alle)
        return false;
    if (alle < genugWorte || m_haeufige > 0)
        return true;
    return !(m_kenntHaeufige && alle >= vieleWorte) && 100 * m_vokale >= vokaleInHundert * m_buchstaben;
}
} // namespace quillmar::regeln
