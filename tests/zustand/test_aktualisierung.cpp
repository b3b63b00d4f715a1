#include "aktualisierung.h"

#include <QNetworkProxyFactory>
#include <QProcess>
#include <QSignalSpy>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::zustand;
using Art = Aktualisierung::Ergebnis::Art;

namespace
{
QByteArray antwort(const QByteArray &rumpf, const QByteArray &status = "200 OK", const QByteArray &koepfe = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(rumpf.size()) +
           "\r\nSet-Cookie: wer=du\r\nConnection: close\r\n" + koepfe + "\r\n" + rumpf;
}

QByteArray fassung(const QByteArray &nummer) { return "{\"version\": \"" + nummer + "\"}"; }

QByteArray gefuelltAuf(qsizetype laenge)
{
    const QByteArray kern = fassung("99.0");
    return kern + QByteArray(laenge - kern.size(), ' ');
}

/** Answers every request on a TLS (or, for a redirect, a plain) port with the same bytes; with none it says nothing. */
class Maker
{
public:
    explicit Maker(QTcpServer &server) : m_server(server)
    {
        if (!server.listen(QHostAddress::LocalHost))
            qFatal("no port");
        QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] {
            auto *leitung = m_server.nextPendingConnection();
            QObject::connect(leitung, &QTcpSocket::readyRead, leitung, [this, leitung] {
                m_eingang += leitung->readAll();
                if (!m_eingang.endsWith("\r\n\r\n"))
                    return;
                anfragen << std::exchange(m_eingang, {});
                if (antworten.isEmpty())
                    return;
                leitung->write(antworten.size() > 1 ? antworten.takeFirst() : antworten.first());
                leitung->disconnectFromHost();
            });
        });
    }
    [[nodiscard]] QByteArray adresse(const QByteArray &schema) const
    {
        return schema + "://127.0.0.1:" + QByteArray::number(m_server.serverPort()) + "/apps/quillmar/version.json";
    }

    QList<QByteArray> anfragen;
    QList<QByteArray> antworten;

private:
    QTcpServer &m_server;
    QByteArray m_eingang;
};
} // namespace

class TestAktualisierung : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_ordner;
    QSslCertificate m_zeugnis;
    QSslKey m_schluessel;

    [[nodiscard]] QSslConfiguration serverseite() const
    {
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setLocalCertificate(m_zeugnis);
        tls.setPrivateKey(m_schluessel);
        return tls;
    }
    [[nodiscard]] Aktualisierung::Quelle quelle(const Maker &maker, std::chrono::milliseconds frist = 5s) const
    {
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setCaCertificates({m_zeugnis});
        return {.datei = QUrl(QString::fromLatin1(maker.adresse("https"))), .tls = tls, .frist = frist};
    }

private Q_SLOTS:
    void initTestCase()
    {
        QNetworkProxyFactory::setUseSystemConfiguration(false);
        const QString schluessel = m_ordner.filePath(u"schluessel.pem"_s);
        const QString zeugnis = m_ordner.filePath(u"zeugnis.pem"_s);
        QProcess openssl;
        openssl.start(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-days"_s, u"2"_s,
                                     u"-subj"_s, u"/CN=127.0.0.1"_s, u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s,
                                     u"-keyout"_s, schluessel, u"-out"_s, zeugnis});
        QVERIFY2(openssl.waitForFinished() && openssl.exitCode() == 0, openssl.readAllStandardError().constData());
        m_zeugnis = QSslCertificate::fromPath(zeugnis).value(0);
        QFile datei(schluessel);
        QVERIFY(datei.open(QIODevice::ReadOnly));
        m_schluessel = QSslKey(&datei, QSsl::Rsa);
        QVERIFY(!m_zeugnis.isNull() && !m_schluessel.isNull());
    }

    void istNeuer_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("neuer");
        QTest::newRow("groesser") << u"2.0"_s << u"1.9.9"_s << true;
        QTest::newRow("als Zahl, nicht als Text") << u"1.10"_s << u"1.9"_s << true;
        QTest::newRow("gleich mit Null") << u"1.2"_s << u"1.2.0"_s << false;
        QTest::newRow("laenger") << u"1.2.1"_s << u"1.2"_s << true;
        QTest::newRow("aelter") << u"1.2"_s << u"1.2.1"_s << false;
        QTest::newRow("erste Stelle entscheidet") << u"1.9"_s << u"2.0"_s << false;
        QTest::newRow("Buchstaben dahinter") << u"2.10b"_s << u"2.9"_s << true;
        QTest::newRow("Buchstaben davor zaehlen null") << u"1.b9"_s << u"1.1"_s << false;
        QTest::newRow("leere Stuecke fallen weg") << u"1..3"_s << u"1.2"_s << true;
        QTest::newRow("leer") << QString() << u"0"_s << false;
        QTest::newRow("ohne eigene Fassung") << u"0.1"_s << u"0"_s << true;
        QTest::newRow("zu gross fuer eine Zahl") << u"99999999999999999999999"_s << u"1"_s << true;
    }
    void istNeuer()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(bool, neuer);
        QCOMPARE(Aktualisierung::istNeuer(a, b), neuer);
    }

    void pruefen_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<Art>("art");
        QTest::addColumn<QString>("nummer");
        const QString eigene = Aktualisierung::eigeneFassung();
        QTest::newRow("neuer") << antwort(fassung("99.1")) << Art::NeuereDa << u"99.1"_s;
        QTest::newRow("gleich") << antwort(fassung(eigene.toUtf8())) << Art::Aktuell << eigene;
        QTest::newRow("aelter") << antwort(fassung("0.0.1")) << Art::Aktuell << eigene;
        QTest::newRow("gerade noch") << antwort(gefuelltAuf(65536)) << Art::NeuereDa << u"99.0"_s;
        QTest::newRow("ein Byte zu viel") << antwort(gefuelltAuf(65537)) << Art::Fehlgeschlagen << QString();
        QTest::newRow("viel zu viel") << antwort(gefuelltAuf(5'000'000)) << Art::Fehlgeschlagen << QString();
        QTest::newRow("kein JSON") << antwort("<html>") << Art::Fehlgeschlagen << QString();
        QTest::newRow("kein Text") << antwort("{\"version\": 99}") << Art::Fehlgeschlagen << QString();
        QTest::newRow("zu lange Nummer") << antwort(fassung(QByteArray(41, '9'))) << Art::Fehlgeschlagen << QString();
        QTest::newRow("ohne Fassung") << antwort("{}") << Art::Fehlgeschlagen << QString();
        QTest::newRow("404") << antwort(fassung("99.1"), "404 Not Found") << Art::Fehlgeschlagen << QString();
        QTest::newRow("203") << antwort(fassung("99.1"), "203 Other") << Art::Fehlgeschlagen << QString();
        QTest::newRow("abgeschnitten") << antwort(fassung("99.1")).chopped(1) << Art::Fehlgeschlagen << QString();
        QTest::newRow("kein HTTP") << QByteArray("hallo\r\n\r\n") << Art::Fehlgeschlagen << QString();
    }
    void pruefen()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(Art, art);
        QFETCH(QString, nummer);
        QSslServer server;
        server.setSslConfiguration(serverseite());
        Maker maker(server);
        maker.antworten = {bytes};
        Aktualisierung a(quelle(maker), nullptr);
        QVERIFY(!a.ergebnis());
        a.pruefen();
        a.pruefen(); // pressed twice
        QVERIFY(a.laeuft());
        QTRY_VERIFY(!a.laeuft());
        if (bytes.startsWith("HTTP")) // Qt asks again where it gets no answer at all
            QCOMPARE(maker.anfragen.size(), 1);
        QCOMPARE(*a.ergebnis(), (Aktualisierung::Ergebnis{.art = art, .fassung = nummer}));
    }

    /** Nobody learns more than the version, at the second time no more than at the first. */
    void verraetNichts()
    {
        QSslServer server;
        server.setSslConfiguration(serverseite());
        Maker maker(server);
        maker.antworten = {antwort(fassung("99.1"))};
        Aktualisierung a(quelle(maker), nullptr);
        for (int n = 0; n < 2; ++n) {
            a.pruefen();
            QTRY_VERIFY(!a.laeuft());
        }
        QCOMPARE(maker.anfragen.size(), 2);
        QStringList koepfe = QString::fromLatin1(maker.anfragen.last()).split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(koepfe.takeFirst(), u"GET /apps/quillmar/version.json HTTP/1.1"_s);
        QStringList erwartet = {u"Host: 127.0.0.1:%1"_s.arg(server.serverPort()),
                                u"User-Agent: Quillmar/"_s + Aktualisierung::eigeneFassung(),
                                u"Accept-Language: *"_s,
                                u"Accept-Encoding: identity"_s,
                                u"Connection: Keep-Alive"_s,
                                u"Cache-Control: no-cache"_s,
                                u"Pragma: no-cache"_s};
        koepfe.sort();
        erwartet.sort();
        QCOMPARE(koepfe, erwartet);
    }

    void umleitung_data()
    {
        QTest::addColumn<QByteArray>("schema");
        QTest::addColumn<Art>("art");
        QTest::newRow("https") << QByteArray("https") << Art::NeuereDa;
        QTest::newRow("http") << QByteArray("http") << Art::Fehlgeschlagen;
    }
    void umleitung()
    {
        QFETCH(QByteArray, schema);
        QFETCH(Art, art);
        QSslServer server;
        server.setSslConfiguration(serverseite());
        Maker maker(server);
        QSslServer sicher;
        sicher.setSslConfiguration(serverseite());
        QTcpServer offen;
        Maker anderer(schema == "https" ? sicher : offen);
        anderer.antworten = {antwort(fassung("99.1"))};
        maker.antworten = {antwort({}, "302 Found", "Location: " + anderer.adresse(schema) + "\r\n")};
        Aktualisierung a(quelle(maker), nullptr);
        a.pruefen();
        QTRY_VERIFY(!a.laeuft());
        QCOMPARE(a.ergebnis()->art, art);
        QCOMPARE(anderer.anfragen.size(), schema == "https" ? 1 : 0);
    }

    /** A server that says nothing is not waited for; the next check is not spoilt by it. */
    void frist()
    {
        QSslServer server;
        server.setSslConfiguration(serverseite());
        Maker maker(server);
        Aktualisierung a(quelle(maker, 200ms), nullptr);
        a.pruefen();
        QTRY_VERIFY(!a.laeuft());
        QCOMPARE(a.ergebnis()->art, Art::Fehlgeschlagen);
        maker.antworten = {antwort(fassung("99.1"))};
        a.pruefen();
        QTRY_VERIFY(!a.laeuft());
        QCOMPARE(a.ergebnis()->art, Art::NeuereDa);
    }

    void fremdesZeugnis()
    {
        QSslServer server;
        server.setSslConfiguration(serverseite());
        Maker maker(server);
        maker.antworten = {antwort(fassung("99.1"))};
        Aktualisierung::Quelle ohne = quelle(maker);
        ohne.tls = QSslConfiguration::defaultConfiguration();
        Aktualisierung a(ohne, nullptr);
        a.pruefen();
        QTRY_VERIFY(!a.laeuft());
        QCOMPARE(a.ergebnis()->art, Art::Fehlgeschlagen);
        QVERIFY(maker.anfragen.isEmpty());
    }

    void ausgeschaltetAmAnfang()
    {
        Aktualisierung a;
        QVERIFY(!Aktualisierung::beimStartPruefen());
        a.beimStart();
        QVERIFY(!a.laeuft());
        QCOMPARE(Aktualisierung::manifest().scheme(), u"https"_s);
        QCOMPARE(Aktualisierung::manifest().path(), u"/apps/quillmar/version.json"_s);
        QCOMPARE(Aktualisierung::ladeseite().path(), u"/apps/quillmar/"_s);
    }
};

QTEST_GUILESS_MAIN(TestAktualisierung)
#include "test_aktualisierung.moc"
