#include "angaben.h"

#include <QDate>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

QRegularExpression muster(const QString &text)
{
    return QRegularExpression(text, QRegularExpression::UseUnicodePropertiesOption |
                                        QRegularExpression::CaseInsensitiveOption);
}

int monatVon(const QString &wort)
{
    static const QStringList monate{u"januar"_s,    u"februar"_s, u"märz"_s,     u"april"_s,
                                    u"mai"_s,       u"juni"_s,    u"juli"_s,     u"august"_s,
                                    u"september"_s, u"oktober"_s, u"november"_s, u"dezember"_s};
    return static_cast<int>(monate.indexOf(wort.toLower())) + 1;
}

QString datumIn(const QString &zeile)
{
    static const QRegularExpression form =
        muster(uR"(\b(\d{1,2})\.\s?(?:(\d{1,2})\.|(\p{L}{3,9}))\s?((?:19|20)\d{2})\b)"_s);
    for (const QRegularExpressionMatch &fund : form.globalMatch(zeile)) {
        const int monat = fund.captured(2).isEmpty() ? monatVon(fund.captured(3)) : fund.captured(2).toInt();
        const QDate datum(fund.captured(4).toInt(), monat, fund.captured(1).toInt());
        if (datum.isValid())
            return datum.toString(Qt::ISODate);
    }
    return {};
}

/** "Datum: 1.2.2024", "Rechnungsdatum: ...", "Meißen, 1. Februar 2024". */
bool istDatumszeile(const QString &zeile)
{
    static const QRegularExpression form = muster(uR"(^(?:\p{L}*datum\s*:|\p{Lu}[\p{L} ]+,\s*(?:den\s+)?\d{1,2}\.))"_s);
    return form.match(zeile).hasMatch() && !datumIn(zeile).isEmpty();
}

/** Name, street and town on one line, as it stands above the address window; captures the name. */
const QRegularExpression &absenderzeile()
{
    static const QRegularExpression form = muster(uR"(^(\S.+?)(?:,| [^\p{L}\d\s]{1,2}) .*[^\p{L}\d].*\b\d{5} \p{L})"_s);
    return form;
}

bool istOrtszeile(const QString &zeile)
{
    static const QRegularExpression form = muster(uR"(^\d{5} \p{L}[\p{L} .-]+$)"_s);
    return form.match(zeile).hasMatch();
}

QString ohneRechtsform(const QString &name)
{
    static const QRegularExpression form =
        muster(uR"(\s+(?:GmbH(?: & Co\. ?KG)?|AG|KG|eG|OHG|GbR|UG|SE|e\. ?V\.|e\. ?K\.|a\. ?G\.)\s*$)"_s);
    return QString(name).remove(form).trimmed();
}

bool istEigen(const QString &name, const QStringList &eigene)
{
    for (const QString &eigener : eigene)
        if (name.contains(eigener, Qt::CaseInsensitive))
            return true;
    return false;
}

QString absender(const QStringList &zeilen)
{
    for (const QString &zeile : zeilen)
        if (const auto fund = absenderzeile().match(zeile); fund.hasMatch())
            return ohneRechtsform(fund.captured(1));
    for (const QString &zeile : zeilen)
        if (!zeile.isEmpty())
            return istDatumszeile(zeile) ? QString() : ohneRechtsform(zeile);
    return {};
}

/** First and last line of the address block; both -1 when there is none. */
std::pair<qsizetype, qsizetype> anschriftfeld(const QStringList &zeilen)
{
    for (qsizetype ende = 0; ende < zeilen.size(); ++ende) {
        if (!istOrtszeile(zeilen.at(ende)))
            continue;
        qsizetype anfang = ende;
        while (anfang > 0 && ende - anfang < 4 && !zeilen.at(anfang - 1).isEmpty() &&
               !absenderzeile().match(zeilen.at(anfang - 1)).hasMatch())
            --anfang;
        if (ende - anfang >= 2)
            return {anfang, ende};
    }
    return {-1, -1};
}

QString empfaenger(const QStringList &zeilen)
{
    static const QRegularExpression anrede = muster(uR"(^(?:Herrn?|Frau|Firma|An)\b\s*)"_s);
    const auto [anfang, ende] = anschriftfeld(zeilen);
    for (qsizetype i = anfang; i >= 0 && i < ende; ++i)
        if (const QString name = QString(zeilen.at(i)).remove(anrede); !name.isEmpty())
            return ohneRechtsform(name);
    return {};
}

QString benanntePartei(const QStringList &zeilen, const QStringList &eigene)
{
    static const QRegularExpression form =
        muster(uR"(^(?:Auftraggeber|Kund|Vermieter|Mieter|Käufer|Verkäufer|Vertragspartner)(?:in|e)?\s*:\s*(.+)$)"_s);
    for (const QString &zeile : zeilen)
        if (const auto fund = form.match(zeile); fund.hasMatch() && !istEigen(fund.captured(1), eigene))
            return ohneRechtsform(fund.captured(1));
    return {};
}

QString betreff(const QStringList &zeilen)
{
    static const QRegularExpression angabe = muster(uR"(^(?:\p{L}+(?:nummer|zeichen)\b|(?:Frau|Herrn|Firma)$))"_s);
    const auto [anfang, ende] = anschriftfeld(zeilen);
    for (qsizetype i = 1; i < zeilen.size(); ++i) {
        const QString &zeile = zeilen.at(i);
        const bool kopf =
            (i >= anfang && i <= ende) || absenderzeile().match(zeile).hasMatch() || angabe.match(zeile).hasMatch();
        if (!zeile.isEmpty() && !kopf && !istDatumszeile(zeile))
            return zeile.left(90).trimmed();
    }
    return {};
}

} // namespace

QString datumAus(const QStringList &zeilen)
{
    for (const QString &zeile : zeilen)
        if (istDatumszeile(zeile))
            return datumIn(zeile);
    for (const QString &zeile : zeilen)
        if (QString datum = datumIn(zeile); !datum.isEmpty())
            return datum;
    return {};
}

QString gegenueberAus(const QStringList &zeilen, const QStringList &eigene)
{
    QString name = absender(zeilen);
    if (!istEigen(name, eigene))
        return name;
    const QString anderer = empfaenger(zeilen);
    return anderer.isEmpty() || istEigen(anderer, eigene) ? name : anderer;
}

QString anderePartei(const QStringList &zeilen, const QStringList &eigene)
{
    const QString name = gegenueberAus(zeilen, eigene);
    return istEigen(name, eigene) ? benanntePartei(zeilen, eigene) : name;
}

QString titelAus(const QStringList &zeilen)
{
    static const QRegularExpression rechnung = muster(uR"(\bRechnung(?:snummer\s*:|\s+Nr\.)\s*(\S*\d\S*))"_s);
    static const QRegularExpression bescheid = muster(uR"(\b\p{L}+bescheid (?:19|20)\d{2}\b)"_s);
    const QString text = zeilen.join(u'\n');
    if (const auto fund = rechnung.match(text); fund.hasMatch())
        return u"Rechnung "_s + fund.captured(1);
    if (const auto fund = bescheid.match(text); fund.hasMatch())
        return fund.captured(0);
    return betreff(zeilen);
}

} // namespace vorfuehrung
