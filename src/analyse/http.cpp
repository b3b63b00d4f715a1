#include "http.h"

#include "abbruch.h"
#include "sprache.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace
{
constexpr qsizetype hoechstensKopf = 65536;
constexpr qint64 lesestueck = 64LL * 1024;
constexpr auto scheibe = 50ms;

Fehler unverstaendlich() { return Fehler(Sprache::text(u"Die Antwort des Modellservers ist nicht lesbar"_s)); }

Fehler abgerissen() { return Fehler(Sprache::text(u"Die Verbindung zum Modellserver ist abgebrochen"_s)); }

/** Keeps the time limit and the program's end in view while a socket is waited for. */
class Uhr
{
public:
    explicit Uhr(const Http::Anfrage &a) : m_anfrage(a), m_schluss(steady_clock::now() + a.zeitgrenze) {}
    void lebenszeichen()
    {
        if (m_anfrage.grenzeGiltStille)
            m_schluss = steady_clock::now() + m_anfrage.zeitgrenze;
    }
    void pruefen() const
    {
        if (m_anfrage.ende.stop_requested())
            throw Abbruch();
        if (steady_clock::now() >= m_schluss)
            throw Fehler(Sprache::text(u"Der Modellserver antwortet nicht rechtzeitig"_s));
    }
    /** Milliseconds that may be waited at once. */
    [[nodiscard]] int scheibe() const
    {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(m_schluss - steady_clock::now());
        return int(std::clamp(rest, 1ms, ::scheibe).count());
    }

private:
    const Http::Anfrage &m_anfrage;
    steady_clock::time_point m_schluss;
};

QByteArray kopfVon(const Http::Anfrage &a)
{
    const QByteArray rechner = a.rechner.contains(u':') ? '[' + a.rechner.toLatin1() + ']' : a.rechner.toLatin1();
    QByteArray kopf = a.methode + ' ' + a.pfad + " HTTP/1.1\r\nHost: " + rechner + ':' + QByteArray::number(a.port) +
                      "\r\nAccept: */*\r\nConnection: close\r\n";
    if (!a.koerper.isEmpty())
        kopf += "Content-Type: application/json\r\nContent-Length: " + QByteArray::number(a.koerper.size()) + "\r\n";
    return kopf + "\r\n";
}

void verbinden(QTcpSocket &leitung, const Http::Anfrage &a, const Uhr &uhr)
{
    leitung.setProxy(QNetworkProxy::NoProxy);
    for (;;) {
        leitung.connectToHost(QHostAddress(a.rechner), a.port);
        if (leitung.waitForConnected(uhr.scheibe()))
            return;
        // Waiting in vain gives the attempt up, so the next slice begins a new one: the server may just be busy.
        if (leitung.error() != QAbstractSocket::SocketTimeoutError)
            throw Http::Unerreichbar();
        uhr.pruefen();
    }
}

/** True when bytes have come, false when the server has closed the connection. */
bool warten(QTcpSocket &leitung, const Uhr &uhr)
{
    while (leitung.bytesAvailable() == 0) {
        uhr.pruefen();
        if (leitung.waitForReadyRead(uhr.scheibe()))
            continue;
        if (leitung.state() != QAbstractSocket::ConnectedState)
            return leitung.bytesAvailable() > 0;
    }
    return true;
}
} // namespace

Http::Unerreichbar::Unerreichbar() : Fehler(Sprache::text(u"Der Modellserver ollama läuft nicht"_s)) {}

Http::Antwort Http::senden(const Anfrage &anfrage)
{
    Uhr uhr(anfrage);
    QTcpSocket leitung;
    leitung.setReadBufferSize(lesestueck);
    verbinden(leitung, anfrage, uhr);
    leitung.write(kopfVon(anfrage) + anfrage.koerper);
    Antwort antwort;
    Leser leser([&](QByteArrayView bytes) {
        if (anfrage.stueck)
            anfrage.stueck(bytes);
        else if (antwort.koerper.size() + bytes.size() > anfrage.hoechstens)
            throw Fehler(Sprache::text(u"Die Antwort des Modellservers ist zu lang"_s));
        else
            antwort.koerper += bytes;
    });
    while (!leser.fertig()) {
        if (!warten(leitung, uhr)) {
            leser.schluss();
            break;
        }
        leser.dazu(leitung.read(lesestueck));
        uhr.lebenszeichen();
        uhr.pruefen();
    }
    antwort.status = leser.status();
    return antwort;
}

void Http::Leser::dazu(QByteArrayView bytes)
{
    m_puffer += bytes;
    while (!fertig() && schritt()) {}
}

void Http::Leser::schluss()
{
    if (m_lage == Lage::BisEnde)
        m_lage = Lage::Fertig;
    if (!fertig())
        throw abgerissen();
}

/** One step onward; false when more bytes are needed. */
bool Http::Leser::schritt()
{
    QByteArray rest;
    switch (m_lage) {
    case Lage::Kopf:
        return kopf();
    case Lage::Laenge:
        return koerper(true);
    case Lage::BisEnde:
        return koerper(false);
    case Lage::StueckKopf:
        return stueckKopf();
    case Lage::Stueck:
        return koerper(true);
    case Lage::StueckEnde:
        if (!zeile(rest))
            return false;
        m_lage = Lage::StueckKopf;
        return true;
    case Lage::Nachspann:
        if (!zeile(rest))
            return false;
        m_lage = rest.isEmpty() ? Lage::Fertig : Lage::Nachspann;
        return true;
    case Lage::Fertig:
        return false;
    }
    return false;
}

bool Http::Leser::kopf()
{
    const qsizetype ende = m_puffer.indexOf("\r\n\r\n");
    if (ende < 0) {
        if (m_puffer.size() > hoechstensKopf || !QByteArrayView("HTTP/").startsWith(m_puffer.left(5)))
            throw unverstaendlich();
        return false;
    }
    const QByteArray kopf = m_puffer.first(ende);
    m_puffer.remove(0, ende + 4);
    bool lesbar = false;
    m_status = kopf.mid(9, 3).toInt(&lesbar);
    if (!kopf.startsWith("HTTP/1.") || !lesbar)
        throw unverstaendlich();
    if (m_status >= 200) // what comes before is an interim answer
        felder(kopf);
    return true;
}

void Http::Leser::felder(const QByteArray &kopf)
{
    m_lage = m_status == 204 || m_status == 304 ? Lage::Fertig : Lage::BisEnde;
    for (const QByteArray &zeile : kopf.split('\n')) {
        const qsizetype punkt = zeile.indexOf(':');
        const QByteArray name = zeile.left(std::max<qsizetype>(punkt, 0)).trimmed().toLower();
        const QByteArray wert = zeile.mid(punkt + 1).trimmed().toLower();
        if (name == "transfer-encoding" && wert.contains("chunked")) {
            m_lage = Lage::StueckKopf;
            return;
        }
        if (name == "content-length" && m_lage == Lage::BisEnde) {
            bool lesbar = false;
            m_rest = wert.toLongLong(&lesbar);
            if (!lesbar || m_rest < 0)
                throw unverstaendlich();
            m_lage = m_rest == 0 ? Lage::Fertig : Lage::Laenge;
        }
    }
}

bool Http::Leser::koerper(bool begrenzt)
{
    const qint64 anzahl = begrenzt ? std::min<qint64>(m_rest, m_puffer.size()) : m_puffer.size();
    if (anzahl == 0)
        return false;
    m_nehmen(QByteArrayView(m_puffer).first(anzahl));
    m_puffer.remove(0, anzahl);
    m_rest -= begrenzt ? anzahl : 0;
    if (begrenzt && m_rest == 0)
        m_lage = m_lage == Lage::Stueck ? Lage::StueckEnde : Lage::Fertig;
    return true;
}

bool Http::Leser::stueckKopf()
{
    QByteArray kopf;
    if (!zeile(kopf))
        return false;
    bool lesbar = false;
    m_rest = kopf.left(kopf.indexOf(';') < 0 ? kopf.size() : kopf.indexOf(';')).trimmed().toLongLong(&lesbar, 16);
    if (!lesbar || m_rest < 0)
        throw unverstaendlich();
    m_lage = m_rest == 0 ? Lage::Nachspann : Lage::Stueck;
    return true;
}

/** Takes a line off the buffer. */
bool Http::Leser::zeile(QByteArray &ziel)
{
    const qsizetype ende = m_puffer.indexOf('\n');
    if (ende < 0) {
        if (m_puffer.size() > hoechstensKopf)
            throw unverstaendlich();
        return false;
    }
    ziel = m_puffer.first(ende).trimmed();
    m_puffer.remove(0, ende + 1);
    return true;
}
