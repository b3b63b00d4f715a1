#include "vorlagen.h"

#include "fehlschlag.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

void ortSetzen(Vorlage &vorlage, const QString &wert)
{
    const QStringList teile = wert.split(u" / "_s);
    vorlage.zweig = teile.value(0);
    vorlage.ablage = teile.value(1);
    vorlage.rubrik = teile.value(2);
}

void zustandSetzen(Vorlage &vorlage, const QString &wert)
{
    if (wert == u"leer")
        vorlage.machart = Machart::leer;
    else if (wert == u"beschädigt")
        vorlage.machart = Machart::beschaedigt;
    else if (wert == u"verschlüsselt")
        vorlage.machart = Machart::verschluesselt;
    else
        throw Fehlschlag(u"Unbekannter Zustand: "_s + wert);
}

void herkunftSetzen(Vorlage &vorlage, Machart machart, const QString &von)
{
    vorlage.machart = machart;
    vorlage.von = von;
}

/** Keys that describe the file; false when @p name is none of them. */
bool machartSetzen(Vorlage &vorlage, const QString &name, const QString &wert)
{
    if (name == u"bild") {
        vorlage.machart = Machart::bild;
        vorlage.lage.neigung = wert.toDouble();
    } else if (name == u"drehung") {
        vorlage.lage.drehung = wert.toInt();
    } else if (name == u"papier") {
        vorlage.lage.papier = wert.toDouble();
    } else if (name == u"flecken") {
        vorlage.lage.flecken = wert.toInt();
    } else if (name == u"textebene") {
        vorlage.ebeneVerschoben = wert == u"verschoben";
    } else if (name == u"zerlegt") {
        vorlage.zerlegt = wert == u"ja";
    } else if (name == u"kopie von") {
        herkunftSetzen(vorlage, Machart::kopie, wert);
    } else if (name == u"neu gespeichert von") {
        herkunftSetzen(vorlage, Machart::neuGespeichert, wert);
    } else if (name == u"zustand") {
        zustandSetzen(vorlage, wert);
    } else {
        return false;
    }
    return true;
}

void angabeSetzen(Vorlage &vorlage, const QString &zeile)
{
    const qsizetype trenner = zeile.indexOf(u": "_s);
    const QString name = zeile.left(trenner);
    const QString wert = trenner < 0 ? QString() : zeile.mid(trenner + 2);
    if (machartSetzen(vorlage, name, wert))
        return;
    if (name == u"ort")
        return ortSetzen(vorlage, wert);
    const QHash<QString, QString Vorlage::*> felder{
        {u"datum"_s, &Vorlage::datum},   {u"gegenüber"_s, &Vorlage::gegenueber},
        {u"titel"_s, &Vorlage::titel},   {u"ortquelle"_s, &Vorlage::ortQuelle},
        {u"fehler"_s, &Vorlage::fehler}, {u"ähnlich zu"_s, &Vorlage::aehnlichZu},
    };
    if (!felder.contains(name))
        throw Fehlschlag(u"Unbekannte Angabe: "_s + zeile);
    vorlage.*felder.value(name) = wert;
}

Vorlage vorlageLesen(const QString &abschnitt)
{
    QStringList zeilen = abschnitt.split(u'\n');
    Vorlage vorlage;
    vorlage.pfad = zeilen.takeFirst().trimmed();
    while (!zeilen.isEmpty() && zeilen.first() != u"---") {
        const QString zeile = zeilen.takeFirst();
        if (!zeile.isEmpty())
            angabeSetzen(vorlage, zeile);
    }
    const QString rumpf = zeilen.mid(1).join(u'\n').trimmed();
    if (!rumpf.isEmpty())
        for (const QString &seite : rumpf.split(u"\n>>>\n"_s))
            vorlage.seiten.append(seite.split(u'\n'));
    return vorlage;
}

} // namespace

QList<Vorlage> vorlagenLesen(const QString &text)
{
    QList<Vorlage> gelesen;
    for (const QString &abschnitt : (u'\n' + text).split(u"\n=== "_s).mid(1))
        gelesen.append(vorlageLesen(abschnitt));
    return gelesen;
}

QList<Vorlage> vorlagen()
{
    QList<Vorlage> alle;
    const QDir ordner(u":/vorfuehrung/dokumente"_s);
    for (const QString &name : ordner.entryList(QDir::Files, QDir::Name)) {
        QFile datei(ordner.filePath(name));
        if (!datei.open(QIODevice::ReadOnly))
            throw Fehlschlag(u"Vorlage fehlt: "_s + name);
        alle.append(vorlagenLesen(QString::fromUtf8(datei.readAll())));
    }
    std::ranges::sort(alle, {}, &Vorlage::pfad);
    return alle;
}

} // namespace vorfuehrung
