#pragma once

#include "fehler.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <chrono>
#include <functional>
#include <stop_token>

namespace quillmar::analyse
{
/**
 * One HTTP/1.1 request to a server on this computer, blocking. Asks no proxy, follows no redirect, sends nothing twice,
 * and keeps to a limit for the whole exchange. libcurl does the work.
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

/**
 * Throws Unerreichbar when nobody listens, another Fehler when no complete answer comes in time, or too long a one, and
 * Abbruch when it was to end. What @c stueck throws ends the exchange and comes out of it.
 */
Antwort senden(const Anfrage &anfrage);
} // namespace Http
} // namespace quillmar::analyse
