#include "vorlage.h"

#include "text.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
constexpr auto unicode = QRegularExpression::UseUnicodePropertiesOption;
constexpr QChar marke(u'\0');

QString ohneRaender(const QString &text, QStringView zeichen)
{
    qsizetype von = 0;
    qsizetype bis = text.size();
    while (von < bis && zeichen.contains(text.at(von)))
        ++von;
    while (bis > von && zeichen.contains(text.at(bis - 1)))
        --bis;
    return text.sliced(von, bis - von);
}

bool istVerboten(QChar c) { return c.category() == QChar::Other_Control || u"\\/:*?\"<>|"_s.contains(c); }

/** A joiner between two characters of a script or of pictures that needs it; between Latin letters nobody sees it. */
bool verbindet(const QList<uint> &zeichen, qsizetype stelle)
{
    constexpr uint hinterLatein = 0x600;
    const bool verbinder = zeichen.at(stelle) == 0x200C || zeichen.at(stelle) == 0x200D;
    return verbinder && stelle > 0 && stelle + 1 < zeichen.size() && zeichen.at(stelle - 1) >= hinterLatein &&
           zeichen.at(stelle + 1) >= hinterLatein && QChar::category(zeichen.at(stelle + 1)) != QChar::Other_Format;
}

/** Runs of forbidden characters and of white space become one blank. */
QString mitEinfachenLuecken(const QString &text)
{
    QString ergebnis;
    ergebnis.reserve(text.size());
    bool luecke = false;
    for (const QChar c : text) {
        luecke = luecke || c.isSpace() || istVerboten(c);
        if (c.isSpace() || istVerboten(c))
            continue;
        if (luecke)
            ergebnis += u' ';
        luecke = false;
        ergebnis += c;
    }
    return ergebnis;
}

/** What takes the place of the placeholder called @p wort: its value, or the mark of an empty one. */
QString fuellung(const Vorlage::Werte &werte, QStringView wort)
{
    const auto baustein = bausteinAus(wort);
    const QString wert = baustein ? werte.value(*baustein) : QString();
    return wert.isEmpty() ? QString(marke) : wert;
}
} // namespace

QString Vorlage::fuellen(const Werte &werte, const QString &vorlage)
{
    QString ergebnis;
    qsizetype stelle = 0;
    while (stelle < vorlage.size()) {
        const qsizetype auf = vorlage.indexOf(u'{', stelle);
        const qsizetype zu = auf < 0 ? -1 : vorlage.indexOf(u'}', auf);
        if (zu < 0) {
            ergebnis += QStringView(vorlage).mid(stelle);
            break;
        }
        ergebnis += QStringView(vorlage).mid(stelle, auf - stelle);
        ergebnis += fuellung(werte, QStringView(vorlage).mid(auf + 1, zu - auf - 1));
        stelle = zu + 1;
    }
    return aufraeumen(ergebnis);
}

QStringList Vorlage::ebenen(const QString &vorlage)
{
    QStringList liste = {QString()};
    for (qsizetype i = 0; i < vorlage.size(); ++i) {
        const qsizetype zu = vorlage.at(i) == u'{' ? vorlage.indexOf(u'}', i) : -1;
        if (zu > 0) {
            liste.last() += QStringView(vorlage).mid(i, zu - i + 1);
            i = zu;
        } else if (vorlage.at(i) == u'/') {
            liste << QString();
        } else {
            liste.last() += vorlage.at(i);
        }
    }
    return liste;
}

QString Vorlage::aufraeumen(const QString &text)
{
    static const QString trenner = u"\\s*[-–—/|_]\\s*"_s;
    static const QRegularExpression trennerMarke(trenner + u"\\x00"_s, unicode);
    static const QRegularExpression markeTrenner(u"\\x00"_s + trenner, unicode);
    static const QRegularExpression beidseits(trenner + u"\\x00"_s + trenner, unicode);
    static const QRegularExpression leerraum(u"\\s{2,}"_s, unicode);
    static const QRegularExpression striche(u"/{2,}"_s);
    QString ergebnis = text;
    if (ergebnis.contains(marke)) {
        // The separator before a mark goes first, so that a level between two separators drops out whole.
        ergebnis.remove(trennerMarke);
        ergebnis.remove(markeTrenner);
        ergebnis.replace(beidseits, u" - "_s);
        ergebnis.remove(marke);
    }
    ergebnis.replace(leerraum, u" "_s);
    ergebnis.replace(striche, u"/"_s);
    return ohneRaender(ergebnis, u" .-/");
}

QString Vorlage::ohneUnsichtbares(const QString &text)
{
    const QList<uint> zeichen = text.toUcs4();
    QString ergebnis;
    ergebnis.reserve(text.size());
    for (qsizetype i = 0; i < zeichen.size(); ++i) {
        if (QChar::category(zeichen.at(i)) != QChar::Other_Format || verbindet(zeichen, i))
            ergebnis += QStringView(QChar::fromUcs4(zeichen.at(i)));
    }
    return ergebnis;
}

QString Vorlage::saeubern(const QString &text, qsizetype grenze)
{
    const QString sauber = ohneRaender(mitEinfachenLuecken(ohneUnsichtbares(nfc(text))), u" .-");
    return ohneRaender(ersteZeichen(sauber, grenze), u" .-");
}
} // namespace quillmar::ablage
