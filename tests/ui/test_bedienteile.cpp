#include "anordnung.h"
#include "bau.h"
#include "hinweisfeld.h"
#include "liste.h"
#include "quillmarstil.h"
#include "textschild.h"
#include "umschalter.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
/** A part of fixed size. */
QWidget *klotz(int breite, int hoehe = 10)
{
    auto *teil = new QWidget;
    teil->setFixedSize(breite, hoehe);
    return teil;
}

/** Counts how often a part is painted. */
class Malzaehler : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *ereignis) override
    {
        anzahl += ereignis->type() == QEvent::Paint;
        return false;
    }
    int anzahl = 0;
};

/** Counts what a view asks for. */
class Zaehlmodell : public QAbstractListModel
{
public:
    explicit Zaehlmodell(int zeilen) : m_zeilen(zeilen) {}
    [[nodiscard]] int rowCount(const QModelIndex & = {}) const override { return m_zeilen; }
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override
    {
        m_gefragt.insert(index.row());
        if (rolle == Qt::DisplayRole || rolle == ZweiteZeile)
            return QString::number(index.row());
        return rolle == Zeilentat ? QVariant(int(Symbol::Aufschlagen)) : QVariant();
    }
    mutable QSet<int> m_gefragt;

private:
    int m_zeilen;
};
} // namespace

/** The parts that the cards are made of. */
class TestBedienteile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Quillmarstil::anwenden(); }
    void init() { Stil::setzeSchriftgroesse(10); }

    void fluss_data()
    {
        QTest::addColumn<QList<int>>("breiten");
        QTest::addColumn<int>("breite");
        QTest::addColumn<QList<QPoint>>("orte");
        QTest::addColumn<int>("hoehe");
        Stil::setzeSchriftgroesse(10);
        const int a = Stil::abstand(Abstand::Nah);
        QTest::newRow("leer") << QList<int>{} << 100 << QList<QPoint>{} << 0;
        QTest::newRow("eine Zeile") << QList<int>{30, 40} << 70 + a << QList<QPoint>{{0, 0}, {30 + a, 0}} << 10;
        QTest::newRow("ein Punkt zu wenig")
            << QList<int>{30, 40} << 69 + a << QList<QPoint>{{0, 0}, {0, 10 + a}} << 20 + a;
        QTest::newRow("zu breit für jede Zeile")
            << QList<int>{50, 300, 50} << 100 << QList<QPoint>{{0, 0}, {0, 10 + a}, {0, 20 + 2 * a}} << 30 + 2 * a;
    }
    void fluss()
    {
        QFETCH(const QList<int>, breiten);
        QFETCH(const int, breite);
        QFETCH(const QList<QPoint>, orte);
        QWidget traeger;
        auto *fluss = new Flussreihe(Abstand::Nah);
        traeger.setLayout(fluss);
        fluss->setContentsMargins(0, 0, 0, 0);
        for (const int b : breiten)
            fluss->addWidget(klotz(b));
        QTEST(fluss->heightForWidth(breite), "hoehe");
        fluss->setGeometry({0, 0, breite, 500});
        for (int n = 0; n < orte.size(); ++n)
            QCOMPARE(fluss->itemAt(n)->geometry().topLeft(), orte.at(n));
    }

    /** What is hidden takes no room, neither of its own nor between the others. */
    void flussMitVerborgenem()
    {
        QWidget traeger;
        auto *fluss = new Flussreihe(Abstand::Nah);
        traeger.setLayout(fluss);
        QWidget *verborgen = klotz(50);
        for (QWidget *teil : {klotz(20), verborgen, klotz(20)})
            fluss->addWidget(teil);
        traeger.show();
        verborgen->hide();
        fluss->setGeometry({0, 0, 48 + 2 * Stil::abstand(Abstand::Nah), 100});
        QCOMPARE(fluss->itemAt(2)->geometry().left(), 20 + Stil::abstand(Abstand::Nah));
    }

    /** The first way that fits, at every size, also when the contents grow; and it comes to rest. */
    void nachgeben_data()
    {
        QTest::addColumn<bool>("verschachtelt");
        QTest::newRow("in der Reihe") << false;
        QTest::newRow("mit eigener Reihe") << true;
    }
    void nachgeben()
    {
        QFETCH(const bool, verschachtelt);
        QWidget fenster;
        auto *wort = schild(u"ein Wort"_s);
        auto *rest = klotz(40);
        auto *innen = verschachtelt ? traeger(reihe({traeger(reihe({wort}))})) : wort;
        auto *traeger = fuellen(new QWidget(&fenster), reihe({innen, rest}, Abstand::Keiner));
        int versuche = 0;
        const Nachgeben platz(traeger, 2, [&](int stufe) {
            ++versuche;
            wort->setVisible(stufe < 1);
            rest->setVisible(stufe < 2);
        });
        fenster.show();
        const int ganz = wort->sizeHint().width() + 40;
        for (const auto &[breite, stufe] : QList<std::pair<int, int>>{{ganz, 0}, {ganz - 1, 1}, {39, 2}, {ganz, 0}}) {
            traeger->resize(breite, 20);
            QCOMPARE(platz.stufe(), stufe);
        }
        // Still narrower: what found no room before is not tried again.
        traeger->resize(30, 20);
        versuche = 0;
        traeger->resize(20, 20);
        QCOMPARE(versuche, 1);
        traeger->resize(ganz, 20);
        QCOMPARE(platz.stufe(), 0);
        wort->setText(u"ein längeres Wort"_s);
        QTRY_COMPARE(platz.stufe(), 1);
        QTest::qWait(50);
        const int vorher = versuche;
        QTest::qWait(100);
        QCOMPARE(versuche, vorher);
    }

    void texte_data()
    {
        QTest::addColumn<int>("art");
        QTest::addColumn<int>("breite");
        QTest::addColumn<QString>("anfang");
        QTest::addColumn<QString>("ende");
        QTest::newRow("passt") << int(Textschild::Art::KurzMitte) << 1000 << u"Rechnung der Stadtwerke"_s << u".pdf"_s;
        QTest::newRow("Mitte") << int(Textschild::Art::KurzMitte) << 100 << u"Re"_s << u"pdf"_s;
        QTest::newRow("Ende") << int(Textschild::Art::KurzEnde) << 100 << u"Rech"_s << u"…"_s;
    }
    void texte()
    {
        QFETCH(const int, art);
        QFETCH(const int, breite);
        QFETCH(const QString, anfang);
        QFETCH(const QString, ende);
        const QString ganz = u"Rechnung der Stadtwerke vom Januar.pdf"_s;
        Textschild text{Textschild::Art(art)};
        text.setzeHilfe(u"So heißt sie"_s);
        text.setzeText(ganz);
        text.resize(breite, 20);
        text.show();
        QVERIFY2(text.text().startsWith(anfang) && text.text().endsWith(ende), qPrintable(text.text()));
        QCOMPARE(text.toolTip().contains(ganz), text.text() != ganz);
        QVERIFY(text.toolTip().endsWith(u"So heißt sie"_s));
        QCOMPARE(text.accessibleName(), ganz);
        QCOMPARE(text.accessibleDescription(), u"So heißt sie"_s);
        // With a mark there is less room for the words.
        const int vorher = text.sizeHint().width();
        text.setzen(Symbol::Warnung, ganz);
        QVERIFY(text.sizeHint().width() > vorher);
    }

    /** A word too long for its line is broken, not cut; more lines need more height. */
    void umbruch()
    {
        Textschild text;
        text.setzeText(QString(200, u'x'));
        const int zeile = text.heightForWidth(10'000);
        QVERIFY(text.heightForWidth(100) > 3 * zeile);
        QVERIFY(text.heightForWidth(100) < text.heightForWidth(50));
        text.befund(Symbol::Keines, u"Erklärung"_s);
        const double klein = text.font().pointSizeF();
        text.befund(Symbol::Warnung, u"Mangel"_s);
        QVERIFY(text.font().pointSizeF() > klein);
    }

    /** A sentence that comes later and needs more lines gets them, however deep its row lies. */
    void spaeterLaenger_data()
    {
        QTest::addColumn<bool>("formular");
        QTest::newRow("in einer Spalte") << false;
        QTest::newRow("in einem Formular") << true;
    }
    void spaeterLaenger()
    {
        QFETCH(const bool, formular);
        auto *text = new Textschild;
        Kette *zeile = reihe({{text, 1}, knopf(u"k"_s, u"Noch einmal"_s)});
        auto *form = new QFormLayout;
        form->setRowWrapPolicy(QFormLayout::WrapAllRows);
        if (formular)
            form->addRow(schild(u"Server"_s), traeger(zeile));
        QLayout *inhalt = formular ? static_cast<QLayout *>(form) : spalte({reihe({zeile}), new QLineEdit});
        if (!formular)
            delete form;
        auto *rollen = rollbereich(fuellen(new QWidget, inhalt));
        const std::unique_ptr<QWidget> halter(rollen);
        text->setzen(Symbol::Laeuft, u"Wird gesucht …"_s);
        rollen->resize(300, 400);
        rollen->show();
        QVERIFY(QTest::qWaitForWindowExposed(rollen));
        text->setzen(Symbol::Warnung, u"Er läuft nicht. Was dann zu tun ist, steht in einem anderen Abschnitt."_s);
        QTRY_VERIFY2(text->height() >= text->heightForWidth(text->width()),
                     qPrintable(u"%1 statt %2"_s.arg(text->height()).arg(text->heightForWidth(text->width()))));
    }

    /** Everything is as tall at every font size as what stands beside it. */
    void hoehen()
    {
        for (const double punkte : {9.0, 10.0, 13.0, 18.0}) {
            Stil::setzeSchriftgroesse(punkte);
            QWidget fenster;
            QLineEdit *feld = new QLineEdit;
            QPushButton *daneben = knopf(u"k"_s, u"Wählen …"_s);
            QPushButton *haupt = hauptknopf(u"h"_s, u"Weiter"_s);
            QToolButton *flach = flachknopf(u"f"_s, Symbol::Plus, u"Dazu"_s, {});
            setzeKnopfart(flach, Knopfart::Hoch);
            fuellen(&fenster, reihe({feld, daneben, haupt, flach}));
            fenster.show();
            QCOMPARE(feld->sizeHint().height(), daneben->sizeHint().height());
            QCOMPARE(haupt->sizeHint().height(), flach->sizeHint().height());
            QVERIFY(daneben->sizeHint().width() > daneben->fontMetrics().horizontalAdvance(daneben->text()));
            QCOMPARE(fenster.layout()->spacing(), Stil::abstand(Abstand::Nah));
        }
    }

    /** A hundred thousand rows: only those in view are asked for. */
    void langeListe()
    {
        Liste liste(u"liste"_s, u"Eine Liste"_s);
        Zaehlmodell modell(100'000);
        liste.setModel(&modell);
        QSignalSpy gesehen(&liste, &Liste::gesehen);
        QSignalSpy tat(&liste, &Liste::tatGewuenscht);
        liste.resize(300, 200);
        liste.show();
        QTRY_VERIFY(!gesehen.isEmpty());
        liste.scrollTo(modell.index(50'000));
        QTRY_VERIFY(gesehen.last().at(0).toInt() > 49'000);
        QVERIFY2(modell.m_gefragt.size() < 200, qPrintable(QString::number(modell.m_gefragt.size())));
        const QRect zeile = liste.visualRect(modell.index(50'000));
        const QPoint zeichen(zeile.right() - 10, zeile.center().y());
        QSignalSpy geklickt(&liste, &Liste::clicked);
        QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, zeile.center());
        QCOMPARE(tat.size(), 0);
        QTest::mousePress(liste.viewport(), Qt::LeftButton, {}, zeile.center());
        QTest::mouseRelease(liste.viewport(), Qt::LeftButton, {}, zeichen);
        QCOMPARE(tat.size(), 0);
        // The symbol chooses no row.
        liste.setCurrentIndex(modell.index(50'001));
        geklickt.clear();
        QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, zeichen);
        QCOMPARE(tat.size(), 1);
        QCOMPARE(liste.currentIndex().row(), 50'001);
        QCOMPARE(geklickt.size(), 0);
        QSignalSpy betreten(&liste, &Liste::activated);
        QTest::keyClick(&liste, Qt::Key_Space);
        QCOMPARE(betreten.size(), 1);
    }

    /** As high as its rows, up to the most. */
    void hoheDerListe()
    {
        Liste liste(u"liste"_s, u"Eine Liste"_s);
        auto *modell = new Listenmodell(&liste);
        liste.setzeHoechstens(3);
        liste.setModel(modell);
        QCOMPARE(liste.sizeHint().height(), 0);
        QList<Listenzeile> zeilen = {{.kennung = 7, .erste = u"a"_s, .zweite = u"b"_s}};
        modell->setzen(zeilen);
        const int eine = liste.sizeHint().height();
        QVERIFY(eine > 0);
        for (int n = 8; n < 12; ++n)
            zeilen << Listenzeile{.kennung = n, .erste = QString::number(n)};
        modell->setzen(zeilen);
        QCOMPARE(liste.sizeHint().height(), 3 * eine);
        zeilen[0].erste = u"anders"_s;
        modell->setzen(zeilen);
        QCOMPARE(modell->index(0).data(Qt::AccessibleTextRole).toString(), u"anders, b"_s);
    }

    /** The chosen row stays chosen wherever it goes; the one after a row that is gone takes its place. */
    void gewaehlteZeile()
    {
        Liste liste(u"liste"_s, u"Eine Liste"_s);
        auto *modell = new Listenmodell(&liste);
        liste.setModel(modell);
        const auto setzen = [modell](const QList<int> &kennungen) {
            QList<Listenzeile> zeilen;
            for (const int kennung : kennungen)
                zeilen << Listenzeile{.kennung = kennung, .erste = u"Zeile"_s};
            modell->setzen(zeilen);
        };
        setzen({1, 2, 3});
        setzen({1, 2, 3, 4});
        QVERIFY(!liste.currentIndex().isValid());
        liste.setCurrentIndex(modell->index(2));
        for (const auto &[kennungen, gewaehlte] : QList<std::pair<QList<int>, int>>{
                 {{3, 2, 1, 4}, 3}, {{9, 8, 3}, 3}, {{9, 8, 7, 3}, 3}, {{9, 8, 7, 6}, 6}, {{9, 8}, 8}, {{9}, 9}}) {
            setzen(kennungen);
            QCOMPARE(liste.kennung().toInt(), gewaehlte);
        }
        setzen({});
        QVERIFY(!liste.kennung().isValid());
        setzen({1, 2});
        liste.show();
        liste.setFocus(Qt::TabFocusReason);
        QVERIFY(QTest::qWaitForWindowActive(&liste));
        QVERIFY(liste.selectionModel()->isRowSelected(0)); // what a button acts on is seen
    }

    /** What gets the focus is to be seen, however it got it; of a list the chosen row. */
    void rollenFolgtDemFokus()
    {
        Zaehlmodell modell(100);
        auto *liste = new Liste(u"liste"_s, u"Eine Liste"_s);
        liste->setFixedHeight(2000);
        liste->setModel(&modell);
        QPushButton *oben = knopf(u"oben"_s, u"Oben"_s);
        QPushButton *unten = knopf(u"unten"_s, u"Unten"_s);
        const std::unique_ptr<QScrollArea> rollen(rollbereich(traeger(spalte({oben, liste, unten}))));
        rollen->resize(300, 200);
        rollen->show();
        rollen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(rollen.get()));
        const auto zuSehen = [&](const QWidget *teil, const QRect &stelle) {
            return rollen->rect().contains(QRect(teil->mapTo(rollen.get(), stelle.topLeft()), stelle.size()));
        };
        unten->setFocus(Qt::OtherFocusReason);
        QVERIFY(zuSehen(unten, unten->rect()) && !zuSehen(oben, oben->rect()));
        oben->setFocus(Qt::OtherFocusReason);
        QVERIFY(zuSehen(oben, oben->rect()));
        liste->setFocus(Qt::TabFocusReason);
        for (const Qt::Key taste : {Qt::Key_PageDown, Qt::Key_Down, Qt::Key_Home}) {
            QTest::keyClick(liste, taste);
            QVERIFY(zuSehen(liste->viewport(), liste->visualRect(liste->currentIndex())));
        }
    }

    /** The focus is on what leaves everything as it is, and goes back to where it was. */
    void rueckfrage()
    {
        QWidget fenster;
        QPushButton *davor = knopf(u"davor"_s, u"Löschen"_s);
        auto *frage = new Rueckfrage({{.name = u"ja"_s, .text = u"Ja"_s, .hilfe = u"Sofort"_s}});
        fuellen(&fenster, spalte({davor, frage}));
        fenster.show();
        fenster.activateWindow();
        QTRY_VERIFY(fenster.isActiveWindow());
        QSignalSpy ja(frage, &Rueckfrage::bestaetigt);
        QSignalSpy nein(frage, &Rueckfrage::abgebrochen);
        davor->setFocus();
        frage->fragen(u"Wirklich?"_s);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"ja-abbrechen"_s);
        QCOMPARE(frage->knopf()->accessibleDescription(), u"Wirklich? Sofort"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!frage->isVisible());
        QCOMPARE(nein.size(), 1);
        QCOMPARE(QApplication::focusWidget(), davor);
        frage->fragen(u"Wirklich?"_s);
        frage->knopf()->click();
        QCOMPARE(ja.size(), 1);
        QVERIFY(!frage->isVisible());
    }

    /** Arrow keys on tabs do not go on to a switch in the same bar, and Tab reaches that. */
    void umschalterNebenReitern()
    {
        QWidget fenster;
        QList<QToolButton *> reiter;
        for (const QString &name : {u"a"_s, u"b"_s}) {
            reiter << flachknopf(name, Symbol::Plus, name, {});
            reiter.last()->setCheckable(true);
            reiter.last()->setAutoExclusive(true);
        }
        const auto wahl = [](const QString &name) { return Umschalter::Wahl{name, name, {}, Symbol::Kopieren}; };
        auto *umschalter = new Umschalter(wahl(u"links"_s), wahl(u"rechts"_s));
        fuellen(&fenster, reihe({reiter[0], reiter[1], umschalter}));
        fenster.show();
        fenster.activateWindow();
        QTRY_VERIFY(fenster.isActiveWindow());
        QSignalSpy gewaehlt(umschalter, &Umschalter::gewaehlt);
        reiter[1]->setFocus();
        for (int n = 0; n < 3; ++n)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QVERIFY(reiter.contains(QApplication::focusWidget()) && gewaehlt.isEmpty());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"links"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(gewaehlt.size(), 1);
        QVERIFY(gewaehlt.first().first().toBool());
    }

    void balkenanteil()
    {
        const std::unique_ptr<QProgressBar> b(balken(u"b"_s));
        for (const auto &[anteil, wert] :
             QList<std::pair<double, int>>{{-1, 0}, {0, 0}, {0.5, 500}, {1, 1000}, {7, 1000}}) {
            setzeAnteil(b.get(), anteil);
            QCOMPARE(b->value(), wert);
        }
    }

    // Of a bar as short as that of the status line a step of few points is to be seen as well.
    void balkenZeigtKleineSchritte()
    {
        const std::unique_ptr<QProgressBar> b(balken(u"b"_s, 120));
        Malzaehler zaehler;
        b->installEventFilter(&zaehler);
        b->show();
        QVERIFY(QTest::qWaitForWindowExposed(b.get()));
        QTRY_VERIFY(zaehler.anzahl > 0);
        for (const double anteil : {0.03, 0.06, 0.07}) {
            const int bisher = zaehler.anzahl;
            setzeAnteil(b.get(), anteil);
            QTRY_VERIFY(zaehler.anzahl > bisher);
        }
    }
};

QTEST_MAIN(TestBedienteile)
#include "test_bedienteile.moc"
