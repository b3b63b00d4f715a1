#include "abbruch.h"
#include "curlbibliothek.h"
#include "http.h"
#include "sprache.h"

#include <algorithm>
#include <exception>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
using std::chrono::steady_clock;

namespace
{
constexpr size_t hoechstensKopf = 65536;
constexpr long lesestueck = 64L * 1024;

Fehler unverstaendlich() { return Fehler(Sprache::text(u"Die Antwort des Modellservers ist nicht lesbar"_s)); }

Fehler abgerissen() { return Fehler(Sprache::text(u"Die Verbindung zum Modellserver ist abgebrochen"_s)); }

Fehler zuSpaet() { return Fehler(Sprache::text(u"Der Modellserver antwortet nicht rechtzeitig"_s)); }

/** Keeps the time limit in view. */
class Uhr
{
public:
    explicit Uhr(std::chrono::milliseconds grenze) : m_grenze(grenze), m_schluss(steady_clock::now() + grenze) {}
    void vonVorn() { m_schluss = steady_clock::now() + m_grenze; }
    /** Milliseconds that are left, 0 when there are none. */
    [[nodiscard]] int rest() const
    {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(m_schluss - steady_clock::now());
        return int(std::clamp<std::chrono::milliseconds>(rest, 0ms, 1h).count());
    }

private:
    std::chrono::milliseconds m_grenze;
    steady_clock::time_point m_schluss;
};

/** One request and its answer. The library's failures become the sentences of Http. */
class Austausch
{
public:
    explicit Austausch(const Http::Anfrage &anfrage) : m_anfrage(anfrage), m_uhr(anfrage.zeitgrenze)
    {
        if (!m_griff || !m_griffe)
            throw std::bad_alloc();
        strecke();
        inhalt();
        empfang();
        m_curl.multiAddHandle(m_griffe.get(), m_griff.get());
    }
    ~Austausch() { m_curl.multiRemoveHandle(m_griffe.get(), m_griff.get()); }
    Austausch(const Austausch &) = delete;
    Austausch &operator=(const Austausch &) = delete;

    Http::Antwort fuehren()
    {
        const std::stop_callback wecker(m_anfrage.ende, [this] { m_curl.multiWakeup(m_griffe.get()); });
        int laufend = 1;
        while (m_curl.multiPerform(m_griffe.get(), &laufend) == CURLM_OK && laufend > 0) {
            if (m_anfrage.ende.stop_requested())
                throw Abbruch();
            if (m_uhr.rest() == 0)
                throw zuSpaet();
            m_curl.multiPoll(m_griffe.get(), nullptr, 0, m_uhr.rest(), nullptr);
        }
        ausgangPruefen();
        m_antwort.status = int(status());
        return std::move(m_antwort);
    }

private:
    [[nodiscard]] long angabe(CURLINFO was) const
    {
        long wert = 0;
        m_curl.easyGetinfo(m_griff.get(), was, &wert);
        return wert;
    }
    [[nodiscard]] long status() const { return angabe(CURLINFO_RESPONSE_CODE); }

    template <typename Wert>
    void setzen(CURLoption option, Wert wert)
    {
        m_curl.easySetopt(m_griff.get(), option, wert);
    }

    /** Straight to the server, and nowhere else. */
    void strecke()
    {
        const QByteArray rechner = m_anfrage.rechner.toUtf8();
        const QByteArray wo = m_anfrage.rechner.contains(u':') ? '[' + rechner + ']' : rechner;
        setzen(CURLOPT_URL, QByteArray("http://" + wo + ':' + QByteArray::number(m_anfrage.port) + '/').constData());
        setzen(CURLOPT_REQUEST_TARGET, m_anfrage.pfad.constData());
        setzen(CURLOPT_PROTOCOLS_STR, "http");
        setzen(CURLOPT_PROXY, "");
        setzen(CURLOPT_NOPROXY, "*");
        setzen(CURLOPT_FOLLOWLOCATION, 0L);
        setzen(CURLOPT_FRESH_CONNECT, 1L);
        setzen(CURLOPT_FORBID_REUSE, 1L);
        setzen(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
        setzen(CURLOPT_NOSIGNAL, 1L);
        // The clock of fuehren() is nearer: the library has a limit of its own for this part.
        setzen(CURLOPT_CONNECTTIMEOUT_MS, long((m_anfrage.zeitgrenze + 10s).count()));
    }

    void inhalt()
    {
        kopfzeile("Connection: close");
        kopfzeile("Expect:"); // sends a long question at once
        if (m_anfrage.methode == "POST") {
            kopfzeile("Content-Type: application/json");
            setzen(CURLOPT_POST, 1L);
            setzen(CURLOPT_POSTFIELDS, m_anfrage.koerper.constData());
            setzen(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_anfrage.koerper.size()));
        }
        setzen(CURLOPT_HTTPHEADER, m_koepfe.get());
    }

    void kopfzeile(const char *zeile)
    {
        if (curl_slist *mit = m_curl.slistAppend(m_koepfe.get(), zeile)) {
            static_cast<void>(m_koepfe.release());
            m_koepfe.reset(mit);
        }
    }

    void empfang()
    {
        setzen(CURLOPT_BUFFERSIZE, lesestueck);
        setzen(CURLOPT_HEADERDATA, this);
        setzen(CURLOPT_HEADERFUNCTION, &Austausch::kopfGekommen);
        setzen(CURLOPT_WRITEDATA, this);
        setzen(CURLOPT_WRITEFUNCTION, &Austausch::stueckGekommen);
    }

    /** Called by the library, through which no exception may pass: it is kept, and the exchange ends. */
    template <typename Arbeit>
    size_t gekommen(size_t laenge, Arbeit arbeit)
    {
        if (m_anfrage.grenzeGiltStille)
            m_uhr.vonVorn();
        try {
            arbeit();
        } catch (...) {
            m_gescheitert = std::current_exception();
            return 0;
        }
        return laenge;
    }

    static size_t kopfGekommen(char *bytes, size_t, size_t laenge, void *selbst)
    {
        auto *austausch = static_cast<Austausch *>(selbst);
        return austausch->gekommen(laenge, [&] { austausch->kopf(QByteArrayView(bytes, qsizetype(laenge))); });
    }

    static size_t stueckGekommen(char *bytes, size_t, size_t laenge, void *selbst)
    {
        auto *austausch = static_cast<Austausch *>(selbst);
        return austausch->gekommen(laenge, [&] { austausch->stueck(QByteArrayView(bytes, qsizetype(laenge))); });
    }

    void kopf(QByteArrayView zeile)
    {
        m_kopflaenge += size_t(zeile.size());
        if (m_kopflaenge > hoechstensKopf)
            throw unverstaendlich();
        // What comes before status 200 is an interim answer.
        m_kopfGanz = m_kopfGanz || (zeile.trimmed().isEmpty() && status() >= 200);
    }

    void stueck(QByteArrayView bytes)
    {
        if (m_anfrage.stueck)
            return m_anfrage.stueck(bytes);
        if (m_antwort.koerper.size() + bytes.size() > m_anfrage.hoechstens)
            throw Fehler(Sprache::text(u"Die Antwort des Modellservers ist zu lang"_s));
        m_antwort.koerper += bytes;
    }

    void ausgangPruefen() const
    {
        if (m_gescheitert)
            std::rethrow_exception(m_gescheitert);
        int uebrige = 0;
        const CURLMsg *nachricht = m_curl.multiInfoRead(m_griffe.get(), &uebrige);
        const CURLcode ausgang = nachricht ? nachricht->data.result : CURLE_RECV_ERROR;
        if (ausgang == CURLE_COULDNT_CONNECT)
            throw Http::Unerreichbar();
        if (ausgang == CURLE_OPERATION_TIMEDOUT)
            throw zuSpaet();
        if (ausgang != CURLE_OK && istUnverstaendlich(ausgang))
            throw unverstaendlich();
        // A header that breaks off counts as an answer for the library.
        if (ausgang != CURLE_OK || !m_kopfGanz)
            throw abgerissen();
    }

    [[nodiscard]] bool istUnverstaendlich(CURLcode ausgang) const
    {
        if (ausgang == CURLE_UNSUPPORTED_PROTOCOL || ausgang == CURLE_WEIRD_SERVER_REPLY)
            return true;
        // Chunks without a length count as a failure to receive, but the system knows of none.
        return ausgang == CURLE_RECV_ERROR && angabe(CURLINFO_OS_ERRNO) == 0;
    }

    const Http::Anfrage &m_anfrage;
    Uhr m_uhr;
    const Curlbibliothek &m_curl = Curlbibliothek::geladen();
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> m_koepfe{nullptr, m_curl.slistFreeAll};
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> m_griff{m_curl.easyInit(), m_curl.easyCleanup};
    std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)> m_griffe{m_curl.multiInit(), m_curl.multiCleanup};
    std::exception_ptr m_gescheitert;
    size_t m_kopflaenge = 0;
    bool m_kopfGanz = false;
    Http::Antwort m_antwort;
};
} // namespace

Http::Unerreichbar::Unerreichbar() : Fehler(Sprache::text(u"Der Modellserver ollama läuft nicht"_s)) {}

Http::Antwort Http::senden(const Anfrage &anfrage) { return Austausch(anfrage).fuehren(); }
} // namespace quillmar::analyse
