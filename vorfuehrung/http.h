#pragma once

#include <QByteArray>
#include <optional>

namespace vorfuehrung
{

/** One request of a client. */
struct HttpAnfrage {
    QByteArray methode;
    QByteArray pfad; ///< without the part behind "?"
    QByteArray rumpf;
    bool offenLassen = true; ///< the connection may take another request
};

/**
 * Puts requests together from the bytes as they arrive. After an unreadable request nothing more is read; fehler() then
 * holds the status line to answer.
 */
class HttpLeser
{
public:
    void neu(const QByteArray &bytes) { m_puffer += bytes; }

    /** The next complete request, if there is one. */
    [[nodiscard]] std::optional<HttpAnfrage> naechste();

    /** True once for each request whose sender waits for "100 Continue" before it sends the body. */
    [[nodiscard]] bool wartetAufRumpf();

    [[nodiscard]] const QByteArray &fehler() const { return m_fehler; }

private:
    void kopfLesen();
    void kopfzeile(const QByteArray &name, const QByteArray &wert);

    QByteArray m_puffer;
    QByteArray m_fehler;
    std::optional<HttpAnfrage> m_offen; ///< head read, body not yet complete
    qsizetype m_laenge = 0;
    bool m_wartet = false;
};

} // namespace vorfuehrung
