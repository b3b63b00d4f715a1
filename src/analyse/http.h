#pragma once

#include "fehler.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <chrono>
#include <functional>
#include <stop_token>

/**
 * One HTTP/1.1 request to a server on this computer, blocking. Asks no proxy, follows no redirect, sends nothing twice,
 * and keeps to a limit for the whole exchange, which the general network classes do not.
 */
namespace Http
{
struct Anfrage {
    QString rechner; ///< numerical loopback address
    quint16 port = 0;
    QByteArray methode = "GET";
    QByteArray pfad = "/";
    QByteArray koerper; ///< sent as application/json when not empty
    std::chrono::milliseconds zeitgrenze = std::chrono::seconds(60);
    bool grenzeGiltStille = false;              ///< the limit counts from the last byte received, not from the start
    qint64 hoechstens = 4LL * 1024 * 1024;      ///< bytes of the body; with a taker of pieces the cap is its own affair
    std::function<void(QByteArrayView)> stueck; ///< takes the body piece by piece instead of collecting it
    std::stop_token ende;
};

/** Nobody listens at the server's address. */
class Unerreichbar : public Fehler
{
public:
    Unerreichbar();
};

struct Antwort {
    int status = 0;
    QByteArray koerper;
};

/** Throws Unerreichbar when nobody listens, another Fehler when no complete answer comes in time, or too long a one. */
Antwort senden(const Anfrage &anfrage);

/** Takes an answer apart as its bytes come. Throws Fehler at what is no HTTP. */
class Leser
{
public:
    explicit Leser(std::function<void(QByteArrayView)> nehmen) : m_nehmen(std::move(nehmen)) {}
    void dazu(QByteArrayView bytes);
    /** The server has closed the connection: throws Fehler unless the answer is complete. */
    void schluss();
    [[nodiscard]] bool fertig() const { return m_lage == Lage::Fertig; }
    [[nodiscard]] bool hatKopf() const { return m_lage != Lage::Kopf; }
    [[nodiscard]] int status() const { return m_status; }

private:
    enum class Lage { Kopf, Laenge, BisEnde, StueckKopf, Stueck, StueckEnde, Nachspann, Fertig };
    bool schritt();
    bool kopf();
    void felder(const QByteArray &kopf);
    bool koerper(bool begrenzt);
    bool stueckKopf();
    bool zeile(QByteArray &ziel);

    std::function<void(QByteArrayView)> m_nehmen;
    Lage m_lage = Lage::Kopf;
    QByteArray m_puffer;
    qint64 m_rest = 0;
    int m_status = 0;
};
} // namespace Http
