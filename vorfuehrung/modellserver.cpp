#include "modellserver.h"

#include "regeln.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpSocket>
#include <thread>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

QByteArray json(const QJsonObject &objekt) { return QJsonDocument(objekt).toJson(QJsonDocument::Compact); }

QByteArray fehlertext(const QString &text) { return json({{u"error"_s, text}}); }

void senden(QTcpSocket *leitung, const QByteArray &status, const QByteArray &rumpf)
{
    leitung->write("HTTP/1.1 " + status + "\r\nContent-Type: application/json; charset=utf-8\r\nContent-Length: " +
                   QByteArray::number(rumpf.size()) + "\r\n\r\n" + rumpf);
}

void stueckSenden(QTcpSocket *leitung, const QByteArray &stueck)
{
    leitung->write(QByteArray::number(stueck.size(), 16) + "\r\n" + stueck + "\r\n");
}

} // namespace

Modellserver::Modellserver(const QString &modell, QObject *vater) : QObject(vater), m_modell(modell)
{
    connect(&m_server, &QTcpServer::newConnection, this, &Modellserver::annehmen);
}

bool Modellserver::lauschen(quint16 port) { return m_server.listen(QHostAddress::LocalHost, port); }

void Modellserver::annehmen()
{
    while (QTcpSocket *leitung = m_server.nextPendingConnection()) {
        connect(leitung, &QTcpSocket::readyRead, this, [this, leitung] { lesen(leitung); });
        connect(leitung, &QTcpSocket::disconnected, this, [this, leitung] {
            m_leser.remove(leitung);
            leitung->deleteLater();
        });
    }
}

void Modellserver::lesen(QTcpSocket *leitung)
{
    HttpLeser &leser = m_leser[leitung];
    leser.neu(leitung->readAll());
    while (const std::optional<HttpAnfrage> anfrage = leser.naechste()) {
        beantworten(leitung, *anfrage);
        if (!anfrage->offenLassen)
            return leitung->disconnectFromHost();
    }
    if (leser.wartetAufRumpf())
        leitung->write("HTTP/1.1 100 Continue\r\n\r\n");
    if (leser.fehler().isEmpty())
        return;
    senden(leitung, leser.fehler(), fehlertext(u"unreadable request"_s));
    leitung->disconnectFromHost();
}

void Modellserver::beantworten(QTcpSocket *leitung, const HttpAnfrage &anfrage)
{
    const QByteArray weg = anfrage.methode + ' ' + anfrage.pfad;
    if (weg == "GET /api/version")
        senden(leitung, "200 OK", json({{u"version"_s, u"vorfuehrung " QUILLMAR_FASSUNG ""_s}}));
    else if (weg == "GET /api/tags")
        senden(leitung, "200 OK", modellliste());
    else if (weg == "POST /api/generate" || weg == "POST /api/pull")
        auftrag(leitung, anfrage);
    else
        senden(leitung, "404 Not Found", fehlertext(u"path not found"_s));
}

void Modellserver::auftrag(QTcpSocket *leitung, const HttpAnfrage &anfrage)
{
    const QJsonDocument dokument = QJsonDocument::fromJson(anfrage.rumpf);
    if (!dokument.isObject())
        return senden(leitung, "400 Bad Request", fehlertext(u"invalid JSON"_s));
    const QJsonObject auftrag = dokument.object();
    const QString modell = auftrag.value("model"_L1).toString();
    if (modell != m_modell)
        return senden(leitung, "404 Not Found", fehlertext(u"model '%1' not found"_s.arg(modell)));
    if (anfrage.pfad == "/api/pull")
        return laden(leitung, auftrag.value("stream"_L1).toBool(true));
    std::this_thread::sleep_for(m_bedenkzeit);
    senden(leitung, "200 OK", antwort(auftrag.value("prompt"_L1).toString()));
}

void Modellserver::laden(QTcpSocket *leitung, bool fortlaufend)
{
    const QByteArray ende = json({{u"status"_s, u"success"_s}});
    if (!fortlaufend)
        return senden(leitung, "200 OK", ende);
    leitung->write("HTTP/1.1 200 OK\r\nContent-Type: application/x-ndjson\r\nTransfer-Encoding: chunked\r\n\r\n");
    stueckSenden(leitung, json({{u"status"_s, u"pulling manifest"_s}}) + '\n');
    for (const int fertig : {0, 500, 1000, 2000})
        stueckSenden(leitung,
                     json({{u"status"_s, u"pulling regeln"_s}, {u"total"_s, 2000}, {u"completed"_s, fertig}}) + '\n');
    stueckSenden(leitung, ende + '\n');
    stueckSenden(leitung, {});
}

QByteArray Modellserver::modellliste() const
{
    const QJsonObject modell{{u"name"_s, m_modell}, {u"model"_s, m_modell}, {u"size"_s, 2000}};
    return json({{u"models"_s, QJsonArray{modell}}});
}

QByteArray Modellserver::antwort(const QString &prompt) const
{
    return json({{u"model"_s, m_modell},
                 {u"created_at"_s, QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
                 {u"response"_s, QString::fromUtf8(json(antwortAuf(prompt)))},
                 {u"done"_s, true},
                 {u"done_reason"_s, u"stop"_s}});
}

} // namespace vorfuehrung
