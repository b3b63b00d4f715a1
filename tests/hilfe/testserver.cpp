#include "testserver.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <optional>
#include <sys/socket.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr qint64 vorrat = 1048576;

/** The request once @p puffer holds all of it, else none. */
std::optional<Testanfrage> anfrageAus(const QByteArray &puffer)
{
    const qsizetype ende = puffer.indexOf("\r\n\r\n");
    if (ende < 0)
        return std::nullopt;
    QList<QByteArray> zeilen = puffer.first(ende).split('\n');
    const QList<QByteArray> erste = zeilen.takeFirst().trimmed().split(' ');
    Testanfrage anfrage{erste.value(0), erste.value(1), {}, {}};
    for (const QByteArray &zeile : zeilen) {
        const qsizetype strich = zeile.indexOf(':');
        anfrage.koepfe.insert(zeile.first(std::max<qsizetype>(strich, 0)).toLower(), zeile.mid(strich + 1).trimmed());
    }
    const qsizetype laenge = anfrage.koepfe.value("content-length").toLongLong();
    anfrage.rumpf = puffer.mid(ende + 4, laenge);
    if (anfrage.rumpf.size() < laenge)
        return std::nullopt;
    return anfrage;
}
} // namespace

/** One connection: reads the request, then follows the script. Belongs to its socket. */
class Testverbindung : public QObject
{
public:
    Testverbindung(QTcpSocket *buchse, Testserver &server) : QObject(buchse), m_buchse(*buchse), m_server(server)
    {
        connect(buchse, &QTcpSocket::readyRead, this, [this] { lesen(); });
        connect(buchse, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) {
            m_server.dazu(bytes);
            weiter();
        });
        connect(buchse, &QTcpSocket::disconnected, buchse, [this, buchse] {
            --m_server.m_offene;
            buchse->deleteLater();
        });
    }

private:
    void lesen()
    {
        m_puffer += m_buchse.readAll();
        if (m_laeuft)
            return;
        if (const auto anfrage = anfrageAus(m_puffer)) {
            m_laeuft = true;
            m_schritte = m_server.naechste(*anfrage).schritte;
            weiter();
        }
    }

    void weiter()
    {
        while (m_laeuft && !m_wartet && !m_schritte.isEmpty()) {
            if (!schritt(m_schritte.first()))
                return;
        }
        if (m_laeuft && !m_wartet)
            m_buchse.disconnectFromHost();
    }

    /** False when the step has to wait for the network. */
    bool schritt(Testschritt &jetzt)
    {
        switch (jetzt.art) {
        case Testschritt::Art::Senden:
            return senden(jetzt);
        case Testschritt::Art::Warten:
            warten(jetzt.dauer);
            break;
        case Testschritt::Art::Halten:
            if (m_server.m_losgelassen)
                break;
            warten(5ms);
            return true;
        case Testschritt::Art::Schliessen:
            m_schritte.clear();
            return true;
        case Testschritt::Art::Zuruecksetzen:
            return zuruecksetzen();
        }
        m_schritte.removeFirst();
        return true;
    }

    bool senden(Testschritt &jetzt)
    {
        if (m_buchse.bytesToWrite() > vorrat)
            return false;
        if (jetzt.mal > 0)
            m_buchse.write(jetzt.bytes);
        if (--jetzt.mal <= 0)
            m_schritte.removeFirst();
        return true;
    }

    void warten(std::chrono::milliseconds dauer)
    {
        m_wartet = true;
        QTimer::singleShot(dauer, this, [this] {
            m_wartet = false;
            weiter();
        });
    }

    bool zuruecksetzen()
    {
        if (m_buchse.bytesToWrite() > 0)
            return false;
        const linger sofort{1, 0};
        ::setsockopt(int(m_buchse.socketDescriptor()), SOL_SOCKET, SO_LINGER, &sofort, sizeof sofort);
        m_laeuft = false;
        m_buchse.abort();
        return false;
    }

    QTcpSocket &m_buchse;
    Testserver &m_server;
    QByteArray m_puffer;
    QList<Testschritt> m_schritte;
    bool m_laeuft = false;
    bool m_wartet = false;
};

Testserver::Testserver()
{
    m_server = new QTcpServer;
    m_server->moveToThread(&m_faden);
    QObject::connect(&m_faden, &QThread::finished, m_server, &QObject::deleteLater);
    QObject::connect(m_server, &QTcpServer::newConnection, m_server, [this] { annehmen(); });
    m_faden.start();
    QMetaObject::invokeMethod(
        m_server,
        [this] {
            if (!m_server->listen(QHostAddress::LocalHost))
                qFatal("the test server cannot listen");
            m_port = m_server->serverPort();
        },
        Qt::BlockingQueuedConnection);
}

Testserver::~Testserver()
{
    m_faden.quit();
    m_faden.wait();
}

QString Testserver::adresse() const { return u"http://127.0.0.1:%1"_s.arg(m_port); }

void Testserver::annehmen()
{
    while (QTcpSocket *buchse = m_server->nextPendingConnection()) {
        const QMutexLocker halten(&m_sperre);
        ++m_verbindungen;
        ++m_offene;
        new Testverbindung(buchse, *this);
    }
}

void Testserver::antworten(const QByteArray &pfad, const QList<Testantwort> &folge)
{
    const QMutexLocker halten(&m_sperre);
    m_folgen[pfad] = folge;
}

Testantwort Testserver::naechste(const Testanfrage &anfrage)
{
    const QMutexLocker halten(&m_sperre);
    m_anfragen << anfrage;
    QList<Testantwort> &folge = m_folgen[anfrage.pfad];
    if (folge.isEmpty())
        return Testantwort::fest(404, {});
    return folge.size() > 1 ? folge.takeFirst() : folge.first();
}

QList<Testanfrage> Testserver::anfragen() const
{
    const QMutexLocker halten(&m_sperre);
    return m_anfragen;
}

void Testserver::dazu(qint64 bytes)
{
    const QMutexLocker halten(&m_sperre);
    m_gesendet += bytes;
}

qint64 Testserver::gesendet() const
{
    const QMutexLocker halten(&m_sperre);
    return m_gesendet;
}

int Testserver::verbindungen() const
{
    const QMutexLocker halten(&m_sperre);
    return m_verbindungen;
}
