#include "feindlichepdfs.h"
#include "kleinespdf.h"
#include "leeransicht.h"
#include "pdfansicht.h"
#include "vorschau.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int geduld = 120'000; // for one document, under the sanitizers on a busy machine
constexpr int kilobytes = 300 * 1024;
#ifdef __SANITIZE_ADDRESS__
constexpr bool zaehltSpeicher = false; // of which most is the sanitizer's
#else
constexpr bool zaehltSpeicher = true;
#endif

/** Most memory that this process has ever had in use, in kilobytes. */
int hoechststand()
{
    QFile datei(u"/proc/self/status"_s);
    const QByteArray stand = datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
    return stand.mid(stand.indexOf("VmHWM:") + 6).trimmed().split(' ').value(0).toInt();
}
} // namespace

/** Whatever is on show, the window answers, and the next document is drawn. */
class FeindlicheVorschauTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_ordner;
    std::unique_ptr<QWidget> m_fenster;
    Vorschau *m_vorschau = nullptr;
    QLineEdit *m_feld = nullptr;

    QString schreiben(const QByteArray &name, const QByteArray &bytes) const
    {
        QFile datei(m_ordner.filePath(QString::fromLatin1(name) + u".pdf"_s));
        if (!datei.open(QIODevice::WriteOnly) || datei.write(bytes) != bytes.size())
            qFatal("no file to test with");
        return datei.fileName();
    }

    /** Types a letter again and again until the document, or a sentence in its place, has been seen. */
    void zeigenUndTippen(const QString &pfad)
    {
        QSignalSpy gesehen(m_vorschau, &Vorschau::seiteSichtbar);
        m_feld->clear();
        int getippt = 0;
        m_vorschau->zeigen(pfad);
        QElapsedTimer uhr;
        uhr.start();
        while (gesehen.isEmpty() && !uhr.hasExpired(geduld)) {
            QTest::keyClick(m_feld, Qt::Key_A);
            ++getippt;
            QTest::qWait(10);
        }
        QCOMPARE(gesehen.size(), 1);
        QCOMPARE(gesehen.first().first().toString(), pfad);
        QCOMPARE(m_feld->text().size(), getippt);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_fenster = std::make_unique<QWidget>();
        m_vorschau = new Vorschau(nullptr, {.programm = {},
                                            .rechenzeit = std::chrono::seconds(2),
                                            .wanduhr = std::chrono::seconds(10),
                                            .geduld = std::chrono::milliseconds(300)});
        m_feld = new QLineEdit;
        m_feld->setMaxLength(1'000'000);
        auto *reihe = new QHBoxLayout(m_fenster.get());
        reihe->addWidget(m_feld);
        reihe->addWidget(m_vorschau, 1);
        m_fenster->resize(900, 700);
        m_fenster->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_fenster.get()));
    }
    void cleanupTestCase() { m_fenster.reset(); }

    void jedes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const FeindlichePdfs::Fall &fall : FeindlichePdfs::alle())
            QTest::newRow(fall.name.constData()) << fall.bytes;
    }
    void jedes()
    {
        QFETCH(QByteArray, bytes);
        zeigenUndTippen(schreiben(QTest::currentDataTag(), bytes));
        // A page is there, or what stands in its place.
        const auto *ansicht = m_vorschau->findChild<PDFAnsicht *>();
        const auto *leer = m_vorschau->findChild<Leeransicht *>();
        QVERIFY(ansicht->seiten() > 0 || !leer->accessibleName().isEmpty());
    }

    void danachEinEhrliches()
    {
        zeigenUndTippen(schreiben("ehrlich", Kleinespdf::gezeichnet("0 0 0 rg 100 100 300 300 re f")));
        QCOMPARE(m_vorschau->findChild<PDFAnsicht *>()->seiten(), 1);
        QVERIFY(m_vorschau->findChild<PDFAnsicht *>()->seitensatz().isEmpty());
        if (zaehltSpeicher)
            QVERIFY2(hoechststand() < kilobytes, qPrintable(QString::number(hoechststand())));
    }
};

QTEST_MAIN(FeindlicheVorschauTest)
#include "test_feindlichevorschau.moc"
