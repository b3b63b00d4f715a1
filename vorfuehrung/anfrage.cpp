#include "anfrage.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

QStringList namenNach(const QString &kopf, const QString &muster)
{
    const QRegularExpressionMatch fund = QRegularExpression(muster).match(kopf);
    return fund.hasMatch() ? fund.captured(1).split(u", "_s, Qt::SkipEmptyParts) : QStringList();
}

void orteLesen(const QString &zeile, QList<Ort> &orte)
{
    const qsizetype schraegstrich = zeile.indexOf(u" / "_s);
    const qsizetype doppelpunkt = zeile.indexOf(u": "_s, schraegstrich + 3);
    if (schraegstrich < 0 || doppelpunkt < 0)
        return;
    const QString ablage = zeile.mid(schraegstrich + 3, doppelpunkt - schraegstrich - 3);
    for (const QString &rubrik : zeile.mid(doppelpunkt + 2).split(u", "_s, Qt::SkipEmptyParts))
        orte.append({zeile.left(schraegstrich), ablage, rubrik});
}

QStringList textzeilen(const QString &text)
{
    const qsizetype ende = text.lastIndexOf(u"\"\"\""_s);
    QStringList zeilen;
    for (const QString &zeile : text.left(ende).split(u'\n'))
        zeilen.append(zeile.simplified());
    return zeilen;
}

} // namespace

Anfrage anfrageLesen(const QString &prompt)
{
    const QString marke = u"Dokumenttext:\n\"\"\"\n"_s;
    const qsizetype anfang = prompt.indexOf(marke);
    const QString kopf = prompt.left(anfang);
    Anfrage anfrage;
    if (anfang >= 0)
        anfrage.zeilen = textzeilen(prompt.mid(anfang + marke.size()));
    anfrage.nachfrage = kopf.contains(u"die ANDERE Partei"_s);
    anfrage.eigene = anfrage.nachfrage ? namenNach(kopf, u"Der Eigentuemer dieser Ablage ist: (.+)\\.\n"_s)
                                       : namenNach(kopf, u", also nicht (.+)\\.\n"_s);
    const qsizetype rubriken = kopf.indexOf(u"\nRubriken:\n"_s);
    if (rubriken >= 0)
        for (const QString &zeile : kopf.mid(rubriken, kopf.indexOf(u"\nAntworte"_s) - rubriken).split(u'\n'))
            orteLesen(zeile, anfrage.orte);
    return anfrage;
}

} // namespace vorfuehrung
