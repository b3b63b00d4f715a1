#include "http.h"

#include <QList>
#include <utility>

namespace vorfuehrung
{

namespace
{

constexpr qsizetype hoechsterKopf = 64LL * 1024;
constexpr qsizetype hoechsterRumpf = 16LL * 1024 * 1024;

} // namespace

std::optional<HttpAnfrage> HttpLeser::naechste()
{
    if (!m_offen && m_fehler.isEmpty())
        kopfLesen();
    if (!m_offen || !m_fehler.isEmpty() || m_puffer.size() < m_laenge)
        return std::nullopt;
    HttpAnfrage fertig = *m_offen;
    fertig.rumpf = m_puffer.left(m_laenge);
    m_puffer.remove(0, m_laenge);
    m_offen.reset();
    return fertig;
}

bool HttpLeser::wartetAufRumpf() { return m_offen && m_puffer.isEmpty() && std::exchange(m_wartet, false); }

void HttpLeser::kopfLesen()
{
    const qsizetype ende = m_puffer.indexOf("\r\n\r\n");
    if (ende < 0) {
        if (m_puffer.size() > hoechsterKopf)
            m_fehler = "431 Request Header Fields Too Large";
        return;
    }
    QList<QByteArray> zeilen = m_puffer.left(ende).split('\n');
    m_puffer.remove(0, ende + 4);
    const QList<QByteArray> anfrage = zeilen.takeFirst().trimmed().split(' ');
    if (anfrage.size() != 3 || !anfrage.at(2).startsWith("HTTP/1.")) {
        m_fehler = "400 Bad Request";
        return;
    }
    m_laenge = 0;
    m_wartet = false;
    m_offen = HttpAnfrage{anfrage.at(0), anfrage.at(1).split('?').first(), {}, anfrage.at(2) != "HTTP/1.0"};
    for (const QByteArray &zeile : zeilen) {
        const qsizetype trenner = zeile.indexOf(':');
        kopfzeile(zeile.left(trenner).toLower(), zeile.mid(trenner + 1).trimmed());
    }
}

void HttpLeser::kopfzeile(const QByteArray &name, const QByteArray &wert)
{
    if (name == "content-length") {
        bool lesbar = false;
        m_laenge = wert.toLongLong(&lesbar);
        if (!lesbar || m_laenge < 0)
            m_fehler = "400 Bad Request";
        else if (m_laenge > hoechsterRumpf)
            m_fehler = "413 Content Too Large";
    } else if (name == "transfer-encoding") {
        m_fehler = "411 Length Required";
    } else if (name == "connection") {
        m_offen->offenLassen = wert.toLower() != "close" && (m_offen->offenLassen || wert.toLower() == "keep-alive");
    } else if (name == "expect") {
        m_wartet = wert.toLower() == "100-continue";
    }
}

} // namespace vorfuehrung
