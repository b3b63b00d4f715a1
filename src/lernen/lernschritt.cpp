#include "lernschritt.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
QJsonValue wert(const std::optional<Eintrag> &e)
{
    if (!e)
        return QJsonValue::Null;
    return QJsonObject{{u"schluessel"_s, e->schluessel}, {u"anzeige"_s, e->anzeige},   {u"zweig"_s, e->ort.zweig},
                       {u"ablage"_s, e->ort.ablage},     {u"rubrik"_s, e->ort.rubrik}, {u"anzahl"_s, e->anzahl}};
}

QJsonValue wert(const std::optional<Gleichung> &g)
{
    if (!g)
        return QJsonValue::Null;
    return QJsonObject{{u"von"_s, g->von}, {u"nach"_s, g->nach}, {u"anzahl"_s, g->anzahl}};
}

std::optional<Eintrag> eintragAus(const QJsonValue &v)
{
    if (!v.isObject())
        return std::nullopt;
    return Eintrag{.schluessel = v[u"schluessel"_s].toString(),
                   .anzeige = v[u"anzeige"_s].toString(),
                   .ort = {.zweig = v[u"zweig"_s].toString(),
                           .ablage = v[u"ablage"_s].toString(),
                           .rubrik = v[u"rubrik"_s].toString()},
                   .anzahl = v[u"anzahl"_s].toInteger()};
}

std::optional<Gleichung> gleichungAus(const QJsonValue &v)
{
    if (!v.isObject())
        return std::nullopt;
    return Gleichung{
        .von = v[u"von"_s].toString(), .nach = v[u"nach"_s].toString(), .anzahl = v[u"anzahl"_s].toInteger()};
}
} // namespace

QByteArray Lernschritt::json() const
{
    QJsonObject o;
    if (zuordnung)
        o.insert(u"zuordnung"_s, QJsonObject{{u"vorher"_s, wert(zuordnung->vorher)},
                                             {u"nachher"_s, wert(std::optional(zuordnung->nachher))},
                                             {u"korrektur"_s, zuordnung->korrektur},
                                             {u"dokument"_s, zuordnung->dokument},
                                             {u"bestaetigungen"_s, zuordnung->bestaetigungen}});
    if (gleichsetzung)
        o.insert(u"gleichsetzung"_s, QJsonObject{{u"vorher"_s, wert(gleichsetzung->vorher)},
                                                 {u"nachher"_s, wert(std::optional(gleichsetzung->nachher))},
                                                 {u"gestrichen"_s, wert(gleichsetzung->gestrichen)}});
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

Lernschritt Lernschritt::aus(const QByteArray &json)
{
    const QJsonObject o = QJsonDocument::fromJson(json).object();
    Lernschritt schritt;
    const QJsonValue z = o[u"zuordnung"_s];
    if (const auto nachher = eintragAus(z[u"nachher"_s])) {
        schritt.zuordnung = Zuordnung{.vorher = eintragAus(z[u"vorher"_s]),
                                      .nachher = *nachher,
                                      .korrektur = z[u"korrektur"_s].toBool(),
                                      .dokument = z[u"dokument"_s].toInteger(),
                                      .bestaetigungen = z[u"bestaetigungen"_s].toInteger()};
    }
    const QJsonValue g = o[u"gleichsetzung"_s];
    if (const auto nachher = gleichungAus(g[u"nachher"_s]))
        schritt.gleichsetzung = Gleichsetzung{.vorher = gleichungAus(g[u"vorher"_s]),
                                              .nachher = *nachher,
                                              .gestrichen = gleichungAus(g[u"gestrichen"_s])};
    return schritt;
}
} // namespace quillmar::lernen
