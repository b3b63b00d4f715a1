#include "abbruch.h"
#include "fehler.h"
#include "ollama.h"
#include "testserver.h"

#include <QJsonDocument>
#include <QNetworkProxy>
#include <QTest>
#include <netinet/in.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;

namespace
{
constexpr qint64 hundertMb = 100'000'000;
const QString unlesbar = u"Antwort des Modells nicht lesbar"_s;
const QString abgerissen = u"Die Verbindung zum Modellserver ist abgebrochen"_s;
const QString zuSpaet = u"Der Modellserver antwortet nicht rechtzeitig"_s;
const QString laeuftNicht = u"Der Modellserver ollama läuft nicht"_s;
const QString zuLang = u"Die Antwort des Modellservers ist zu lang"_s;
const QString keinHttp = u"Die Antwort des Modellservers ist nicht lesbar"_s;

/** The body of a generation reply whose model said @p antwort. */
QByteArray rumpf(const QString &antwort)
{
    return QJsonDocument(QJsonObject{{u"model"_s, u"m"_s}, {u"response"_s, antwort}, {u"done"_s, true}}).toJson();
}

template <typename Arbeit>
QString fehlerVon(Arbeit arbeit)
{
    try {
        arbeit();
    } catch (const Fehler &f) {
        return f.text();
    }
    return {};
}

/** Listens without ever accepting, its queue full: a connection to it is neither made nor refused. */
class Verstopfter
{
public:
    Verstopfter()
    {
        sockaddr_in hier{};
        hier.sin_family = AF_INET;
        hier.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t laenge = sizeof hier;
        auto *adresse = reinterpret_cast<sockaddr *>(&hier);
        if (::bind(m_lauscher, adresse, laenge) != 0 || ::listen(m_lauscher, 0) != 0 ||
            ::getsockname(m_lauscher, adresse, &laenge) != 0)
            qFatal("cannot listen");
        for (const int griff : m_wartende)
            static_cast<void>(::connect(griff, adresse, laenge));
        m_port = ntohs(hier.sin_port);
    }
    ~Verstopfter()
    {
        for (const int griff : m_wartende)
            ::close(griff);
        ::close(m_lauscher);
    }
    Q_DISABLE_COPY_MOVE(Verstopfter)
    [[nodiscard]] quint16 port() const { return m_port; }

private:
    static int buchse(int art) { return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | art, 0); }
    int m_lauscher = buchse(0);
    std::array<int, 3> m_wartende = {buchse(SOCK_NONBLOCK), buchse(SOCK_NONBLOCK), buchse(SOCK_NONBLOCK)};
    quint16 m_port = 0;
};
} // namespace

class TestOllamaNetz : public QObject
{
    Q_OBJECT
    std::unique_ptr<Testserver> m_server;

    [[nodiscard]] Ollama ollama(const QByteArray &vorsatz = {}) const
    {
        return Ollama({.port = m_server->port(), .pfad = vorsatz});
    }

    [[nodiscard]] QString fragenScheitertMit(std::chrono::milliseconds zeitgrenze = 30s) const
    {
        return fehlerVon([&] { Q_UNUSED(ollama().fragen(u"m"_s, u"p"_s, zeitgrenze)); });
    }

    /** The progress texts of a pull. */
    [[nodiscard]] QStringList geladen(QString *fehler = nullptr) const
    {
        QStringList texte;
        const QString letzter = ollama().laden(u"m"_s, [&](const QString &text) { texte << text; });
        if (fehler)
            *fehler = letzter;
        return texte;
    }

private Q_SLOTS:
    void init() { m_server = std::make_unique<Testserver>(); }
    void cleanup()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::DefaultProxy);
        for (const char *name : {"http_proxy", "all_proxy"})
            qunsetenv(name);
    }

    void dieAnfrageAnDasModell()
    {
        m_server->antworten("/vor/api/generate", Testantwort::fest(200, rumpf(u"{\"datum\": \"2024-03-05\"}"_s)));
        const QString prompt = u"Zeile 1\n\"ä\" \u2028 \U0001F600\t"_s + QString(200000, u'x');
        const QJsonObject antwort = ollama("/vor").fragen(u"qwen3:4b"_s, prompt, 30s);
        QCOMPARE(antwort, (QJsonObject{{u"datum"_s, u"2024-03-05"_s}}));
        QCOMPARE(m_server->anfragen().size(), 1);
        const Testanfrage anfrage = m_server->anfragen().first();
        QCOMPARE(anfrage.methode, "POST");
        QCOMPARE(anfrage.koepfe.value("content-type"), "application/json");
        const QJsonObject erwartet{
            {u"model"_s, u"qwen3:4b"_s}, {u"prompt"_s, prompt},
            {u"stream"_s, false},        {u"format"_s, u"json"_s},
            {u"think"_s, false},         {u"options"_s, QJsonObject{{u"temperature"_s, 0}, {u"num_ctx"_s, 8192}}}};
        QCOMPARE(QJsonDocument::fromJson(anfrage.rumpf).object(), erwartet);
        QVERIFY(anfrage.rumpf.contains("\"temperature\":0,") || anfrage.rumpf.contains("\"temperature\":0}"));
    }

    void dieUebrigenAnfragen()
    {
        m_server->antworten("/api/pull", Testantwort::fest(200, "{\"status\":\"success\"}\n"));
        Q_UNUSED(ollama().erreichbar());
        Q_UNUSED(ollama().modelle());
        QCOMPARE(geladen(), QStringList{u"success"_s});
        const QList<Testanfrage> anfragen = m_server->anfragen();
        QCOMPARE(anfragen.size(), 3);
        for (const auto &[n, pfad] : {std::pair(0, "/api/version"), std::pair(1, "/api/tags")}) {
            QCOMPARE(anfragen.at(n).methode, "GET");
            QCOMPARE(anfragen.at(n).pfad, pfad);
            QVERIFY(!anfragen.at(n).koepfe.contains("content-type"));
            QVERIFY(anfragen.at(n).rumpf.isEmpty());
        }
        QCOMPARE(anfragen.at(2).methode, "POST");
        QCOMPARE(anfragen.at(2).pfad, "/api/pull");
        QCOMPARE(anfragen.at(2).koepfe.value("content-type"), "application/json");
        QCOMPARE(QJsonDocument::fromJson(anfragen.at(2).rumpf).object(),
                 (QJsonObject{{u"model"_s, u"m"_s}, {u"stream"_s, true}}));
    }

    void brauchbareAntworten_data()
    {
        QTest::addColumn<Testantwort>("antwort");
        const QByteArray gut = rumpf(u"{\"a\": \"ü\"}"_s);
        const qsizetype imZeichen = gut.indexOf("\xC3") + 1;
        const QList<QByteArray> zerlegt{gut.first(3), gut.sliced(3, imZeichen - 3), gut.sliced(imZeichen)};
        QTest::newRow("am Stück") << Testantwort::fest(200, gut);
        QTest::newRow("Status 500") << Testantwort::fest(500, gut);
        QTest::newRow("Status 404") << Testantwort::fest(404, gut);
        QTest::newRow("in Blöcken") << Testantwort::inStuecken(zerlegt, 5ms);
        QTest::newRow("bis zum Ende der Verbindung") << Testantwort::bisZumEnde(zerlegt, 5ms);
        QTest::newRow("Leerzeichen darum") << Testantwort::leerzeichen(1'000'000, {}, gut);
        QTest::newRow("mit Zwischenbescheid") << Testantwort{
            {{Testschritt::Art::Senden, "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: " +
                                            QByteArray::number(gut.size()) + "\r\n\r\n" + gut}}};
    }

    void brauchbareAntworten()
    {
        QFETCH(Testantwort, antwort);
        m_server->antworten("/api/generate", antwort);
        QCOMPARE(ollama().fragen(u"m"_s, u"p"_s, 30s), (QJsonObject{{u"a"_s, u"ü"_s}}));
    }

    void unbrauchbareAntworten_data()
    {
        QTest::addColumn<Testantwort>("antwort");
        QTest::addColumn<QString>("fehler");
        const QByteArray gut = rumpf(u"{\"a\": 1}"_s);
        QTest::newRow("keine") << Testantwort::keine() << abgerissen;
        QTest::newRow("zurückgesetzt") << Testantwort::zurueckgesetzt() << abgerissen;
        QTest::newRow("mittendrin zurückgesetzt")
            << Testantwort::zurueckgesetzt("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n{") << abgerissen;
        QTest::newRow("abgeschnitten") << Testantwort::abgeschnitten(gut, gut.size() - 1) << abgerissen;
        QTest::newRow("im Kopf zu Ende") << Testantwort{{{Testschritt::Art::Senden, "HTTP/1.1 200 OK\r\nCont"}}}
                                         << abgerissen;
        QTest::newRow("im Block zu Ende")
            << Testantwort{{{Testschritt::Art::Senden,
                             "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n{\"a\""}}}
            << abgerissen;
        QTest::newRow("ohne letzten Block")
            << Testantwort{{{Testschritt::Art::Senden,
                             "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n"}}}
            << abgerissen;
        QTest::newRow("kein HTTP") << Testantwort{{{Testschritt::Art::Senden, "<html>\r\n\r\n"}}} << keinHttp;
        const QString gekuerzt = u"Antwort des Modells abgeschnitten"_s;
        QTest::newRow("noch nicht zu Ende")
            << Testantwort::fest(200, QByteArray(gut).replace("true", "false")) << gekuerzt;
        QTest::newRow("am Ende des Platzes")
            << Testantwort::fest(200, QByteArray(gut).replace("true", "true, \"done_reason\": \"length\"")) << gekuerzt;
        QTest::newRow("Länge keine Zahl")
            << Testantwort{{{Testschritt::Art::Senden, "HTTP/1.1 200 OK\r\nContent-Length: viel\r\n\r\n{}"}}}
            << keinHttp;
        QTest::newRow("Blocklänge keine Zahl")
            << Testantwort{{{Testschritt::Art::Senden,
                             "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nviel\r\n{}\r\n"}}}
            << keinHttp;
        QTest::newRow("endloser Kopf") << Testantwort{{{Testschritt::Art::Senden, "HTTP/1.1 200 OK\r\n"},
                                                       {Testschritt::Art::Senden, "X-Weiter: immer weiter\r\n",
                                                        1'000'000}}}
                                       << keinHttp;
        QTest::newRow("HTML") << Testantwort::fest(502, "<html><body>{Bad} Gateway</body></html>") << unlesbar;
        QTest::newRow("leer") << Testantwort::fest(200, {}) << unlesbar;
        QTest::newRow("Liste") << Testantwort::fest(200, "[" + gut + "]") << unlesbar;
        QTest::newRow("ohne Antwort") << Testantwort::fest(200, "{\"done\": true}") << unlesbar;
        QTest::newRow("Antwort eine Zahl") << Testantwort::fest(200, "{\"response\": 5}") << unlesbar;
        QTest::newRow("Antwort ein Objekt") << Testantwort::fest(200, "{\"response\": {\"a\": 1}}") << unlesbar;
        QTest::newRow("kein UTF-8") << Testantwort::fest(200, "{\"response\": \"{\xC3}\"}") << unlesbar;
        QTest::newRow("zwei Antworten") << Testantwort::fest(200, gut + gut) << unlesbar;
        QTest::newRow("Fehler des Servers")
            << Testantwort::fest(404, R"({"error": "model 'm' not found"})") << u"model 'm' not found"_s;
    }

    void unbrauchbareAntworten()
    {
        QFETCH(Testantwort, antwort);
        m_server->antworten("/api/generate", antwort);
        QTEST(fragenScheitertMit(), "fehler");
        QCOMPARE(m_server->anfragen().size(), 1);
    }

    void stilleUeberDieGrenze_data()
    {
        QTest::addColumn<Testantwort>("antwort");
        const QByteArray kopf = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n";
        QTest::newRow("von Anfang an") << Testantwort::stumm(60s);
        QTest::newRow("mitten in der Antwort") << Testantwort::stumm(60s, kopf + "{");
        // Each byte comes in time, but the limit is one of the whole request.
        QTest::newRow("tropfenweise") << Testantwort::bisZumEnde(QList<QByteArray>(600, " "), 100ms);
    }

    void stilleUeberDieGrenze()
    {
        QFETCH(Testantwort, antwort);
        m_server->antworten("/api/generate", antwort);
        QCOMPARE(fragenScheitertMit(500ms), zuSpaet);
    }

    void hundertMegabyteLeerzeichen()
    {
        const auto antwort = Testantwort::leerzeichen(hundertMb, "{\"response\": \"{}\"", "}");
        for (const char *pfad : {"/api/generate", "/api/tags", "/api/pull", "/api/version"})
            m_server->antworten(pfad, antwort);
        QCOMPARE(fragenScheitertMit(), zuLang);
        QCOMPARE(ollama().modelle(), QStringList{});
        QCOMPARE(fehlerVon([&] { Q_UNUSED(geladen()); }), zuLang);
        // Given up long before the end, all three together.
        QVERIFY(m_server->gesendet() < hundertMb);
    }

    void dieErreichbarkeit_data()
    {
        QTest::addColumn<Testantwort>("antwort");
        QTest::addColumn<bool>("erreichbar");
        QTest::newRow("richtig") << Testantwort::fest(200, R"({"version": "0.12.0"})") << true;
        QTest::newRow("404") << Testantwort::fest(404, {}) << true;
        QTest::newRow("500") << Testantwort::fest(500, "kaputt") << true;
        QTest::newRow("fünf Megabyte") << Testantwort::leerzeichen(5'000'000) << true;
        QTest::newRow("Umleitung") << Testantwort::fest(302, {}, "Location: /anderswo\r\n") << true;
        QTest::newRow("keine Antwort") << Testantwort::keine() << false;
        QTest::newRow("zurückgesetzt") << Testantwort::zurueckgesetzt() << false;
        QTest::newRow("kein HTTP") << Testantwort{{{Testschritt::Art::Senden, "SSH-2.0-OpenSSH_9.2\r\n"}}} << false;
        QTest::newRow("stumm") << Testantwort::stumm(60s) << false;
    }

    void dieErreichbarkeit()
    {
        QFETCH(Testantwort, antwort);
        m_server->antworten("/api/version", antwort);
        QTEST(ollama().erreichbar(), "erreichbar");
    }

    void dieInstalliertenModelle_data()
    {
        QTest::addColumn<Testantwort>("antwort");
        QTest::addColumn<QStringList>("erwartet");
        QTest::newRow("zwei") << Testantwort::fest(
                                     200,
                                     R"({"models": [{"name": "qwen3:4b", "size": 5}, {"name": "a:latest"}], "x": 1})")
                              << QStringList{u"qwen3:4b"_s, u"a:latest"_s};
        QTest::newRow("keine") << Testantwort::fest(200, R"({"models": []})") << QStringList{};
        QTest::newRow("eines ohne Namen")
            << Testantwort::fest(200, R"({"models": [{"name": "a"}, {"model": "b"}]})") << QStringList{};
        QTest::newRow("Name eine Zahl") << Testantwort::fest(200, R"({"models": [{"name": 5}]})") << QStringList{};
        QTest::newRow("HTML") << Testantwort::fest(200, "<html>") << QStringList{};
        QTest::newRow("abgeschnitten") << Testantwort::abgeschnitten(R"({"models": [{"name": "a"}]} )", 27)
                                       << QStringList{};
        QTest::newRow("Fehler") << Testantwort::fest(500, R"({"error": "x"})") << QStringList{};
    }

    void dieInstalliertenModelle()
    {
        QFETCH(Testantwort, antwort);
        m_server->antworten("/api/tags", antwort);
        QTEST(ollama().modelle(), "erwartet");
    }

    void derFortschrittKommtZeileFuerZeile_data()
    {
        QTest::addColumn<QList<QByteArray>>("stuecke");
        const QByteArray eins = "{\"status\": \"größe\"}\n";
        const QByteArray zwei = "{\"status\": \"x\", \"total\": 4, \"completed\": 1}\n";
        QTest::newRow("ein Stück je Zeile") << QList{eins, zwei};
        QTest::newRow("beide in einem") << QList{eins + zwei};
        QTest::newRow("letzte ohne Zeilenende") << QList{eins + zwei.chopped(1)};
        QTest::newRow("mitten im Zeichen geteilt") << QList{eins.first(15), eins.sliced(15) + zwei};
        QTest::newRow("Unlesbares dazwischen") << QList<QByteArray>{eins, "kein JSON\n\n{}\n[1]\n", zwei};
        QList<QByteArray> einzeln;
        for (const char c : eins + zwei)
            einzeln << QByteArray(1, c);
        QTest::newRow("Byte für Byte") << einzeln;
    }

    void derFortschrittKommtZeileFuerZeile()
    {
        QFETCH(QList<QByteArray>, stuecke);
        const QStringList erwartet{u"größe"_s, u"x 25 Prozent"_s};
        for (const auto &antwort : {Testantwort::inStuecken(stuecke, 2ms), Testantwort::bisZumEnde(stuecke, 2ms)}) {
            m_server->antworten("/api/pull", antwort);
            QCOMPARE(geladen(), erwartet);
        }
    }

    void einGescheitertesLadenNenntSeinenGrund()
    {
        m_server->antworten("/api/pull", Testantwort::inStuecken({"{\"status\": \"pulling manifest\"}\n",
                                                                  "{\"error\": \"file does not exist\"}\n"}));
        QString fehler;
        QCOMPARE(geladen(&fehler), QStringList{u"pulling manifest"_s});
        QCOMPARE(fehler, u"file does not exist"_s);
        m_server->antworten("/api/pull", Testantwort::abgeschnitten("{\"status\": \"x\"}\n ", 16));
        QCOMPARE(fehlerVon([&] { Q_UNUSED(geladen()); }), abgerissen);
    }

    void niemandDa()
    {
        const Ollama toter = ollama();
        m_server.reset();
        QVERIFY(!toter.erreichbar());
        QCOMPARE(toter.modelle(), QStringList{});
        QCOMPARE(fehlerVon([&] { Q_UNUSED(toter.fragen(u"m"_s, u"p"_s, 30s)); }), laeuftNicht);
        QCOMPARE(fehlerVon([&] { toter.laden(u"m"_s, [](const QString &) {}); }), laeuftNicht);
    }

    // A server that is there but too busy to accept has until the limit.
    void einVerstopfterServer()
    {
        const Verstopfter server;
        const Ollama client({.port = server.port(), .pfad = {}});
        QCOMPARE(fehlerVon([&] { Q_UNUSED(client.fragen(u"m"_s, u"p"_s, 500ms)); }), zuSpaet);
    }

    void keineUmleitungUndKeinVermittler()
    {
        const Testserver fremder;
        QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, u"127.0.0.1"_s, fremder.port()});
        for (const char *name : {"http_proxy", "all_proxy"})
            qputenv(name, fremder.adresse().toUtf8());
        const QByteArray woanders = "Location: " + fremder.adresse().toUtf8() + "/api/generate\r\n";
        for (const int status : {301, 302, 307, 308}) {
            m_server->antworten("/api/generate", Testantwort::fest(status, {}, woanders));
            QCOMPARE(fragenScheitertMit(), unlesbar);
        }
        QCOMPARE(m_server->anfragen().size(), 4);
        QCOMPARE(fremder.verbindungen(), 0);
    }

    void einModellAnderswoWirdNichtGefragt()
    {
        for (const QString &modell : {u"gpt-oss:120b-cloud"_s, u"qwen3:Cloud"_s}) {
            const QString erwartet =
                u"Das Modell "_s + modell + u" rechnet nicht auf diesem Rechner und wird nicht benutzt"_s;
            QCOMPARE(fehlerVon([&] { Q_UNUSED(ollama().fragen(modell, u"p"_s, 1s)); }), erwartet);
            QCOMPARE(fehlerVon([&] { ollama().laden(modell, [](const QString &) {}); }), erwartet);
        }
        QCOMPARE(m_server->verbindungen(), 0);
    }

    // Only a server that cannot be asked keeps the text back; one that has nothing to say of the model does not.
    void unterWelchemNamenGefragtWird()
    {
        const auto name = [&](const Testantwort &liste, const QString &gesucht) {
            m_server->antworten("/api/tags", liste);
            try {
                return ollama().hiesiges(gesucht);
            } catch (const Fehler &f) {
                return u"! "_s + f.text();
            }
        };
        const auto liste =
            Testantwort::fest(200, R"({"models": [{"name": "qwen3:4b"}, {"name": "haus:v1", "remote_host": "x"}]})");
        QCOMPARE(name(liste, u"qwen3"_s), u"qwen3:4b"_s);
        QCOMPARE(name(liste, u"anderes"_s), u"anderes"_s);
        QCOMPARE(name(liste, u"haus"_s),
                 u"! Das Modell haus:v1 rechnet nicht auf diesem Rechner und wird nicht benutzt"_s);
        for (const auto &egal : {Testantwort::fest(404, {}), Testantwort::fest(200, {}), Testantwort::fest(500, "[]")})
            QCOMPARE(name(egal, u"haus"_s), u"haus"_s);
        QCOMPARE(name(Testantwort::keine(), u"haus"_s), u"! "_s + abgerissen);
    }

    void dasEndeDesProgrammsBrichtAb()
    {
        m_server->antworten("/api/generate", Testantwort::gehalten());
        m_server->antworten("/api/pull", Testantwort::gehalten());
        for (const bool laden : {false, true}) {
            std::stop_source ende;
            const qsizetype bisher = m_server->anfragen().size();
            const std::jthread halter([&] {
                while (m_server->anfragen().size() == bisher)
                    std::this_thread::sleep_for(5ms);
                ende.request_stop();
            });
            if (laden)
                QVERIFY_EXCEPTION_THROWN(ollama().laden(
                                             u"m"_s, [](const QString &) {}, ende.get_token()),
                                         Abbruch);
            else
                QVERIFY_EXCEPTION_THROWN(Q_UNUSED(ollama().fragen(u"m"_s, u"p"_s, 60s, ende.get_token())), Abbruch);
        }
    }
};

QTEST_GUILESS_MAIN(TestOllamaNetz)
#include "test_ollama_netz.moc"
