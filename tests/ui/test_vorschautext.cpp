#include "auflage.h"
#include "farben.h"
#include "kleinespdf.h"
#include "pdfansicht.h"
#include "textschild.h"
#include "vorschau.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int geduld = 20000; // a page under the sanitizers on a busy machine

Seitenwort wort(const QString &text, double x, double y, double breite)
{
    return {.text = text, .ort = {x, y, breite, 0.015}};
}

// Words where the page is white; nothing on the second page.
QList<Seitenworte> worte()
{
    return {{wort(u"Rechnung"_s, 0.1, 0.3, 0.15), wort(u"Nr."_s, 0.26, 0.3, 0.04), wort(u"4711"_s, 0.31, 0.3, 0.08),
             wort(u"Stadtwerke"_s, 0.1, 0.33, 0.15), wort(u"Nordheim"_s, 0.26, 0.33, 0.1)},
            {},
            {wort(u"Viele"_s, 0.1, 0.8, 0.1), wort(u"Grüße"_s, 0.22, 0.8, 0.1)}};
}

const QPointF rechnung(0.17, 0.307);
const QPointF nummer(0.35, 0.307);
const QPointF nordheim(0.3, 0.337);
const QPointF leer(0.7, 0.5);
} // namespace

/** Marks, words and the search on the pages of the preview. */
class VorschautextTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_ordner;
    QString m_pfad;
    std::unique_ptr<QWidget> m_fenster;
    QLineEdit *m_feld = nullptr;
    Vorschau *m_vorschau = nullptr;
    PDFAnsicht *m_ansicht = nullptr;

    [[nodiscard]] QString angelegt(const QString &name, int seiten) const
    {
        QFile datei(m_ordner.filePath(name));
        if (!datei.open(QIODevice::WriteOnly) || datei.write(Kleinespdf::brav(seiten)) <= 0)
            qFatal("no file to test with");
        return datei.fileName();
    }

    void zeigenUndWarten(const QString &pfad)
    {
        QSignalSpy sichtbar(m_vorschau, &Vorschau::seiteSichtbar);
        m_vorschau->zeigen(pfad);
        QTRY_COMPARE_WITH_TIMEOUT(sichtbar.size(), 1, geduld);
    }

    /** Where a place of the upright page of A4 is in the view now. */
    [[nodiscard]] QPoint punkt(const QPointF &anteil, int seite = 0) const
    {
        int y = 0;
        while (m_ansicht->seitenpunkt({0, y}).first < seite)
            ++y;
        const QPointF links = m_ansicht->seitenpunkt({0, y}).second;
        const double breite = 200 / (m_ansicht->seitenpunkt({200, y}).second.x() - links.x());
        const double hoehe = breite * a4.height() / a4.width();
        return {qRound((anteil.x() - links.x()) * breite), qRound(y + (anteil.y() - links.y()) * hoehe)};
    }

    void druecken(const QPointF &ort, Qt::MouseButton taste = Qt::LeftButton)
    {
        QTest::mousePress(m_ansicht->viewport(), taste, {}, punkt(ort));
    }
    // Without the detour over the platform, which has one pointer for all tests that run.
    void bewegen(const QPoint &ziel, Qt::MouseButton taste)
    {
        QMouseEvent bewegt(QEvent::MouseMove, ziel, m_ansicht->viewport()->mapToGlobal(ziel), Qt::NoButton, taste, {});
        QCoreApplication::sendEvent(m_ansicht->viewport(), &bewegt);
    }
    void ziehen(const QPointF &von, const QPoint &nach, Qt::MouseButton taste = Qt::LeftButton)
    {
        druecken(von, taste);
        bewegen(nach, taste);
        QTest::mouseRelease(m_ansicht->viewport(), taste, {}, nach);
    }
    void klicken(const QPointF &ort) { QTest::mouseClick(m_ansicht->viewport(), Qt::LeftButton, {}, punkt(ort)); }

    void doppelklicken(const QPointF &ort)
    {
        klicken(ort);
        QTest::mouseDClick(m_ansicht->viewport(), Qt::LeftButton, {}, punkt(ort));
        QTest::mouseRelease(m_ansicht->viewport(), Qt::LeftButton, {}, punkt(ort));
    }

    [[nodiscard]] QString ausgewaehlt() const
    {
        const auto auswahl = m_ansicht->text().auswahl();
        return auswahl ? m_ansicht->text().karte().text(*auswahl) : QString();
    }
    [[nodiscard]] Qt::CursorShape zeigerUeber(const QPointF &ort)
    {
        bewegen(punkt(ort), Qt::NoButton);
        return m_ansicht->viewport()->cursor().shape();
    }
    [[nodiscard]] int rollstand() const { return m_ansicht->verticalScrollBar()->value(); }
    [[nodiscard]] QColor farbeBei(const QPoint &ort) const
    {
        return m_ansicht->viewport()->grab().toImage().pixelColor(ort * m_ansicht->devicePixelRatioF());
    }
    [[nodiscard]] QString suchstand() const
    {
        return m_vorschau->findChild<Textschild *>(u"suchstand"_s)->ganzerText();
    }
    bool taste(int taste, Qt::KeyboardModifiers dazu = {})
    {
        QKeyEvent ereignis(QEvent::KeyPress, taste, dazu);
        return m_vorschau->taste(&ereignis);
    }

private Q_SLOTS:
    void initTestCase() { m_pfad = angelegt(u"brief.pdf"_s, 3); }

    void init()
    {
        m_fenster = std::make_unique<QWidget>();
        m_fenster->setFocusPolicy(Qt::ClickFocus); // as the card has it
        m_feld = new QLineEdit;
        m_vorschau = new Vorschau;
        auto *spalte = new QVBoxLayout(m_fenster.get());
        spalte->addWidget(m_feld);
        spalte->addWidget(m_vorschau);
        m_ansicht = m_vorschau->findChild<PDFAnsicht *>();
        m_fenster->resize(600, 700);
        m_fenster->show();
        QVERIFY(QTest::qWaitForWindowActive(m_fenster.get()));
        m_vorschau->setzeWorte(m_pfad, worte());
        zeigenUndWarten(m_pfad);
        m_ansicht->breiteSetzen();
        // The moment in which a press counts as that which gave the window the focus has gone by.
        QSignalSpy genommen(m_vorschau, &Vorschau::genommen);
        m_vorschau->setzeNehmen(true);
        QTRY_VERIFY((klicken(rechnung), !genommen.isEmpty()));
        m_vorschau->setzeNehmen(false);
    }

    void cleanup() { m_fenster.reset(); }

    void marken_data()
    {
        QTest::addColumn<int>("drehung");
        QTest::addColumn<QPointF>("gesehen"); ///< in shares of the page as it lies on the screen
        QTest::newRow("aufrecht") << 0 << QPointF(0.6, 0.4);
        QTest::newRow("rechts") << 90 << QPointF(0.6, 0.6);
        QTest::newRow("auf dem Kopf") << 180 << QPointF(0.4, 0.6);
        QTest::newRow("links") << 270 << QPointF(0.4, 0.4);
    }
    void marken()
    {
        QFETCH(const int, drehung);
        QFETCH(const QPointF, gesehen);
        m_vorschau->setzeDrehungen({{m_pfad, {{1, drehung}}}});
        m_ansicht->ganzeSeiteSetzen();
        const QPointF oben = m_ansicht->seitenpunkt({0, 0}).second;
        const QPointF unten = m_ansicht->seitenpunkt({100, 100}).second;
        const QPointF weg = gesehen - oben;
        const QPoint ort(qRound(100 * weg.x() / (unten.x() - oben.x())),
                         qRound(100 * weg.y() / (unten.y() - oben.y())));
        QTRY_COMPARE_WITH_TIMEOUT(farbeBei(ort), QColor(Qt::white), geduld);
        Marke marke{.seite = 0, .orte = {{0.58, 0.38, 0.04, 0.04}}, .ton = Markenton::Gegenueber};
        for (const bool stark : {false, true}) {
            marke.stark = stark;
            m_vorschau->setzeMarken(m_pfad, {marke});
            QCOMPARE(farbeBei(ort),
                     Farben::aufSeite(Farben::Seitenton::Gegenueber, stark, m_vorschau->palette()).grund);
        }
        m_vorschau->setzeMarkenSichtbar(false);
        QCOMPARE(farbeBei(ort), QColor(Qt::white));
    }

    void markenGehoerenZuIhrerDatei()
    {
        const QString andere = angelegt(u"andere.pdf"_s, 1);
        const Marke marke{.seite = 0, .orte = {{0.58, 0.38, 0.04, 0.04}}};
        const QColor ton = Farben::aufSeite(Farben::Seitenton::Datum, false, m_vorschau->palette()).grund;
        m_vorschau->setzeMarken(andere, {marke});
        QCOMPARE(farbeBei(punkt({0.6, 0.4})), QColor(Qt::white));
        zeigenUndWarten(andere);
        QCOMPARE(farbeBei(punkt({0.6, 0.4})), ton);
        zeigenUndWarten(m_pfad);
        QCOMPARE(farbeBei(punkt({0.6, 0.4})), QColor(Qt::white));
        // Those of many files are not kept for ever; those on show are.
        m_vorschau->setzeMarken(m_pfad, {marke});
        for (int i = 0; i < 2 * Textebene::meisteDateien; ++i)
            m_vorschau->setzeMarken(QString::number(i), {marke});
        QCOMPARE(farbeBei(punkt({0.6, 0.4})), ton);
        zeigenUndWarten(andere);
        QCOMPARE(farbeBei(punkt({0.6, 0.4})), QColor(Qt::white));
    }

    // The text stays black, and the flag with the letter hides none of the words around.
    void markenVerdeckenNichts()
    {
        QImage bild(600, 800, QImage::Format_RGB32);
        bild.fill(Qt::white);
        const QRect schrift(205, 405, 40, 5);
        const QRectF marke(200 / 600.0, 400 / 800.0, 60 / 600.0, 16 / 800.0);
        const Seitenworte umgebung{{u"Datum:"_s, marke.translated(-0.11, 0)},
                                   {u"2024"_s, marke},
                                   {u"darüber"_s, marke.translated(-0.05, -0.03)}};
        const auto [grund, kante] = Farben::aufSeite(Farben::Seitenton::Datum, true, m_vorschau->palette());
        {
            QPainter maler(&bild);
            maler.fillRect(schrift, Qt::black);
            auflagenMalen(maler, bild.rect(), {{{marke}, Farben::Seitenton::Datum, false}}, Wortkarte(umgebung, 0.75),
                          m_vorschau->palette());
        }
        QCOMPARE(bild.pixelColor(schrift.center()), QColor(Qt::black));
        int fahne = 0;
        for (int y = 0; y < bild.height(); ++y) {
            for (int x = 0; x < bild.width(); ++x) {
                const QPointF ort(x / 600.0, y / 800.0);
                const bool imWort = umgebung.first().ort.adjusted(0.01, 0.004, -0.01, -0.004).contains(ort) ||
                                    umgebung.last().ort.adjusted(0.01, 0.004, -0.01, -0.004).contains(ort);
                QVERIFY(!imWort || bild.pixelColor(x, y) == Qt::white);
                fahne += bild.pixelColor(x, y) == kante ? 1 : 0;
            }
        }
        QVERIFY2(fahne > 30, "the soft edge has another colour");
    }

    void schalterInDerZeile()
    {
        auto *knopf = m_vorschau->findChild<QToolButton *>(u"marken"_s);
        QSignalSpy geaendert(m_vorschau, &Vorschau::markenSichtbarGeaendert);
        QVERIFY(knopf->isChecked() && m_vorschau->markenSichtbar());
        m_vorschau->setzeMarkenSichtbar(false);
        QVERIFY(!knopf->isChecked());
        knopf->click();
        m_vorschau->setzeMarkenSichtbar(true); // as it is
        QCOMPARE(geaendert, (QList<QVariantList>{{false}, {true}}));
        QVERIFY(m_vorschau->markenSichtbar());
    }

    void hinsehen()
    {
        const Marke oben{.seite = 0, .orte = {{0.1, 0.05, 0.1, 0.02}}};
        const Marke unten{.seite = 2, .orte = {{0.1, 0.9, 0.1, 0.02}}};
        m_ansicht->verticalScrollBar()->setValue(3);
        m_vorschau->hinsehen(oben);
        QCOMPARE(rollstand(), 3);
        m_vorschau->hinsehen(unten);
        QVERIFY(m_ansicht->viewport()->rect().contains(punkt({0.15, 0.91}, 2)));
        const int dort = rollstand();
        m_vorschau->hinsehen({.seite = 2, .orte = {{0.1, 0.85, 0.1, 0.02}}});
        QCOMPARE(rollstand(), dort);
        m_vorschau->hinsehen({.seite = 7, .orte = {{0.1, 0.85, 0.1, 0.02}}});
        QCOMPARE(rollstand(), dort);
        // Of a page so large that it is out of sight to the side.
        for (size_t i = 0; i < PDFAnsicht::stufen.size(); ++i)
            m_ansicht->groesser();
        m_vorschau->hinsehen({.seite = 2, .orte = {{0.9, 0.3, 0.02, 0.02}}});
        QVERIFY(m_ansicht->viewport()->rect().contains(punkt({0.91, 0.31}, 2)));
    }

    // The field may have the focus before the next document is open.
    void hinsehenWaehrendEsLaedt()
    {
        const QString naechste = angelegt(u"naechste.pdf"_s, 4);
        m_vorschau->zeigen(naechste);
        m_vorschau->hinsehen({.seite = 3, .orte = {{0.1, 0.85, 0.1, 0.02}}});
        QTRY_VERIFY_WITH_TIMEOUT(m_ansicht->seiten() == 4 && m_ansicht->seite() == 4, geduld);
    }

    void auswaehlen()
    {
        ziehen(nordheim, punkt(nummer));
        QCOMPARE(ausgewaehlt(), u"4711\nStadtwerke Nordheim"_s);
        QVERIFY(taste(Qt::Key_C, Qt::ControlModifier));
        QCOMPARE(QGuiApplication::clipboard()->text(), u"4711\nStadtwerke Nordheim"_s);
        QVERIFY(taste(Qt::Key_Escape) && ausgewaehlt().isEmpty());
        QVERIFY2(!taste(Qt::Key_Escape), "then it means something else");
        QVERIFY(!taste(Qt::Key_C, Qt::ControlModifier));
        doppelklicken(nordheim);
        QCOMPARE(ausgewaehlt(), u"Nordheim"_s);
        klicken(leer);
        QCOMPARE(ausgewaehlt(), QString());
        QVERIFY(taste(Qt::Key_A, Qt::ControlModifier));
        QCOMPARE(ausgewaehlt(), u"Rechnung Nr. 4711\nStadtwerke Nordheim\nViele Grüße"_s);
        // Other words, other places: what was selected is nothing any more.
        m_vorschau->setzeWorte(m_pfad, {{}, worte().first()});
        QCOMPARE(ausgewaehlt(), QString());
    }

    // What is dragged beyond the edge draws the page after it.
    void auswaehlenUeberSeiten()
    {
        druecken(nordheim);
        bewegen({200, m_ansicht->viewport()->height() + 400}, Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(ausgewaehlt(), u"Nordheim\nViele Grüße"_s, geduld);
        QTest::mouseRelease(m_ansicht->viewport(), Qt::LeftButton, {}, {200, 100});
        const int stand = rollstand();
        QVERIFY(stand > 0);
        bewegen({200, 2000}, Qt::NoButton);
        QCOMPARE(rollstand(), stand);
    }

    void verschieben()
    {
        const auto ziehenUm = [this](const QPointF &von, Qt::MouseButton taste) {
            ziehen(von, punkt(von) - QPoint(0, 60), taste);
        };
        ziehenUm(leer, Qt::LeftButton);
        QCOMPARE(rollstand(), 60);
        ziehenUm(nordheim, Qt::MiddleButton);
        QCOMPARE(rollstand(), 120);
        QCOMPARE(ausgewaehlt(), QString());
        QSignalSpy genommen(m_vorschau, &Vorschau::genommen);
        m_vorschau->setzeNehmen(true);
        ziehenUm(nordheim, Qt::MiddleButton);
        ziehenUm(leer, Qt::LeftButton);
        QCOMPARE(rollstand(), 240);
        QVERIFY(genommen.isEmpty());
    }

    void nehmen()
    {
        QSignalSpy genommen(m_vorschau, &Vorschau::genommen);
        klicken(nummer);
        QVERIFY(genommen.isEmpty());
        m_vorschau->setzeNehmen(true);
        klicken(nummer);
        ziehen(nordheim, punkt(nummer));
        klicken(leer);
        QTest::mouseClick(m_ansicht->viewport(), Qt::RightButton, {}, punkt(nummer));
        QTest::mouseClick(m_ansicht->viewport(), Qt::MiddleButton, {}, punkt(nummer));
        QCOMPARE(genommen.size(), 2);
        const auto griff = [&](qsizetype i) { return genommen.at(i).first().value<Wortgriff>(); };
        QCOMPARE(griff(0).text, u"4711"_s);
        QCOMPARE(griff(0).worte, 1);
        QCOMPARE(griff(1).text, u"4711 Stadtwerke Nordheim"_s);
        QCOMPARE(griff(1).wort, griff(0).wort);
        QCOMPARE(griff(1).worte, 3);
        QCOMPARE(ausgewaehlt(), QString());
        // The second press of a double click means no other word.
        doppelklicken(nummer);
        QCOMPARE(genommen.size(), 3);
        // On a page that is turned the words are where they are seen.
        m_vorschau->setzeDrehungen({{m_pfad, {{1, 180}}}});
        klicken(QPointF(1, 1) - nummer);
        QCOMPARE(genommen.size(), 4);
        QCOMPARE(griff(3).text, u"4711"_s);
    }

    // The desktop may tell of the activation before the press or behind it.
    void derKlickDerDasFensterAktiviert()
    {
        QSignalSpy genommen(m_vorschau, &Vorschau::genommen);
        m_vorschau->setzeNehmen(true);
        QWidget anderes;
        anderes.show();
        QVERIFY(QTest::qWaitForWindowActive(&anderes));
        QVERIFY(!m_fenster->isActiveWindow());
        klicken(nummer);
        QApplication::setActiveWindow(&anderes);
        druecken(nummer);
        QApplication::setActiveWindow(m_fenster.get());
        bewegen(punkt(nordheim), Qt::LeftButton);
        QTest::mouseRelease(m_ansicht->viewport(), Qt::LeftButton, {}, punkt(nordheim));
        QCOMPARE(ausgewaehlt(), QString());
        QApplication::setActiveWindow(&anderes);
        QApplication::setActiveWindow(m_fenster.get());
        QVERIFY(m_fenster->isActiveWindow());
        klicken(nummer);
        QVERIFY(genommen.isEmpty());
        QTRY_VERIFY((klicken(nummer), !genommen.isEmpty()));
    }

    void dasFeldBehaeltDenFokus()
    {
        m_feld->setFocus();
        m_vorschau->setzeNehmen(true);
        klicken(nummer);
        doppelklicken(nummer);
        doppelklicken(leer);
        klicken(leer);
        QTest::mouseClick(m_ansicht->verticalScrollBar(), Qt::LeftButton, {}, {2, 200});
        QTest::mouseClick(m_vorschau->findChild<QToolButton *>(u"groesser"_s), Qt::LeftButton);
        QVERIFY(m_feld->hasFocus());
        // The Tab key still leads there, and after it a click does.
        QTest::keyClick(m_feld, Qt::Key_Tab);
        QVERIFY(!m_feld->hasFocus());
        QVERIFY(m_vorschau->isAncestorOf(QApplication::focusWidget()));
        m_ansicht->setFocus();
        QVERIFY(m_ansicht->hasFocus());
        m_feld->setFocus();
        m_vorschau->setzeNehmen(false);
        QTest::mouseClick(m_ansicht->viewport(), Qt::LeftButton);
        QVERIFY(m_ansicht->hasFocus());
    }

    void zeiger()
    {
        QCOMPARE(zeigerUeber(nummer), Qt::IBeamCursor);
        QCOMPARE(zeigerUeber(leer), Qt::OpenHandCursor);
        m_vorschau->setzeNehmen(true);
        QCOMPARE(zeigerUeber(nummer), Qt::PointingHandCursor);
        QCOMPARE(zeigerUeber(leer), Qt::OpenHandCursor);
        m_vorschau->setzeNehmen(false);
        druecken(nummer, Qt::MiddleButton);
        QCOMPARE(m_ansicht->viewport()->cursor().shape(), Qt::ClosedHandCursor);
        QTest::mouseRelease(m_ansicht->viewport(), Qt::MiddleButton, {}, punkt(nummer));
        zeigenUndWarten(angelegt(u"einseitig.pdf"_s, 1));
        m_ansicht->ganzeSeiteSetzen();
        QCOMPARE(zeigerUeber(leer), Qt::ArrowCursor);
        QCOMPARE(zeigerUeber(nummer), Qt::ArrowCursor);
    }

    void suche()
    {
        m_feld->setFocus();
        QVERIFY(!m_vorschau->sucheOffen());
        QVERIFY(taste(Qt::Key_F, Qt::ControlModifier));
        auto *feld = m_vorschau->findChild<QLineEdit *>(u"suchfeld"_s);
        QVERIFY(m_vorschau->sucheOffen() && feld->hasFocus());
        QTest::keyClicks(feld, u"nr. 47"_s);
        QCOMPARE(suchstand(), u"1 von 1"_s);
        QCOMPARE(farbeBei(punkt(nummer)),
                 Farben::aufSeite(Farben::Seitenton::Treffer, true, m_vorschau->palette()).grund);
        feld->clear();
        QTest::keyClicks(feld, u"r"_s);
        QCOMPARE(suchstand(), u"1 von 5"_s);
        QTest::keyClick(feld, Qt::Key_Return);
        QCOMPARE(suchstand(), u"2 von 5"_s);
        QVERIFY(taste(Qt::Key_F3, Qt::ShiftModifier) && taste(Qt::Key_F3, Qt::ShiftModifier));
        QCOMPARE(suchstand(), u"5 von 5"_s);
        QVERIFY2(m_ansicht->viewport()->rect().contains(punkt({0.25, 0.807}, 2)), "the find is in sight");
        QTest::keyClicks(feld, u"x"_s);
        QCOMPARE(suchstand(), u"Nicht auf den gelesenen Seiten"_s);
        const QList<Seitenworte> alle(m_ansicht->seiten(), worte().first());
        m_vorschau->setzeWorte(m_pfad, alle);
        QTRY_COMPARE(suchstand(), u"Nicht gefunden"_s);
        QVERIFY(!m_vorschau->findChild<QToolButton *>(u"naechsterTreffer"_s)->isEnabled());
        QTest::keyClick(feld, Qt::Key_Escape);
        QVERIFY(!m_vorschau->sucheOffen() && m_feld->hasFocus());
        QVERIFY(m_ansicht->text().treffer().alle().isEmpty());
    }

    // In the window Return files and Esc leaves: in the search they must not.
    void sucheFaengtIhreTastenAb()
    {
        int eingaben = 0;
        for (const auto taste : {Qt::Key_Return, Qt::Key_Escape}) {
            auto *kurz = new QShortcut(taste, m_fenster.get());
            connect(kurz, &QShortcut::activated, this, [&eingaben] { ++eingaben; });
        }
        m_vorschau->sucheZeigen();
        QWidget *feld = m_vorschau->findChild<QLineEdit *>(u"suchfeld"_s);
        QTest::keyClick(m_fenster->windowHandle(), Qt::Key_Return);
        QVERIFY(feld->hasFocus());
        QTest::keyClick(m_fenster->windowHandle(), Qt::Key_Escape);
        QVERIFY(!m_vorschau->sucheOffen());
        QCOMPARE(eingaben, 0);
        QTest::keyClick(m_fenster->windowHandle(), Qt::Key_Escape);
        QCOMPARE(eingaben, 1);
    }

    void sucheOhneText()
    {
        const QString andere = angelegt(u"unbekannt.pdf"_s, 1);
        m_vorschau->sucheZeigen();
        QCOMPARE(suchstand(), QString());
        m_vorschau->findChild<QLineEdit *>(u"suchfeld"_s)->setText(u"Grüße"_s);
        QCOMPARE(suchstand(), u"1 von 1"_s);
        m_vorschau->zeigen(andere);
        QCOMPARE(suchstand(), u"Auf dieser Seite ist kein Text bekannt"_s);
        // They may come later, when they are recognised.
        m_vorschau->setzeWorte(andere, {worte().last()});
        QCOMPARE(suchstand(), u"1 von 1"_s);
    }

    void sucheNachDerAuswahl()
    {
        ziehen(rechnung, punkt(nummer));
        QVERIFY(taste(Qt::Key_F3));
        QCOMPARE(suchstand(), u"1 von 1"_s);
        QCOMPARE(m_vorschau->findChild<QLineEdit *>(u"suchfeld"_s)->text(), u"Rechnung Nr. 4711"_s);
    }
};

QTEST_MAIN(VorschautextTest)
#include "test_vorschautext.moc"
