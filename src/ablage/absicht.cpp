#include "absicht.h"

#include "datenbank.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
QJsonObject objektAus(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

QJsonObject werteJson(const Dokument &d)
{
    return {{u"datum"_s, d.datum},   {u"gegenueber"_s, d.gegenueber}, {u"titel"_s, d.titel}, {u"zweig"_s, d.zweig},
            {u"ablage"_s, d.ablage}, {u"rubrik"_s, d.rubrik},         {u"jahr"_s, d.jahr}};
}

Dokument werteAus(const QJsonObject &o, qint64 id)
{
    Dokument d;
    d.id = id;
    d.datum = o.value("datum"_L1).toString();
    d.gegenueber = o.value("gegenueber"_L1).toString();
    d.titel = o.value("titel"_L1).toString();
    d.zweig = o.value("zweig"_L1).toString();
    d.ablage = o.value("ablage"_L1).toString();
    d.rubrik = o.value("rubrik"_L1).toString();
    d.jahr = o.value("jahr"_L1).toString();
    return d;
}
} // namespace

QByteArray Absicht::json() const
{
    QJsonObject o = {{u"ruecknahme"_s, art == Art::Ruecknahme},
                     {u"vorgang"_s, vorgang},
                     {u"zeile"_s, zeile.objekt()},
                     {u"status"_s, status},
                     {u"protokoll"_s, protokollId},
                     {u"temporaer"_s, temporaer},
                     {u"groesse"_s, groesse},
                     {u"dateizeit"_s, QString::number(dateizeit)},
                     {u"vorher"_s, vorher},
                     {u"buch"_s, buch}};
    if (werte)
        o.insert(u"werte"_s, werteJson(*werte));
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

std::optional<Absicht> Absicht::aus(const QByteArray &text)
{
    const QJsonObject o = objektAus(text);
    auto zeile = Protokollzeile::aus(QJsonDocument(o.value("zeile"_L1).toObject()).toJson(QJsonDocument::Compact));
    if (!zeile || o.value("vorgang"_L1).toString().isEmpty())
        return std::nullopt;
    Absicht a;
    a.art = o.value("ruecknahme"_L1).toBool() ? Art::Ruecknahme : Art::Bewegung;
    a.vorgang = o.value("vorgang"_L1).toString();
    a.status = o.value("status"_L1).toString();
    a.protokollId = o.value("protokoll"_L1).toInteger();
    a.temporaer = o.value("temporaer"_L1).toString();
    a.groesse = o.value("groesse"_L1).toInteger();
    a.dateizeit = o.value("dateizeit"_L1).toString().toLongLong();
    a.vorher = o.value("vorher"_L1).toString();
    a.buch = o.value("buch"_L1).toString();
    if (o.contains("werte"_L1))
        a.werte = werteAus(o.value("werte"_L1).toObject(), zeile->dokument);
    a.zeile = std::move(*zeile);
    return a;
}

void Absicht::uebernehmen(const Dateibewegung::Schritt &schritt)
{
    // A movement turned back has a fixed target, which its line names already.
    if (art == Art::Bewegung)
        zeile.nach = schritt.nach;
    temporaer = schritt.temporaer;
    groesse = schritt.groesse;
    dateizeit = schritt.zeit;
}

QString absichtsdatei(const Datenbank &db) { return db.pfad() + u".absicht"_s; }
