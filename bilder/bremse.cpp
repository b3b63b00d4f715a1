#include "bremse.h"

#include <QTcpSocket>

Bremse::Bremse(quint16 dahinter, QObject *vater) : QTcpServer(vater), m_dahinter(dahinter)
{
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *leitung = nextPendingConnection()) {
            connect(leitung, &QTcpSocket::readyRead, this, [this, leitung] { lesen(leitung); });
            connect(leitung, &QTcpSocket::disconnected, this, [this, leitung] {
                m_wartende.removeAll(leitung);
                m_gegenstellen.remove(leitung);
                leitung->deleteLater();
            });
        }
    });
}

void Bremse::lesen(QTcpSocket *leitung)
{
    if (QTcpSocket *drueben = m_gegenstellen.value(leitung)) {
        drueben->write(leitung->readAll());
        return;
    }
    const QByteArray anfang = leitung->peek(64);
    if (!anfang.contains('\n') || m_wartende.contains(leitung))
        return;
    if (anfang.startsWith("POST /api/pull "))
        return ladenVorspielen(leitung);
    if (anfang.startsWith("POST /api/generate ") && m_rest != alle && m_rest-- <= 0) {
        m_rest = 0;
        m_wartende << leitung;
        return;
    }
    weitergeben(leitung);
}

void Bremse::weitergeben(QTcpSocket *leitung)
{
    auto *drueben = new QTcpSocket(leitung);
    m_gegenstellen.insert(leitung, drueben);
    connect(drueben, &QTcpSocket::readyRead, leitung, [leitung, drueben] { leitung->write(drueben->readAll()); });
    connect(drueben, &QTcpSocket::disconnected, leitung, &QTcpSocket::disconnectFromHost);
    drueben->connectToHost(QHostAddress::LocalHost, m_dahinter);
    drueben->write(leitung->readAll());
}

void Bremse::loslassen()
{
    m_rest = alle;
    const QList<QTcpSocket *> wartende = std::exchange(m_wartende, {});
    for (QTcpSocket *leitung : wartende)
        weitergeben(leitung);
}

/** A little more than a third of a model of usual size, and then no more. */
void Bremse::ladenVorspielen(QTcpSocket *leitung)
{
    leitung->readAll();
    leitung->write("HTTP/1.1 200 OK\r\nContent-Type: application/x-ndjson\r\n\r\n");
    for (const char *menge : {"0", "978413568"})
        leitung->write(QByteArray("{\"status\":\"pulling 3e4cb1417446\",\"total\":2497280480,\"completed\":") + menge +
                       "}\n");
}
