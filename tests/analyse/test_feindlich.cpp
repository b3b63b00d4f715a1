#include "datenbank.h"
#include "feindlichepdfs.h"
#include "lauf.h"
#include "textleser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;

/** PDF files that mean harm, through the stage "Text lesen" with the real tools. */
class TestFeindlich : public QObject
{
    Q_OBJECT
    const QTemporaryDir m_ordner;
    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    QStringList m_genannte; ///< the documents in hand, in order

    void lesen()
    {
        Lauf lauf(
            m_db, m_profil, [] { return false; }, {},
            [this](const Laufstand &stand) {
                if (!stand.dokument.isEmpty())
                    m_genannte << stand.dokument;
            });
        Lesegrenzen grenzen;
        grenzen.rechenzeit = 2s;
        Textleser::textLesen(lauf, grenzen);
    }

    [[nodiscard]] Zeile zeile(const QString &name) const
    {
        return m_db
            ->abfragen(
                u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id WHERE dateiname=?"_s,
                {name})
            .first();
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_db = std::make_shared<Datenbank>(m_ordner.filePath(u"k.db"_s));
        m_profil.quelle = m_ordner.filePath(u"scans"_s);
        m_profil.seiten = 1;
        QVERIFY(QDir().mkdir(m_profil.quelle));
        for (const FeindlichePdfs::Fall &fall : FeindlichePdfs::alle()) {
            QVERIFY2(fall.bytes.size() < 300 * 1024, fall.name.constData());
            const QString name = QString::fromUtf8(fall.name) + u".pdf"_s;
            const QString pfad = m_profil.quelle + u'/' + name;
            QFile datei(pfad);
            QVERIFY(datei.open(QIODevice::WriteOnly));
            QCOMPARE(datei.write(fall.bytes), fall.bytes.size());
            m_db->ausfuehren(u"INSERT INTO dokumente (pfad, dateiname) VALUES (?,?)"_s, {pfad, name});
        }
        lesen();
    }
    void cleanupTestCase() { m_db.reset(); }

    void jedesHatEineAntwort_data()
    {
        QTest::addColumn<QString>("name");
        for (const FeindlichePdfs::Fall &fall : FeindlichePdfs::alle())
            QTest::newRow(fall.name.constData()) << QString::fromUtf8(fall.name) + u".pdf"_s;
    }
    void jedesHatEineAntwort()
    {
        QFETCH(const QString, name);
        const Zeile z = zeile(name);
        const QString fehler = z.text(u"fehler");
        QVERIFY(m_genannte.contains(name));
        QVERIFY(z.wert(u"text_hash") != Wert()); // it was its turn, and it will not be again
        QVERIFY2(fehler.isEmpty() || fehler.startsWith(u"Lesen nicht möglich: "_s), qPrintable(fehler));
        if (qEnvironmentVariableIsSet("QUILLMAR_ZEIGEN"))
            qInfo().noquote() << (fehler.isEmpty() ? u"gelesen: "_s + z.text(u"text") : fehler);
    }

    void wasGenauGesagtWird_data()
    {
        QTest::addColumn<QString>("erwartet");
        const QString rechenzeit = u"Lesen nicht möglich: %1 hat zu viel Rechenzeit gebraucht (Grenze: 2 Sekunden)"_s;
        QTest::newRow("formen") << rechenzeit.arg(u"pdftotext"_s);
        QTest::newRow("striche") << rechenzeit.arg(u"pdftoppm"_s);
        QTest::newRow("abgeschnitten") << u"Lesen nicht möglich: die Datei ist beschädigt"_s;
        for (const char *name : {"rc4-40", "rc4-128", "aes-128", "aes-256-r5", "aes-256-r6"})
            QTest::newRow(name) << u"Lesen nicht möglich: verschlüsselt"_s;
        QTest::newRow("prev-minus-eins") << QString();
    }
    void wasGenauGesagtWird()
    {
        QTEST(zeile(QString::fromUtf8(QTest::currentDataTag()) + u".pdf"_s).text(u"fehler"), "erwartet");
    }

    void nichtsBleibtZurueck()
    {
        QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
        QCOMPARE(errno, ECHILD);
        struct rusage verbrauch = {};
        QCOMPARE(::getrusage(RUSAGE_CHILDREN, &verbrauch), 0);
        QVERIFY(verbrauch.ru_maxrss <= ueblicherSpeicher / 1024);
        QCOMPARE(QDir::temp().entryList({u"ablage-*"_s}, QDir::Dirs), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestFeindlich)
#include "test_feindlich.moc"
