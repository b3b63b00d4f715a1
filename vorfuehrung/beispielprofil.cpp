#include "beispielprofil.h"

#include "archiv.h"
#include "fehlschlag.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

QString modellDerVorfuehrung() { return u"vorfuehrung:regeln"_s; }

void profilSchreiben(const QString &datei, const QString &ordner, const QString &modell)
{
    const QString wurzel = QDir(ordner).absolutePath();
    const QString vorfuehrung = modellDerVorfuehrung();
    const bool echt = !modell.isEmpty() && modell != vorfuehrung;
    // Fields that are left out take their defaults; empty branches make the program read the filing tree.
    const QJsonObject profil{
        {u"id"_s, u"5E1B7A52-0C34-4D1E-9A77-3F20C6D84B11"_s},
        {u"name"_s, u"Vorführung"_s},
        {u"quelle"_s, quelleVon(wurzel)},
        {u"zielWurzel"_s, zielVon(wurzel)},
        {u"zweige"_s, QJsonArray()},
        {u"eigentuemer"_s, u"Anna Muster, Fotografin in Meißen"_s},
        {u"eigeneNamen"_s, QJsonArray{u"Anna Muster"_s, u"Muster Lichtbilder"_s}},
        {u"eigeneAnschriften"_s, QJsonArray{u"Lindenweg 7, 01662 Meißen"_s}},
        {u"modell"_s, echt ? modell : vorfuehrung},
        {u"modellGross"_s, echt ? QString() : vorfuehrung},
        {u"zweitmeinung"_s, !echt},
    };
    dateiSchreiben(datei, QJsonDocument(QJsonArray{profil}).toJson());
}

} // namespace vorfuehrung
