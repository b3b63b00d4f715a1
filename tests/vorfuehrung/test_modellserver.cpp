#include "modellserver.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto modell = "vorfuehrung:regeln";

QByteArray auftrag(const QString &name, const QString &prompt)
{
    return QJsonDocument(QJsonObject{{u"model"_s, name}, {u"prompt"_s, prompt}, {u"stream"_s, false}}).toJson();
}

} // namespace

class TestModellserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_server.lauschen(0)); }

    void fassungUndListe();
    void ladenMeldetFortschritt();
    void antwortIstEinJsonText();
    void unbekanntesModellFehlt();
    void unbekannterWegFehlt();
    void stueckweiseUndDoppelt();
    void unlesbareAnfrage_data();
    void unlesbareAnfrage();
    void belegterAnschluss();

private:
    struct Antwort {
        int status;
        QByteArray rumpf;
    };

    Antwort fragen(const QString &pfad, const QByteArray &rumpf = {});
    QByteArray roh(const QByteArrayList &stuecke, qsizetype antworten);

    vorfuehrung::Modellserver m_server{QString::fromLatin1(modell)};
    QNetworkAccessManager m_netz;
};

TestModellserver::Antwort TestModellserver::fragen(const QString &pfad, const QByteArray &rumpf)
{
    QNetworkRequest anfrage(QUrl(u"http://127.0.0.1:%1/%2"_s.arg(m_server.port()).arg(pfad)));
    anfrage.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    const std::unique_ptr<QNetworkReply> antwort(rumpf.isEmpty() ? m_netz.get(anfrage) : m_netz.post(anfrage, rumpf));
    if (!QTest::qWaitFor([&] { return antwort->isFinished(); }))
        return {-1, {}};
    return {antwort->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), antwort->readAll()};
}

/** What the server sends back until @p antworten status lines are there or it closes the line. */
QByteArray TestModellserver::roh(const QByteArrayList &stuecke, qsizetype antworten)
{
    QTcpSocket leitung;
    leitung.connectToHost(u"127.0.0.1"_s, m_server.port());
    QByteArray gelesen;
    connect(&leitung, &QTcpSocket::readyRead, &leitung, [&] { gelesen += leitung.readAll(); });
    for (const QByteArray &stueck : stuecke) {
        leitung.write(stueck);
        (void)QTest::qWaitFor(
            [&] { return leitung.state() == QTcpSocket::ConnectedState && leitung.bytesToWrite() == 0; });
    }
    (void)QTest::qWaitFor(
        [&] { return gelesen.count("HTTP/1.1 ") >= antworten || leitung.state() == QTcpSocket::UnconnectedState; });
    return gelesen;
}

void TestModellserver::fassungUndListe()
{
    const Antwort fassung = fragen(u"api/version"_s);
    QCOMPARE(fassung.status, 200);
    QVERIFY(QJsonDocument::fromJson(fassung.rumpf)["version"_L1].toString().contains(u"vorfuehrung"_s));
    const QJsonArray modelle = QJsonDocument::fromJson(fragen(u"api/tags"_s).rumpf)["models"_L1].toArray();
    QCOMPARE(modelle.size(), 1);
    QCOMPARE(modelle.at(0)["name"_L1].toString(), QString::fromLatin1(modell));
}

void TestModellserver::ladenMeldetFortschritt()
{
    const Antwort antwort = fragen(u"api/pull"_s, R"({"model":"vorfuehrung:regeln","stream":true})");
    QCOMPARE(antwort.status, 200);
    const QByteArrayList zeilen = antwort.rumpf.trimmed().split('\n');
    QVERIFY(zeilen.size() > 2);
    QCOMPARE(QJsonDocument::fromJson(zeilen.last())["status"_L1].toString(), u"success"_s);
    double bisher = -1;
    for (const QByteArray &zeile : zeilen.mid(1, zeilen.size() - 2)) {
        const double fertig = QJsonDocument::fromJson(zeile)["completed"_L1].toDouble(-1);
        QVERIFY(fertig > bisher);
        bisher = fertig;
    }
}

void TestModellserver::antwortIstEinJsonText()
{
    const QString prompt =
        u"also nicht Anna Muster.\n\nRubriken:\nHaus / Akten: Policen, Verträge\n\nAntworte\n\n"
        "Dokumenttext:\n\"\"\"\nFunkhaus Mobil GmbH\n\nLeipzig, 4. April 2023\nVertragsbestätigung M-2\n"
        "\n\"\"\""_s;
    const Antwort antwort = fragen(u"api/generate"_s, auftrag(QString::fromLatin1(modell), prompt));
    QCOMPARE(antwort.status, 200);
    const QJsonObject huelle = QJsonDocument::fromJson(antwort.rumpf).object();
    QVERIFY(huelle["done"_L1].toBool());
    const QJsonObject inhalt = QJsonDocument::fromJson(huelle["response"_L1].toString().toUtf8()).object();
    QVERIFY(inhalt["konfidenz"_L1].toDouble() >= 0.75);
    QCOMPARE(inhalt["datum"_L1].toString(), u"2023-04-04"_s);
    QCOMPARE(inhalt["gegenueber"_L1].toString(), u"Funkhaus Mobil"_s);
    QCOMPARE(inhalt["titel"_L1].toString(), u"Vertragsbestätigung M-2"_s);
    QCOMPARE(inhalt["rubrik"_L1].toString(), u"Verträge"_s);
    QCOMPARE(inhalt["zweig"_L1].toString(), u"Haus"_s);
}

void TestModellserver::unbekanntesModellFehlt()
{
    const Antwort antwort = fragen(u"api/generate"_s, auftrag(u"qwen3:4b"_s, u"Hallo"_s));
    QCOMPARE(antwort.status, 404);
    QCOMPARE(QJsonDocument::fromJson(antwort.rumpf)["error"_L1].toString(), u"model 'qwen3:4b' not found"_s);
}

void TestModellserver::unbekannterWegFehlt()
{
    QCOMPARE(fragen(u"api/embed"_s).status, 404);
    QCOMPARE(fragen(u"api/generate"_s).status, 404); // GET
    QCOMPARE(fragen(u"api/generate"_s, "[1, 2]").status, 400);
}

void TestModellserver::stueckweiseUndDoppelt()
{
    const QByteArray rumpf = auftrag(u"keins"_s, {});
    const QByteArray kopf =
        "POST /api/generate HTTP/1.1\r\nContent-Length: " + QByteArray::number(rumpf.size()) + "\r\n\r\n";
    const QByteArray zweite = "GET /api/version HTTP/1.1\r\n\r\n";
    const QByteArray antworten = roh({kopf.left(9), kopf.mid(9), rumpf.left(5), rumpf.mid(5) + zweite}, 2);
    QVERIFY(antworten.startsWith("HTTP/1.1 404"));
    QVERIFY(antworten.mid(9).contains("HTTP/1.1 200"));
}

void TestModellserver::unlesbareAnfrage_data()
{
    QTest::addColumn<QByteArray>("anfrage");
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("kein HTTP") << QByteArray("Hallo\r\n\r\n") << QByteArray("400");
    QTest::newRow("Länge keine Zahl") << QByteArray("POST /api/pull HTTP/1.1\r\nContent-Length: viel\r\n\r\n")
                                      << QByteArray("400");
    QTest::newRow("Länge negativ") << QByteArray("POST /api/pull HTTP/1.1\r\nContent-Length: -1\r\n\r\n")
                                   << QByteArray("400");
    QTest::newRow("zu groß") << QByteArray("POST /api/pull HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n")
                             << QByteArray("413");
    QTest::newRow("in Stücken") << QByteArray("POST /api/pull HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n")
                                << QByteArray("411");
    QTest::newRow("endloser Kopf") << QByteArray(70'000, 'x') << QByteArray("431");
}

void TestModellserver::unlesbareAnfrage()
{
    QFETCH(QByteArray, anfrage);
    QFETCH(QByteArray, status);
    const QByteArray antwort = roh({anfrage}, 1);
    QVERIFY2(antwort.startsWith("HTTP/1.1 " + status), antwort.constData());
    QCOMPARE(fragen(u"api/version"_s).status, 200); // others are still served
}

void TestModellserver::belegterAnschluss()
{
    vorfuehrung::Modellserver zweiter(QString::fromLatin1(modell));
    QVERIFY(!zweiter.lauschen(m_server.port()));
}

QTEST_GUILESS_MAIN(TestModellserver)
#include "test_modellserver.moc"
