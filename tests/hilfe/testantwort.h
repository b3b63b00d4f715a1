#pragma once

#include <QByteArray>
#include <QList>
#include <chrono>

/** One thing that a Testserver does on a connection after it has read the request. */
struct Testschritt {
    enum class Art {
        Senden,
        Warten,
        Halten, ///< until Testserver::loslassen()
        Schliessen,
        Zuruecksetzen,
    };
    Art art = Art::Schliessen;
    QByteArray bytes = {};                ///< Senden: what goes out
    qint64 mal = 1;                       ///< Senden: how often
    std::chrono::milliseconds dauer = {}; ///< Warten: how long
};

/** The script of one answer. After its last step the connection is closed. */
struct Testantwort {
    QList<Testschritt> schritte;

    /** A whole answer with Content-Length. @p koepfe are further header lines, each ended by CR LF. */
    [[nodiscard]] static Testantwort fest(int status, const QByteArray &rumpf,
                                          const QByteArray &koepfe = "Content-Type: application/json\r\n");

    /** Status 200 and the body piece by piece as chunks, with a pause before each. */
    [[nodiscard]] static Testantwort inStuecken(const QList<QByteArray> &stuecke, std::chrono::milliseconds pause = {});

    /** Like inStuecken, but without length or chunks: the end of the connection ends the body. */
    [[nodiscard]] static Testantwort bisZumEnde(const QList<QByteArray> &stuecke, std::chrono::milliseconds pause = {});

    /** Announces the whole @p rumpf, sends its first @p bytes and closes. */
    [[nodiscard]] static Testantwort abgeschnitten(const QByteArray &rumpf, qsizetype bytes);

    /** @p menge blanks between @p davor and @p danach, in one body. */
    [[nodiscard]] static Testantwort leerzeichen(qint64 menge, const QByteArray &davor = {},
                                                 const QByteArray &danach = {});

    /** Closes without a word. */
    [[nodiscard]] static Testantwort keine();

    /** Resets the connection (RST), after sending @p vorher. */
    [[nodiscard]] static Testantwort zurueckgesetzt(const QByteArray &vorher = {});

    /** @p antwort, but not before Testserver::loslassen(). */
    [[nodiscard]] static Testantwort gehalten(Testantwort antwort = {});

    /** Says nothing for @p dauer after sending @p vorher, then closes. */
    [[nodiscard]] static Testantwort stumm(std::chrono::milliseconds dauer, const QByteArray &vorher = {});
};
