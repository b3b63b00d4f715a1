#pragma once

#include "testantwort.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>
#include <QThread>
#include <atomic>

class QTcpServer;

/** A request as it came in. Header names are in lower case. */
struct Testanfrage {
    QByteArray methode;
    QByteArray pfad; ///< with a query, as in the request line
    QHash<QByteArray, QByteArray> koepfe;
    QByteArray rumpf;
};

/**
 * An HTTP server on a free port of 127.0.0.1, in a thread of its own, that does exactly what a test scripts,
 * misbehaving included. One request per connection. A path without a script gets status 404 with an empty body.
 */
class Testserver
{
public:
    Testserver();
    ~Testserver();
    Testserver(const Testserver &) = delete;
    Testserver &operator=(const Testserver &) = delete;

    /** "http://127.0.0.1:port", without a slash at the end. */
    [[nodiscard]] QString adresse() const;
    [[nodiscard]] quint16 port() const { return m_port; }

    /** The answers to requests for @p pfad ("/api/tags"), in turn; the last one holds for all further requests. */
    void antworten(const QByteArray &pfad, const QList<Testantwort> &folge);
    void antworten(const QByteArray &pfad, const Testantwort &antwort) { antworten(pfad, QList{antwort}); }

    /** From now on no answer is held back; see Testantwort::gehalten(). */
    void loslassen() { m_losgelassen = true; }

    /** The requests so far, in the order in which they were complete. */
    [[nodiscard]] QList<Testanfrage> anfragen() const;

    /** Bytes handed to the network so far, over all connections. */
    [[nodiscard]] qint64 gesendet() const;

    /** Connections that were accepted so far, with or without a request. */
    [[nodiscard]] int verbindungen() const;
    /** Those of them that have not ended. */
    [[nodiscard]] int offene() const { return m_offene; }

private:
    friend class Testverbindung;
    [[nodiscard]] Testantwort naechste(const Testanfrage &anfrage);
    void dazu(qint64 bytes);
    void annehmen();

    mutable QMutex m_sperre;
    QHash<QByteArray, QList<Testantwort>> m_folgen;
    QList<Testanfrage> m_anfragen;
    qint64 m_gesendet = 0;
    int m_verbindungen = 0;
    std::atomic<bool> m_losgelassen = false;
    std::atomic<int> m_offene = 0;
    quint16 m_port = 0;
    QThread m_faden;
    QTcpServer *m_server = nullptr;
};
