#include "skizze.h"

#include "sha256.h"
#include "text.h"

#include <QtEndian>
#include <algorithm>
#include <charconv>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
constexpr qsizetype worteJeRun = 5;
constexpr qsizetype kuerzesterSchluessel = 80;
constexpr qsizetype laengsterSchluessel = 1500;

bool gehoertZumVorigen(char32_t c) { return c >= 0x300 && (QChar::isMark(c) || c == 0x200C || c == 0x200D); }

/** Latin-1 and general punctuation: lower case goes letter by letter, and NFC has nothing to do. */
bool istEinfach(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() < 0x100 || (c.unicode() >= 0x2000 && c.unicode() < 0x20D0); });
}

char32_t klein(char32_t c)
{
    const bool gross = (c >= u'A' && c <= u'Z') || (c >= u'À' && c <= u'Þ' && c != u'×');
    return gross ? c + 0x20 : c;
}

/** The words of @p text joined with single blanks. */
QString worteVon(const QString &text)
{
    // Qt's lower case costs as much as all the digests of a text, so the usual text does without.
    const QString vorlage = istEinfach(text) ? text : nfc(text.toLower());
    // Every blank stands for at least one character that goes, so the words need no more room than the text.
    QString ergebnis(vorlage.size(), Qt::Uninitialized);
    QChar *const beginn = ergebnis.data();
    QChar *ziel = beginn;
    bool imWort = false;
    for (qsizetype i = 0; i < vorlage.size(); ++i) {
        const bool paar = vorlage.at(i).isHighSurrogate() && i + 1 < vorlage.size();
        const char32_t c =
            paar ? QChar::surrogateToUcs4(vorlage.at(i), vorlage.at(i + 1)) : klein(vorlage.at(i).unicode());
        const bool bleibt = QChar::isLetterOrNumber(c) || (imWort && gehoertZumVorigen(c));
        if (bleibt && !imWort && ziel != beginn)
            *ziel++ = u' ';
        if (bleibt)
            *ziel++ = paar ? vorlage.at(i) : QChar(char16_t(c));
        if (bleibt && paar)
            *ziel++ = vorlage.at(i + 1);
        imWort = bleibt;
        i += paar ? 1 : 0;
    }
    ergebnis.truncate(ziel - beginn);
    return ergebnis;
}

/** Positions in @p worte at which a word begins, and one behind the blank that would follow the last. */
QList<qsizetype> anfaenge(const QByteArray &worte)
{
    QList<qsizetype> stellen = {0};
    for (qsizetype i = 0; i < worte.size(); ++i) {
        if (worte.at(i) == ' ')
            stellen << i + 1;
    }
    stellen << worte.size() + 1;
    return stellen;
}

const char *hinterLeerraum(const char *stelle, const char *ende)
{
    return std::find_if_not(stelle, ende, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
}
} // namespace

Skizze::Skizze(const QString &text) : m_worte(worteVon(text)) {}

QStringList Skizze::normalisiert(const QString &text) { return worteVon(text).split(u' ', Qt::SkipEmptyParts); }

QString Skizze::textHash() const
{
    QString schluessel = m_worte;
    schluessel = ersteZeichen(schluessel.remove(u' '), laengsterSchluessel);
    if (zeichenAnzahl(schluessel) < kuerzesterSchluessel)
        return QString(u""_s);
    return Sha256::hex(Sha256().von(schluessel.toUtf8()));
}

QList<quint64> Skizze::werte(qsizetype k) const
{
    const QByteArray bytes = m_worte.toUtf8();
    const QList<qsizetype> worte = bytes.isEmpty() ? QList<qsizetype>() : anfaenge(bytes);
    QList<quint64> werte;
    werte.reserve(worte.size());
    Sha256 digest;
    for (qsizetype i = 0; i + worteJeRun < worte.size(); ++i) {
        const qsizetype laenge = worte.at(i + worteJeRun) - 1 - worte.at(i);
        const Sha256::Wert wert = digest.von(QByteArrayView(bytes).sliced(worte.at(i), laenge));
        werte << qFromBigEndian<quint64>(wert.data());
    }
    std::sort(werte.begin(), werte.end());
    werte.erase(std::unique(werte.begin(), werte.end()), werte.end());
    werte.resize(std::min(werte.size(), k));
    return werte;
}

QString Skizze::json(const QList<quint64> &werte)
{
    QString text = u"["_s;
    for (const quint64 wert : werte)
        text += QString::number(qint64(wert)) + u',';
    if (!werte.isEmpty())
        text.chop(1);
    return text + u']';
}

std::optional<QList<quint64>> Skizze::ausJson(const QString &json)
{
    const QByteArray bytes = json.trimmed().toLatin1();
    if (bytes.size() < 2 || bytes.front() != '[' || bytes.back() != ']')
        return std::nullopt;
    QList<quint64> werte;
    const char *const ende = bytes.constData() + bytes.size() - 1;
    const char *stelle = hinterLeerraum(bytes.constData() + 1, ende);
    if (stelle < ende)
        werte.reserve(umfang);
    for (bool weiter = stelle < ende; weiter;) {
        qint64 wert = 0;
        const auto [danach, fehler] = std::from_chars(stelle, ende, wert);
        stelle = hinterLeerraum(danach, ende);
        weiter = stelle < ende;
        if (fehler != std::errc() || (weiter && *stelle != ','))
            return std::nullopt;
        werte << quint64(wert);
        if (weiter)
            stelle = hinterLeerraum(stelle + 1, ende);
    }
    return werte;
}
} // namespace quillmar::analyse
