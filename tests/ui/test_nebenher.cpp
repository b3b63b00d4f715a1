#include "ausfuehrung.h"
#include "durchgang.h"
#include "fensterprobe.h"
#include "kleinespdf.h"
#include "meldestelle.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "programm.h"
#include "protokollbuch.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "testserver.h"
#include "zustand.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
/** What the model server says of every document. */
Testantwort vorschlag()
{
    const QJsonObject huelle = {{u"response"_s, u"{\"gegenueber\": \"Stadtwerke\"}"_s}, {u"done"_s, true}};
    return Testantwort::fest(200, QJsonDocument(huelle).toJson());
}

const QString laeuftSchon = u"Für diesen Katalog läuft schon eine Analyse"_s;
const QString durchgangLaeuft =
    u"Für diesen Katalog läuft gerade ein Durchgang. Ist er fertig oder angehalten, lässt sich die Sitzung zurückdrehen"_s;
const QString wirdZurueckgedreht =
    u"Gerade wird eine Sitzung dieses Katalogs zurückgedreht. Erst danach kann ein Durchgang beginnen"_s;
} // namespace

/** The window and the real console program at work in one catalogue. */
class TestNebenher : public Fensterprobe
{
    Q_OBJECT

    std::unique_ptr<Testserver> m_server;
    std::unique_ptr<Programm> m_konsole;

    void scannen(const QString &name) const
    {
        QFile datei(m_b->quelle(name));
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(Kleinespdf::mitTrailer("/Name (" + name.toUtf8() + ")"));
    }
    [[nodiscard]] bool gefragt() const
    {
        const auto anfragen = m_server->anfragen();
        return std::any_of(anfragen.begin(), anfragen.end(), [](const auto &a) { return a.pfad == "/api/generate"; });
    }
    /** A run of the console that has got as far as the model's answer, which does not come. */
    void konsoleFragtUndWartet()
    {
        m_server->antworten("/api/generate", Testantwort::gehalten(vorschlag()));
        m_konsole->starten({u"--analyse"_s});
        QTRY_VERIFY_WITH_TIMEOUT(gefragt(), 20'000);
    }
    void konsoleBeenden()
    {
        m_server->loslassen();
        QTRY_COMPARE_WITH_TIMEOUT(m_konsole->prozess().state(), QProcess::NotRunning, 20'000);
        QCOMPARE(m_konsole->prozess().exitCode(), 0);
    }
    /** Files all documents; the log of that is chosen. */
    void ablegen(int anzahl)
    {
        for (int n = 1; n <= anzahl; ++n) {
            QTRY_VERIFY(!m_z->pruefung()->ungesehen());
            m_z->ausfuehrung()->uebernehmen();
            QTRY_COMPARE(m_z->pruefung()->zaehlwerk().erledigt, n);
        }
        m_z->sitzungen()->protokollWaehlen(m_z->sitzungen()->laufendeDatei());
        QTRY_COMPARE(m_z->sitzungen()->protokollZeilen().size(), anzahl);
    }

private Q_SLOTS:
    void init()
    {
        Fensterprobe::init();
        m_server = std::make_unique<Testserver>();
        m_server->antworten("/api/tags", Testantwort::fest(200, R"({"models": [{"name": "klein"}]})"));
        m_server->antworten("/api/generate", vorschlag());
        qputenv("OLLAMA_HOST", m_server->adresse().toUtf8());
        m_konsole = std::make_unique<Programm>(qEnvironmentVariable("XDG_DATA_HOME"), m_server->port());
        m_b->profil.modell = u"klein"_s;
        m_b->profil.zweitmeinung = false;
    }
    void cleanup()
    {
        m_server->loslassen();
        m_konsole.reset();
        Fensterprobe::cleanup();
        m_server.reset();
    }

    // Nobody presses anything in the window: the proposals of the other program are there to be reviewed.
    void vorschlaegeDerKonsoleErscheinen()
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Pruefen);
        QCOMPARE(name(), QString());
        scannen(u"a.pdf"_s);
        scannen(u"b.pdf"_s);
        QCOMPARE(m_konsole->laufen({u"--analyse"_s}).status, 0);
        QTRY_COMPARE_WITH_TIMEOUT(name(), u"a.pdf"_s, 20'000);
        QCOMPARE(m_z->pruefung()->zaehlwerk().bereit, 2);
        QCOMPARE(teil<QLineEdit>("gegenueber")->text(), u"Stadtwerke"_s);
        scannen(u"c.pdf"_s);
        QCOMPARE(m_konsole->laufen({u"--analyse"_s}).status, 0);
        QTRY_COMPARE_WITH_TIMEOUT(m_z->pruefung()->zaehlwerk().bereit, 3, 20'000);
        QCOMPARE(name(), u"a.pdf"_s); // what is being looked at stays
    }

    void keinZweiterDurchgang()
    {
        oeffnen();
        scannen(u"a.pdf"_s);
        konsoleFragtUndWartet();
        m_z->durchgang()->durchgangStarten();
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        QCOMPARE(m_z->meldestelle()->hinweis(), laeuftSchon);
        Programm zweite(qEnvironmentVariable("XDG_DATA_HOME"), m_server->port());
        const auto ende = zweite.laufen({u"--analyse"_s});
        QCOMPARE(ende.status, 0);
        QVERIFY2(ende.meldungen.contains(laeuftSchon), qPrintable(ende.meldungen));
        konsoleBeenden();
        const auto fragen = m_server->anfragen();
        QCOMPARE(std::count_if(fragen.begin(), fragen.end(), [](const auto &a) { return a.pfad == "/api/generate"; }),
                 1);
        QTRY_COMPARE_WITH_TIMEOUT(m_z->pruefung()->zaehlwerk().bereit, 1, 20'000);
    }

    void keinRueckbauNebenDurchgang()
    {
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        m_z->setzeReiter(Reiter::Pruefen);
        ablegen(1);
        scannen(u"neu.pdf"_s);
        konsoleFragtUndWartet();
        m_z->sitzungen()->protokollZurueckdrehen();
        QTRY_VERIFY(!m_z->sitzungen()->rueckbauLaeuft());
        QCOMPARE(m_z->sitzungen()->rueckbauMeldung(), durchgangLaeuft);
        QCOMPARE(m_z->sitzungen()->rueckbauTon(), Meldestelle::Ton::Warnung);
        QVERIFY(!QFile::exists(m_b->quelle(u"a.pdf"_s)));
        konsoleBeenden();
        m_z->sitzungen()->protokollZurueckdrehen();
        QTRY_COMPARE(m_z->sitzungen()->rueckbauMeldung(), u"1 zurückgeholt"_s);
        QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
    }

    void keinDurchgangNebenRueckbau()
    {
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        oeffnen();
        m_z->setzeReiter(Reiter::Pruefen);
        ablegen(2);
        const auto db = m_z->profilwahl()->offenes()->db();
        const QString buch = m_z->sitzungen()->laufendeDatei();
        Programm::Ende ende;
        bool zweiterRueckbau = true;
        QString imFenster;
        const auto mittendrin = [&](qint64 fertig, qint64) {
            if (fertig != 1)
                return;
            ende = m_konsole->laufen({u"--analyse"_s});
            const auto anderer = Protokollbuch::zurueckdrehen(buch, db, [](qint64, qint64) {});
            zweiterRueckbau = anderer.verweigert != u"Eine Sitzung dieses Katalogs wird gerade schon zurückgedreht"_s;
            m_z->durchgang()->durchgangStarten();
            QTRY_VERIFY(!m_z->durchgang()->laeuft());
            imFenster = m_z->meldestelle()->hinweis();
        };
        QCOMPARE(Protokollbuch::zurueckdrehen(buch, db, mittendrin).zurueckgedreht, 2);
        QCOMPARE(ende.status, 0);
        QVERIFY2(ende.meldungen.contains(wirdZurueckgedreht), qPrintable(ende.meldungen));
        QCOMPARE(imFenster, wirdZurueckgedreht);
        QVERIFY(!zweiterRueckbau);
        const auto danach = m_konsole->laufen({u"--analyse"_s});
        QVERIFY2(!danach.meldungen.contains(wirdZurueckgedreht), qPrintable(danach.meldungen));
    }
};

QTEST_MAIN(TestNebenher)
#include "test_nebenher.moc"
