#include "ausfuehrung.h"
#include "durchgang.h"
#include "kleinespdf.h"
#include "meldestelle.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "scanwache.h"
#include "sitzungen.h"
#include "testserver.h"
#include "vorrang.h"
#include "zustandsprobe.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/** New scans that are taken in by themselves, with real files and a clock of the test's own. */
class TestScanwache : public Zustandsprobe
{
    Q_OBJECT

    std::unique_ptr<Testserver> m_server;
    Neuzugang::Zeitpunkt m_jetzt{1h};
    std::unique_ptr<QSignalSpy> m_blicke;
    std::unique_ptr<QSignalSpy> m_begonnen;
    std::unique_ptr<QSignalSpy> m_verhindert;

    void serverStarten()
    {
        m_server = std::make_unique<Testserver>();
        m_server->antworten("/api/tags", Testantwort::fest(200, R"({"models": [{"name": "klein"}]})"));
        const QJsonObject huelle = {{u"response"_s, u"{\"gegenueber\": \"Stadtwerke\"}"_s}, {u"done"_s, true}};
        m_server->antworten("/api/generate", Testantwort::fest(200, QJsonDocument(huelle).toJson()));
        qputenv("OLLAMA_HOST", m_server->adresse().toUtf8());
    }
    void oeffnen(bool an = true)
    {
        m_b->profil.modell = u"klein"_s;
        beginnen();
        wache().setzeUhr([this] { return m_jetzt; });
        m_blicke = std::make_unique<QSignalSpy>(&wache(), &Scanwache::umgesehen);
        m_begonnen = std::make_unique<QSignalSpy>(m_z->durchgang(), &Durchgang::vonSelbstBegonnen);
        m_verhindert = std::make_unique<QSignalSpy>(m_z->durchgang(), &Durchgang::vonSelbstVerhindert);
        wache().setzeAn(an);
    }
    [[nodiscard]] Scanwache &wache() { return *m_z->scanwache(); }
    [[nodiscard]] qsizetype wartende() { return wache().stand().wartende; }
    /** A look that began after this was called has ended. */
    void umsehen()
    {
        for (int mal = 0; mal < 2; ++mal) { // one may be under way
            const auto vorher = m_blicke->size();
            QTRY_VERIFY((wache().schauen(), m_blicke->size() > vorher));
        }
    }
    /** So much later, and looked around. */
    void spaeter(std::chrono::seconds dauer)
    {
        m_jetzt += dauer;
        umsehen();
    }
    void scannen(const QString &name, const QByteArray &inhalt = {})
    {
        const QString pfad = m_b->quelle(name);
        QDir().mkpath(QFileInfo(pfad).path());
        QFile datei(pfad);
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(inhalt.isEmpty() ? Kleinespdf::mitTrailer("/Name (" + name.toUtf8() + ")") : inhalt);
    }
    [[nodiscard]] QStringList dokumente()
    {
        QStringList namen;
        for (const Zeile &zeile : m_b->db().abfragen(u"SELECT dateiname FROM dokumente ORDER BY dateiname"_s))
            namen << zeile.text(u"dateiname");
        return namen;
    }

private Q_SLOTS:
    void cleanup()
    {
        m_begonnen.reset();
        m_verhindert.reset();
        m_blicke.reset();
        Zustandsprobe::cleanup();
        m_server.reset();
        m_jetzt = Neuzugang::Zeitpunkt(1h);
    }

    void wasKommtWirdGelesen()
    {
        serverStarten();
        oeffnen();
        umsehen();
        QCOMPARE(wartende(), 0);
        scannen(u"a.pdf"_s);
        scannen(u"Post/b.PDF"_s);
        umsehen();
        QCOMPARE(wartende(), 2);
        spaeter(9s);
        QVERIFY(m_begonnen->isEmpty());
        m_jetzt += 1s;
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
        QCOMPARE(m_z->meldestelle()->hinweis(), u"2 neue Scans sind da und werden eingelesen"_s);
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Ruhig);
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        QCOMPARE(dokumente(), (QStringList{u"a.pdf"_s, u"b.PDF"_s}));
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().bereit, 2); // nobody has pressed anything
        QTRY_COMPARE(m_z->meldestelle()->hinweis(), u"2 neue Scans sind eingelesen"_s);
        spaeter(60s);
        QCOMPARE(wartende(), 0);
        scannen(u"a.pdf"_s, Kleinespdf::brav(2)); // the scanner uses the name again
        umsehen();
        QCOMPARE(wartende(), 1);
        QCOMPARE(m_begonnen->size(), 1);
    }

    // What a run would leave alone is no reason for one.
    void wasNichtZaehlt_data()
    {
        QTest::addColumn<QString>("datei");
        QTest::newRow("versteckt") << u".a.pdf"_s;
        QTest::newRow("in verstecktem Ordner") << u".neu/a.pdf"_s;
        QTest::newRow("kein PDF") << u"a.jpg"_s;
        QTest::newRow("noch beim Übertragen") << u"a.pdf.part"_s;
        QTest::newRow("ausgenommen") << u"Fotos/a.pdf"_s;
        QTest::newRow("Dubletten") << u"_Dubletten/a.pdf"_s;
        QTest::newRow("bekannt") << u"bekannt.pdf"_s;
    }
    void wasNichtZaehlt()
    {
        QFETCH(QString, datei);
        m_b->profil.ausnahmen = {u"Fotos"_s};
        m_b->dokument(u"bekannt.pdf"_s);
        oeffnen();
        scannen(datei, datei == u"bekannt.pdf"_s ? "%PDF-1.4 bekannt.pdf" : QByteArray());
        umsehen();
        QCOMPARE(wartende(), 0);
        scannen(u"b.pdf"_s);
        umsehen();
        QCOMPARE(wartende(), 1);
    }

    void ohneModellWirdGewartet()
    {
        oeffnen();
        scannen(u"a.pdf"_s);
        umsehen();
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_verhindert->size(), 1);
        QVERIFY(wache().stand().ohneModell);
        QVERIFY(m_z->meldestelle()->hinweis().endsWith(u"1 neuer Scan wartet: Der Modellserver ollama läuft nicht"_s));
        m_z->meldestelle()->melden(u"anderes"_s);
        wache().schauen();
        QTRY_COMPARE(m_verhindert->size(), 2);
        QCOMPARE(m_z->meldestelle()->hinweis(), u"anderes"_s); // once is enough
        QVERIFY(m_begonnen->isEmpty());
        serverStarten();
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
        QVERIFY(!wache().stand().ohneModell);
    }

    // Another program is at work in the catalogue: nothing is said, and nothing is lost.
    /** The folder goes when the run has been decided on, and comes back. */
    void derOrdnerIstEinmalWeg()
    {
        serverStarten();
        oeffnen();
        umsehen();
        scannen(u"a.pdf"_s);
        umsehen();
        const QString ordner = m_b->profil.quelle;
        connect(
            &wache(), &Scanwache::umgesehen, this, [ordner] { QVERIFY(QDir().rename(ordner, ordner + u".weg"_s)); },
            Qt::SingleShotConnection);
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        umsehen();
        QCOMPARE(wartende(), 0);
        QVERIFY(QDir().rename(ordner + u".weg"_s, ordner));
        umsehen();
        QCOMPARE(wartende(), 1);
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 2);
        QTRY_COMPARE(dokumente(), QStringList{u"a.pdf"_s});
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
    }

    void nebenAnderenProgrammenNicht()
    {
        serverStarten();
        oeffnen();
        const auto katalog = Katalog::oeffnen(Profilspeicher::katalogDatei(m_b->profil));
        auto vorrang = Vorrang::nehmen(*katalog, Vorrang::Art::Rueckbau);
        scannen(u"a.pdf"_s);
        umsehen();
        const QString vorher = m_z->meldestelle()->hinweis();
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_verhindert->size(), 1);
        QVERIFY(!wache().stand().ohneModell && !m_z->durchgang()->laeuft());
        QCOMPARE(m_z->meldestelle()->hinweis(), vorher);
        vorrang.reset();
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        QCOMPARE(dokumente(), QStringList{u"a.pdf"_s});
    }

    void waehrendEinesDurchgangsNicht()
    {
        serverStarten();
        m_server->antworten("/api/generate", Testantwort::gehalten());
        scannen(u"a.pdf"_s);
        oeffnen(false);
        m_z->durchgang()->durchgangStarten();
        QVERIFY(m_z->durchgang()->laeuft());
        wache().setzeAn(true);
        const auto vorher = m_blicke->size();
        wache().schauen();
        QCOMPARE(m_blicke->size(), vorher);
        QTRY_VERIFY(!m_server->anfragen().isEmpty());
        scannen(u"b.pdf"_s);
        m_z->durchgang()->durchgangAnhalten();
        m_server->loslassen();
        QTRY_COMPARE(wartende(), 1); // looked for by itself as soon as it was over
    }

    // A file that cannot be read starts no run again, whatever becomes of the first one.
    void gescheitertesBeginntNichtVonVorn_data()
    {
        QTest::addColumn<bool>("unlesbar");
        QTest::newRow("beschädigt") << false;
        QTest::newRow("ohne Leserecht") << true;
    }
    void gescheitertesBeginntNichtVonVorn()
    {
        QFETCH(bool, unlesbar);
        serverStarten();
        oeffnen();
        scannen(u"a.pdf"_s, "%PDF-1.4 sonst nichts");
        QVERIFY(!unlesbar || QFile(m_b->quelle(u"a.pdf"_s)).setPermissions({}));
        umsehen();
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        for (int mal = 0; mal < 3; ++mal)
            spaeter(60s);
        QCOMPARE(wartende(), 0);
        QCOMPARE(m_begonnen->size(), 1);
    }

    // Filing takes files away, an undo brings them back: neither is a scan.
    void eigeneBewegungenZaehlenNicht()
    {
        serverStarten();
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        oeffnen();
        for (const auto &bleibend : {u"b.pdf"_s, QString()}) {
            m_z->ausfuehrung()->uebernehmen();
            QTRY_COMPARE(name(), bleibend);
        }
        m_z->ausfuehrung()->rueckgaengig();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        umsehen();
        QCOMPARE(wartende(), 0);
        m_z->sitzungen()->protokollWaehlen(m_z->sitzungen()->laufendeDatei());
        QTRY_COMPARE(m_z->sitzungen()->protokollZeilen().size(), 2);
        m_b->sql(u"DELETE FROM protokoll"_s); // as on a computer whose catalogue knows nothing of it
        m_b->sql(u"DELETE FROM dokumente"_s);
        m_z->sitzungen()->protokollZurueckdrehen();
        QTRY_VERIFY(!m_z->sitzungen()->rueckbauLaeuft());
        QCOMPARE(m_z->sitzungen()->rueckbauBilanz().zurueckgedreht, 1);
        QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
        umsehen();
        spaeter(60s);
        QVERIFY(m_begonnen->isEmpty());
    }

    // The choice belongs to a profile, and to this computer: other programs find no key of it among the profiles.
    void jeProfilGemerkt()
    {
        oeffnen(false);
        QVERIFY(!wache().stand().an);
        wache().schauen();
        QVERIFY(m_blicke->isEmpty());
        wache().setzeAn(true);
        m_z->profilwahl()->neuesProfil();
        QTRY_COMPARE(m_z->profilwahl()->aktiv()->name, u"Ablage 2"_s);
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln());
        QVERIFY(!wache().stand().an);
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        QTRY_VERIFY(wache().stand().an);
        QTRY_COMPARE(Profilspeicher::laden().size(), 2);
        QFile liste(Profilspeicher::datei());
        QVERIFY(liste.open(QIODevice::ReadOnly) && !liste.readAll().contains("neueScans"));
        wache().setzeAn(false);
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen();
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln());
        QVERIFY(!wache().stand().an);
    }

    // A drive was away when somebody looked; once it is back nobody has to look again.
    void derOrdnerKommtZurueck()
    {
        serverStarten();
        oeffnen();
        const QString weg = m_b->profil.quelle + u"-weg"_s;
        QVERIFY(QDir().rename(m_b->profil.quelle, weg));
        m_z->profilwahl()->bereitschaftPruefen();
        QTRY_VERIFY(!m_z->profilwahl()->bereitZumStart());
        QVERIFY(QDir().rename(weg, m_b->profil.quelle));
        scannen(u"a.pdf"_s);
        umsehen();
        m_jetzt += 10s;
        wache().schauen();
        QTRY_COMPARE(m_begonnen->size(), 1);
    }

    // The system tells: also of a folder that was made while it was watching.
    void derOrdnerWirdBewacht()
    {
        QDir(m_b->profil.quelle).mkdir(u"Post"_s);
        oeffnen();
        umsehen();
        scannen(u"Post/a.pdf"_s);
        QTRY_COMPARE(wartende(), 1);
        QDir(m_b->profil.quelle).mkdir(u"Neu"_s);
        const auto vorher = m_blicke->size();
        QTRY_VERIFY(m_blicke->size() > vorher);
        scannen(u"Neu/b.pdf"_s);
        QTRY_COMPARE(wartende(), 2);
    }
};

QTEST_GUILESS_MAIN(TestScanwache)
#include "test_scanwache.moc"
