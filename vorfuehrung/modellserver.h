#pragma once

#include "http.h"

#include <QHash>
#include <QObject>
#include <QTcpServer>
#include <chrono>

class QTcpSocket;

namespace vorfuehrung
{

/**
 * Speaks the HTTP interface of a model server on 127.0.0.1 and answers by plain rules. It holds no language model and
 * needs the event loop of its thread.
 */
class Modellserver : public QObject
{
    Q_OBJECT

public:
    explicit Modellserver(const QString &modell, QObject *vater = nullptr);

    /** Listens on @p port, 0 for any free one. False when the port is taken. */
    [[nodiscard]] bool lauschen(quint16 port);

    /** So long every answer of the model takes; its thread waits meanwhile. */
    void setzeBedenkzeit(std::chrono::milliseconds zeit) { m_bedenkzeit = zeit; }

    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }

private:
    void annehmen();
    void lesen(QTcpSocket *leitung);
    void beantworten(QTcpSocket *leitung, const HttpAnfrage &anfrage);
    void auftrag(QTcpSocket *leitung, const HttpAnfrage &anfrage);
    void laden(QTcpSocket *leitung, bool fortlaufend);
    [[nodiscard]] QByteArray modellliste() const;
    [[nodiscard]] QByteArray antwort(const QString &prompt) const;

    QHash<QTcpSocket *, HttpLeser> m_leser; // above the server: its sockets still reach for it when they end with it
    QTcpServer m_server;
    QString m_modell;
    std::chrono::milliseconds m_bedenkzeit{};
};

} // namespace vorfuehrung
