#include "text.h"

#include <QTextBoundaryFinder>
#include <QVarLengthArray>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
// Below U+0300 every code unit is a user-perceived character of its own and already composed, CR LF apart.
bool istEinfach(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x300 && c != u'\r'; });
}

bool brauchtNfc(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x300; });
}

/** Collects the folded characters; see gefaltet(). */
class Falter
{
public:
    /** @p laenge is that of the text; "ß" becomes two letters, a blank stands for at least one character. */
    Falter(Faltung faltung, qsizetype laenge) : m_faltung(faltung), m_ergebnis(2 * laenge) {}

    void zeichen(char16_t c)
    {
        // The second letter of "ae", "oe", "ue" goes with the first.
        if (c == u'e' && (m_vorher == u'a' || m_vorher == u'o' || m_vorher == u'u')) {
            m_vorher = 0;
            return;
        }
        m_vorher = c;
        if ((c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || (c == u'/' && m_faltung == Faltung::Rubriken))
            anhaengen(c);
        else if ((c == u' ' || c == u'-') && m_faltung == Faltung::Namen)
            m_luecke = true;
    }

    [[nodiscard]] QString ergebnis() const { return QStringView(m_ergebnis.constData(), m_laenge).toString(); }

private:
    void anhaengen(char16_t c)
    {
        if (m_luecke && m_laenge > 0)
            m_ergebnis[m_laenge++] = u' ';
        m_luecke = false;
        m_ergebnis[m_laenge++] = c;
    }

    Faltung m_faltung;
    QVarLengthArray<char16_t, 256> m_ergebnis;
    qsizetype m_laenge = 0;
    char16_t m_vorher = 0;
    bool m_luecke = false;
};

char16_t klein(char16_t c)
{
    if (c < 0x80)
        return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c;
    // Its lower case is an i and a combining dot, which would fall away; the mapping by single characters has none.
    if (c == u'İ')
        return u'i';
    return char16_t(QChar::toLower(char32_t(c)));
}

/** Hands on the letter that @p c is without its marks; a sharp s is two. */
void falten(Falter &falter, char16_t c)
{
    switch (c) {
    case u'ä':
        return falter.zeichen(u'a');
    case u'ö':
        return falter.zeichen(u'o');
    case u'ü':
        return falter.zeichen(u'u');
    case u'ß':
        falter.zeichen(u's');
        return falter.zeichen(u's');
    default:
        return falter.zeichen(c);
    }
}
} // namespace

QString nfc(const QString &text) { return brauchtNfc(text) ? text.normalized(QString::NormalizationForm_C) : text; }

qsizetype zeichenAnzahl(const QString &text)
{
    if (istEinfach(text))
        return text.size();
    QTextBoundaryFinder grenzen(QTextBoundaryFinder::Grapheme, text);
    qsizetype anzahl = 0;
    while (grenzen.toNextBoundary() >= 0)
        ++anzahl;
    return anzahl;
}

QString ersteZeichen(const QString &text, qsizetype anzahl)
{
    if (text.size() <= anzahl)
        return text;
    if (anzahl <= 0)
        return {};
    // A cluster of the simple range may still be followed by a combining mark, hence the one unit more.
    if (istEinfach(QStringView(text).first(std::min(text.size(), anzahl + 1))))
        return text.first(anzahl);
    QTextBoundaryFinder grenzen(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype n = 0; n < anzahl; ++n) {
        if (grenzen.toNextBoundary() < 0)
            return text;
    }
    return text.first(grenzen.position());
}

qsizetype sichtbareZeichen(const QString &text)
{
    if (istEinfach(text))
        return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isSpace(); });
    QTextBoundaryFinder grenzen(QTextBoundaryFinder::Grapheme, text);
    qsizetype anzahl = 0;
    for (qsizetype von = 0, bis = grenzen.toNextBoundary(); bis >= 0; von = bis, bis = grenzen.toNextBoundary())
        anzahl += text.at(von).isSpace() ? 0 : 1;
    return anzahl;
}

QString gefaltet(const QString &text, Faltung faltung)
{
    const QString vorlage = brauchtNfc(text) ? nfc(text).toLower() : text;
    Falter falter(faltung, vorlage.size());
    for (const QChar zeichen : vorlage)
        falten(falter, klein(zeichen.unicode()));
    return falter.ergebnis();
}

QString suchform(const QString &text)
{
    QString zerlegt = text.normalized(QString::NormalizationForm_D);
    zerlegt.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return gefaltet(zerlegt, Faltung::Namen);
}

QString gefuellt(const QString &muster, std::initializer_list<QString> werte)
{
    QString ergebnis;
    qsizetype von = 0;
    for (const QString &wert : werte) {
        const qsizetype stelle = muster.indexOf("%@"_L1, von);
        if (stelle < 0)
            break;
        ergebnis += QStringView(muster).mid(von, stelle - von);
        ergebnis += wert;
        von = stelle + 2;
    }
    return ergebnis.append(QStringView(muster).mid(von));
}

QStringList zeilenAus(const QString &text)
{
    QStringList zeilen;
    for (const QString &zeile : text.split(u'\n')) {
        if (const QString sauber = zeile.trimmed(); !sauber.isEmpty())
            zeilen << sauber;
    }
    return zeilen;
}
} // namespace quillmar::grundlage
