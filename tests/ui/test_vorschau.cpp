#include "archiv.h"
#include "einstellungen.h"
#include "kleinespdf.h"
#include "leeransicht.h"
#include "pdfansicht.h"
#include "textschild.h"
#include "vorschau.h"

#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int geduld = 20000; // a page under the sanitizers on a busy machine

QString seitenanzeige(const Vorschau &vorschau) { return vorschau.findChild<QLabel *>(u"seite"_s)->text(); }

QString satz(const Vorschau &vorschau)
{
    const auto *leer = vorschau.findChild<Leeransicht *>();
    return leer->isVisible() ? leer->accessibleName() : QString();
}

// Something dark stands on white in the middle of the view.
bool zeigtSchrift(Vorschau &vorschau)
{
    const QImage bild = vorschau.findChild<PDFAnsicht *>()->viewport()->grab().toImage();
    int dunkle = 0;
    int weisse = 0;
    for (int y = 0; y < bild.height(); ++y) {
        for (int x = bild.width() / 4; x < bild.width() * 3 / 4; ++x) {
            const int helligkeit = qGray(bild.pixel(x, y));
            dunkle += helligkeit < 100;
            weisse += helligkeit > 240;
        }
    }
    return dunkle > 100 && weisse > dunkle;
}

bool tippen(Vorschau &vorschau, int taste)
{
    QKeyEvent ereignis(QEvent::KeyPress, taste, Qt::NoModifier);
    return vorschau.taste(&ereignis);
}

void klicken(Vorschau &vorschau, const QString &knopf)
{
    QTest::mouseClick(vorschau.findChild<QToolButton *>(knopf), Qt::LeftButton);
}
} // namespace

class VorschauTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_ordner;
    std::unique_ptr<Vorschau> m_vorschau;

    [[nodiscard]] QString pfad(const QString &name) const
    {
        return vorfuehrung::quelleVon(m_ordner.path()) + u'/' + name;
    }
    [[nodiscard]] QString brief() const { return pfad(u"Urkunden/Meisterbrief.pdf"_s); }
    [[nodiscard]] QString vertrag() const { return pfad(u"Verträge/Mietvertrag Atelier.pdf"_s); }

    void zeigenUndWarten(const QString &datei)
    {
        QSignalSpy sichtbar(m_vorschau.get(), &Vorschau::seiteSichtbar);
        m_vorschau->zeigen(datei);
        QTRY_COMPARE_WITH_TIMEOUT(sichtbar.size(), 1, geduld);
        QCOMPARE(sichtbar.first().first().toString(), datei);
    }

    void anlegen(const Malgrenzen &grenzen)
    {
        Einstellungen::entfernen(u"vorschauZoom"_s);
        m_vorschau = std::make_unique<Vorschau>(nullptr, grenzen);
        // As narrow as a pane may become, which a window of its own may not.
        m_vorschau->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        m_vorschau->resize(600, 700);
        m_vorschau->show();
    }

    [[nodiscard]] QString angelegt(const QString &name, const QByteArray &inhalt) const
    {
        QFile datei(m_ordner.filePath(name));
        if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size())
            qFatal("no file to test with");
        return datei.fileName();
    }

    [[nodiscard]] QString seitensatz() const { return m_vorschau->findChild<PDFAnsicht *>()->seitensatz(); }

private Q_SLOTS:
    void initTestCase() { vorfuehrung::archivSchreiben(m_ordner.path()); }

    void init() { anlegen({}); }

    void cleanup() { m_vorschau.reset(); }

    void jedeDatei_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("anzeige");
        QTest::addColumn<QString>("satz");
        const QString keiner;
        QTest::newRow("eine Seite") << u"Urkunden/Meisterbrief.pdf"_s << u"1 Seite"_s << keiner;
        QTest::newRow("mehrere") << u"Verträge/Mietvertrag Atelier.pdf"_s << u"Seite 1 von 4"_s << keiner;
        QTest::newRow("Anführungszeichen") << u"Büro/Wartung \"Lichtblick\" 'eilig'.pdf"_s << u"1 Seite"_s << keiner;
        QTest::newRow("zerlegte Umlaute") << u"Fotos Übergabe/Protokoll Räume.pdf"_s << u"1 Seite"_s << keiner;
        QTest::newRow("Zeilenumbruch, Prozent") << u"Inbox/eins\nzwei #3 %41.pdf"_s << u"1 Seite"_s << keiner;
        QTest::newRow("Kennwort") << u"Inbox/geschützt.pdf"_s << keiner << u"Mit Kennwort geschützt"_s;
        QTest::newRow("beschädigt") << u"Inbox/defekt.pdf"_s << keiner << u"Datei beschädigt"_s;
        QTest::newRow("leere Datei") << u"Inbox/nichts.pdf"_s << keiner << u"Datei beschädigt"_s;
        QTest::newRow("verschwunden") << u"Inbox/weg.pdf"_s << keiner << u"Datei nicht gefunden"_s;
        QTest::newRow("Ordner") << u"Inbox"_s << keiner << u"Datei nicht lesbar"_s;
        QTest::newRow("Leitung ohne Schreiber") << u"Inbox/leitung.pdf"_s << keiner << u"Datei nicht lesbar"_s;
    }

    void jedeDatei()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, satz);
        QFile::copy(brief(), pfad(u"Inbox/eins\nzwei #3 %41.pdf"_s));
        QVERIFY(QFile(pfad(u"Inbox/nichts.pdf"_s)).open(QIODevice::WriteOnly));
        ::mkfifo(QFile::encodeName(pfad(u"Inbox/leitung.pdf"_s)).constData(), 0600);
        zeigenUndWarten(pfad(name));
        QTEST(seitenanzeige(*m_vorschau), "anzeige");
        QCOMPARE(::satz(*m_vorschau), satz);
        QVERIFY(!satz.isEmpty() || zeigtSchrift(*m_vorschau));
        m_vorschau->zeigen({});
        QCOMPARE(::satz(*m_vorschau), u"Keine Vorschau"_s);
    }

    void vorausgeladenesStehtSofortDa()
    {
        zeigenUndWarten(vertrag());
        m_vorschau->vorausladen(brief());
        QTRY_VERIFY_WITH_TIMEOUT(m_vorschau->istBereit(brief()), geduld);
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 1 von 4"_s);
        // No event is handled between showing and looking.
        m_vorschau->zeigen(brief());
        QVERIFY(zeigtSchrift(*m_vorschau));
        QCOMPARE(seitenanzeige(*m_vorschau), u"1 Seite"_s);
    }

    // A page that lies on its side or its head is shown upright, and turned by hand; the file has no part in it.
    void gedrehteSeiten()
    {
        auto *ansicht = m_vorschau->findChild<PDFAnsicht *>();
        const auto tinteOben = [&] {
            const QImage bild = ansicht->viewport()->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
            qint64 oben = 0;
            for (int y = 0; y < bild.height(); ++y)
                for (int x = 40; x < bild.width() - 40; ++x)
                    oben += (qGray(bild.pixel(x, y)) < 128 ? 1 : 0) * (y < bild.height() / 2 ? 1 : -1);
            return oben;
        };
        m_vorschau->setzeDrehungen({{vertrag(), {{2, 90}}}, {brief(), {{1, 180}}}});
        zeigenUndWarten(brief());
        klicken(*m_vorschau, u"ganzeSeite"_s);
        QTRY_VERIFY_WITH_TIMEOUT(tinteOben() < 0, geduld);
        QSignalSpy gedreht(m_vorschau.get(), &Vorschau::gedreht);
        klicken(*m_vorschau, u"rechtsDrehen"_s);
        klicken(*m_vorschau, u"rechtsDrehen"_s);
        QTRY_VERIFY_WITH_TIMEOUT(tinteOben() > 0, geduld);
        QCOMPARE(gedreht.last(), (QVariantList{brief(), 1, 0}));
        klicken(*m_vorschau, u"breiteSetzen"_s);
        const double hoch = ansicht->massstab();
        klicken(*m_vorschau, u"linksDrehen"_s);
        QCOMPARE(gedreht.last(), (QVariantList{brief(), 1, 270}));
        QVERIFY2(ansicht->massstab() < hoch, "a page on its side is wider");
        zeigenUndWarten(vertrag());
        QCOMPARE(ansicht->massstab(), hoch); // of its first page
        zeigenUndWarten(brief());
        QVERIFY(ansicht->massstab() < hoch);
    }

    void schnellesBlaettern()
    {
        QSignalSpy sichtbar(m_vorschau.get(), &Vorschau::seiteSichtbar);
        const QStringList dateien{vertrag(),
                                  pfad(u"Inbox/scan0001.pdf"_s),
                                  pfad(u"Inbox/scan0002.pdf"_s),
                                  pfad(u"Inbox/defekt.pdf"_s),
                                  pfad(u"Inbox/IMG_2041.pdf"_s),
                                  brief()};
        for (const QString &datei : dateien) {
            m_vorschau->zeigen(datei);
            m_vorschau->vorausladen(vertrag());
            QCoreApplication::processEvents();
        }
        QTRY_VERIFY_WITH_TIMEOUT(!sichtbar.isEmpty() && sichtbar.last().first() == brief(), geduld);
        QCOMPARE(seitenanzeige(*m_vorschau), u"1 Seite"_s);
        QVERIFY(zeigtSchrift(*m_vorschau));
    }

    // Coming back to a document shows what the file is now, not what it was.
    void veraenderteDatei()
    {
        const QString datei = pfad(u"Inbox/wechselnd.pdf"_s);
        QVERIFY(QFile::copy(brief(), datei));
        zeigenUndWarten(datei);
        QCOMPARE(seitenanzeige(*m_vorschau), u"1 Seite"_s);
        zeigenUndWarten(vertrag());
        QVERIFY(QFile::remove(datei) && QFile::copy(vertrag(), datei));
        m_vorschau->zeigen(datei);
        QTRY_COMPARE_WITH_TIMEOUT(seitenanzeige(*m_vorschau), u"Seite 1 von 4"_s, geduld);
        zeigenUndWarten(vertrag());
        QVERIFY(QFile::remove(datei));
        m_vorschau->zeigen(datei);
        QTRY_COMPARE_WITH_TIMEOUT(satz(*m_vorschau), u"Datei nicht gefunden"_s, geduld);
    }

    void jedesBeginntInDerGewaehltenPassung()
    {
        const auto *ansicht = m_vorschau->findChild<PDFAnsicht *>();
        zeigenUndWarten(vertrag());
        QVERIFY(ansicht->passtBreite());
        const double breit = ansicht->massstab();
        m_vorschau->resize(400, 700);
        QVERIFY(ansicht->massstab() < breit * 0.75);

        const double vorher = ansicht->massstab();
        klicken(*m_vorschau, u"groesser"_s);
        QVERIFY(!ansicht->passtBreite());
        QVERIFY(qAbs(ansicht->massstab() - Zoom::ueber(vorher).stufe) < 0.005);
        // The next document begins in the chosen fit, at its top left; so does the next start of the program.
        ansicht->horizontalScrollBar()->setValue(ansicht->horizontalScrollBar()->maximum());
        zeigenUndWarten(brief());
        QVERIFY(ansicht->passtBreite());
        QVERIFY(qAbs(ansicht->massstab() - vorher) < 0.005);
        QCOMPARE(ansicht->horizontalScrollBar()->value(), 0);
        klicken(*m_vorschau, u"ganzeSeite"_s);
        klicken(*m_vorschau, u"groesser"_s);
        zeigenUndWarten(vertrag());
        QVERIFY(ansicht->zeigtGanzeSeite());
        const Vorschau neue;
        QVERIFY(neue.findChild<PDFAnsicht *>()->zeigtGanzeSeite());
    }

    void blaettern()
    {
        zeigenUndWarten(vertrag());
        klicken(*m_vorschau, u"ganzeSeite"_s);
        QVERIFY(tippen(*m_vorschau, Qt::Key_PageDown));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 2 von 4"_s);
        QVERIFY(tippen(*m_vorschau, Qt::Key_Space));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 3 von 4"_s);
        QVERIFY(tippen(*m_vorschau, Qt::Key_End));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 4 von 4"_s);
        QVERIFY(!tippen(*m_vorschau, Qt::Key_Left));
        // The page on show stays on show when its size changes.
        klicken(*m_vorschau, u"breiteSetzen"_s);
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 4 von 4"_s);
        QVERIFY(tippen(*m_vorschau, Qt::Key_Home));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 1 von 4"_s);
        m_vorschau->zeigen(pfad(u"Inbox/defekt.pdf"_s));
        QTRY_VERIFY_WITH_TIMEOUT(!satz(*m_vorschau).isEmpty(), geduld);
        QVERIFY(!tippen(*m_vorschau, Qt::Key_PageDown));
    }

    void aehnlichesDokumentUndZurueck()
    {
        QSignalSpy zurueck(m_vorschau.get(), &Vorschau::zurueckZumDokument);
        zeigenUndWarten(brief());
        const auto *knopf = m_vorschau->findChild<QToolButton *>(u"zurueckZumDokument"_s);
        QVERIFY(!knopf->isVisible());
        m_vorschau->partnerZeigen(vertrag(), u"<b>Mietvertrag</b>.pdf"_s);
        QTRY_COMPARE_WITH_TIMEOUT(seitenanzeige(*m_vorschau), u"Seite 1 von 4"_s, geduld);
        QCOMPARE(m_vorschau->findChild<Textschild *>(u"partnerName"_s)->accessibleName(), u"<b>Mietvertrag</b>.pdf"_s);
        // Even in a pane that has room for nothing else.
        for (const int breite : {600, 300, 170}) {
            m_vorschau->resize(breite, 700);
            QCoreApplication::processEvents();
            QVERIFY(knopf->isVisible() && knopf->mapTo(m_vorschau.get(), knopf->rect().bottomRight()).x() < breite);
        }
        m_vorschau->zeigen(brief());
        QVERIFY2(knopf->isVisible(), "the refresh must not end the look at the similar document");
        klicken(*m_vorschau, u"zurueckZumDokument"_s);
        QCOMPARE(zurueck.size(), 1);
        QCOMPARE(seitenanzeige(*m_vorschau), u"1 Seite"_s);
        QVERIFY(!knopf->isVisible());
    }

    // The sentence stands in the page's place, and the document counts as seen: it can be filed.
    void seiteDieZuLangeDauert()
    {
        anlegen({.rechenzeit = std::chrono::milliseconds(300)});
        const QString boese = angelegt(u"striche.pdf"_s, Kleinespdf::endloseStriche());
        zeigenUndWarten(boese);
        QCOMPARE(m_vorschau->gesehen(), boese);
        QCOMPARE(seitensatz(), u"Diese Seite zu zeichnen dauert zu lange."_s);
        QCOMPARE(m_vorschau->findChild<PDFAnsicht *>()->accessibleDescription(), seitensatz());
        QVERIFY(!m_vorschau->findChild<QToolButton *>(u"zurueckZumDokument"_s)->isVisible());
        QCOMPARE(satz(*m_vorschau), QString());
        // In another size it is not tried again; the sentence stays.
        klicken(*m_vorschau, u"groesser"_s);
        QCOMPARE(seitensatz(), u"Diese Seite zu zeichnen dauert zu lange."_s);
        zeigenUndWarten(brief());
        QVERIFY(zeigtSchrift(*m_vorschau));
        QCOMPARE(seitensatz(), QString());
        // Shown anew, it is.
        m_vorschau->zeigen(boese);
        QCOMPARE(seitensatz(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(seitensatz(), u"Diese Seite zu zeichnen dauert zu lange."_s, geduld);
    }

    void absturzBeimOeffnen()
    {
        const QString boese = angelegt(u"prev.pdf"_s, Kleinespdf::mitTrailer("/Prev -1"));
        zeigenUndWarten(vertrag());
        m_vorschau->vorausladen(boese);
        QTRY_VERIFY_WITH_TIMEOUT(m_vorschau->istBereit(boese), geduld);
        // What is on show knows nothing of it: its other pages can still be had.
        QVERIFY(tippen(*m_vorschau, Qt::Key_PageDown));
        QTRY_VERIFY_WITH_TIMEOUT(zeigtSchrift(*m_vorschau), geduld);
        zeigenUndWarten(boese);
        QCOMPARE(satz(*m_vorschau), u"Beim Öffnen abgestürzt"_s);
        QCOMPARE(m_vorschau->gesehen(), boese);
    }

    void ohneDasProgramm()
    {
        anlegen({.programm = m_ordner.filePath(u"fehlt"_s)});
        zeigenUndWarten(brief());
        QCOMPARE(satz(*m_vorschau), u"Vorschau nicht verfügbar"_s);
    }

    void mehrSeitenAlsSichZeigenLassen()
    {
        zeigenUndWarten(angelegt(u"viele.pdf"_s, Kleinespdf::brav(30'000)));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 1 von mehr als 20000"_s);
        klicken(*m_vorschau, u"ganzeSeite"_s);
        QVERIFY(tippen(*m_vorschau, Qt::Key_End));
        QCOMPARE(seitenanzeige(*m_vorschau), u"Seite 20000 von mehr als 20000"_s);
        QTRY_VERIFY_WITH_TIMEOUT(zeigtSchrift(*m_vorschau), geduld);
    }

    void endetMittenInDerArbeit()
    {
        for (int i = 0; i < 10; ++i) {
            Vorschau vorschau;
            vorschau.show();
            vorschau.zeigen(pfad(u"Inbox/scan0001.pdf"_s));
            vorschau.vorausladen(pfad(u"Inbox/scan0002.pdf"_s));
            for (int runde = 0; runde < i; ++runde)
                QCoreApplication::processEvents();
        }
    }
};

QTEST_MAIN(VorschauTest)
#include "test_vorschau.moc"
