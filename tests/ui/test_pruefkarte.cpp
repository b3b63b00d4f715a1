#include "analyse.h"
#include "ausfuehrung.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "fensterprobe.h"
#include "liste.h"
#include "pdf.h"
#include "profilwahl.h"
#include "pruefansicht.h"
#include "pruefung.h"
#include "satz.h"
#include "sprache.h"
#include "stil.h"
#include "textschild.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
QByteArray brief(const QString &titel)
{
    vorfuehrung::Seite seite;
    seite.inhalt = vorfuehrung::seitenSatz({u"# Stadtwerke"_s, titel, u"Sehr geehrte Damen und Herren,"_s});
    return vorfuehrung::pdf({seite});
}
} // namespace

/** The window on a stage of real files, moved by key events alone. */
class TestPruefkarte : public Fensterprobe
{
    Q_OBJECT

private:
    qint64 dokument(const QString &name, const std::function<void(Dokument &)> &aendern = {})
    {
        return m_b->dokument(name, aendern, brief(name));
    }

    void oeffnen()
    {
        Fensterprobe::oeffnen();
        QCOMPARE(m_z->reiter(), Reiter::Pruefen);
    }
    [[nodiscard]] QString meldung() { return teil<Textschild>("hinweis")->ganzerText(); }
    /** Without the note behind it. */
    [[nodiscard]] QString wochentag() { return teil<QLabel>("wochentag")->text().section(u" · "_s, 0, 0); }
    [[nodiscard]] QString tasten() { return teil<Textschild>("tasten")->ganzerText(); }
    [[nodiscard]] QString neuerName() { return teil<Textschild>("neuerName")->ganzerText(); }

    void druecken(Qt::Key taste, Qt::KeyboardModifiers dazu = Qt::NoModifier)
    {
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        Fensterprobe::druecken(taste, dazu);
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
    }
    void tippen(const char *feld, const QString &text)
    {
        mitTabZu(feld);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    /** Opens a list, the window's menu or that of a text field. */
    void aufklappen(const QString &was)
    {
        if (was == u"menue"_s) {
            m_fenster->findChild<QMenu *>(was)->popup(m_fenster->mapToGlobal(QPoint(50, 50)));
        } else if (was == u"kontextmenue"_s) {
            auto *feld = teil<QLineEdit>("titel");
            QContextMenuEvent ereignis(QContextMenuEvent::Keyboard, QPoint(3, 3), feld->mapToGlobal(QPoint(3, 3)));
            QApplication::sendEvent(feld, &ereignis);
        } else {
            teil<QComboBox>(was)->setFocus();
            plattformtaste(Qt::Key_Down, Qt::AltModifier);
        }
    }
    void benannt()
    {
        for (QWidget *w : m_fenster->findChildren<QWidget *>()) {
            if (!(w->focusPolicy() & Qt::TabFocus) || !w->isVisible() || w->focusProxy())
                continue;
            QAccessibleInterface *schnittstelle = QAccessible::queryAccessibleInterface(w);
            const QString sagt = schnittstelle ? schnittstelle->text(QAccessible::Name) : QString();
            QVERIFY2(!sagt.isEmpty() && !w->objectName().isEmpty(),
                     qPrintable(u"%1 '%2' %3"_s.arg(QString::fromLatin1(w->metaObject()->className()), w->objectName(),
                                                    w->parentWidget()->objectName())));
        }
    }

    /** Scrolling over a choice or a number changes nothing. */
    void radAendertNichts()
    {
        for (QWidget *w : m_fenster->findChildren<QWidget *>()) {
            const auto *wahl = qobject_cast<QComboBox *>(w);
            const auto *zahl = qobject_cast<QSpinBox *>(w);
            if (!w->isVisible() || (!wahl && !zahl))
                continue;
            const int vorher = wahl ? wahl->currentIndex() : zahl->value();
            for (const int weg : {-120, 120}) {
                QWheelEvent rad(QPointF(5, 5), w->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, weg), Qt::NoButton,
                                Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(w, &rad);
                QCOMPARE(wahl ? wahl->currentIndex() : zahl->value(), vorher);
            }
        }
    }

private Q_SLOTS:
    /** Thirty documents from the first look to the empty queue, every key answered by what happened to which one. */
    void dreissigDokumenteOhneMaus()
    {
        constexpr int anzahl = 30;
        QMap<QString, qint64> ids;
        for (int n = 1; n <= anzahl; ++n) {
            const QString datei = u"Scan_%1.pdf"_s.arg(n, 2, 10, QChar(u'0'));
            ids[datei] = dokument(datei, [n](Dokument &d) { d.angaben.gegenueber = u"Firma %1"_s.arg(n % 7); });
        }
        oeffnen();
        int einsortiert = 0;
        int dubletten = 0;
        int zurueckgestellt = 0;
        for (int n = 1; n <= anzahl; ++n) {
            const QString datei = u"Scan_%1.pdf"_s.arg(n, 2, 10, QChar(u'0'));
            QTRY_COMPARE(name(), datei);
            if (n % 10 == 0) {
                druecken(Qt::Key_D);
                QTRY_COMPARE(meldung(), u"Als Dublette beiseitegelegt: "_s + datei);
                ++dubletten;
            } else if (n % 7 == 0) {
                druecken(Qt::Key_Z);
                QTRY_COMPARE(meldung(), u"Zurückgestellt: "_s + datei);
                ++zurueckgestellt;
            } else {
                if (n % 4 == 0)
                    tippen("titel", u"Zudu %1"_s.arg(n)); // z, d and u are letters in a field
                if (n % 9 == 0) {
                    mitTabZu("rubrik");
                    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
                }
                const QString erwartet = neuerName();
                druecken(Qt::Key_Return);
                QTRY_COMPARE(meldung(), u"Einsortiert: "_s + erwartet);
                ++einsortiert;
            }
            if (n == 12) { // a slip: back, look around, and again
                druecken(Qt::Key_Escape);
                druecken(Qt::Key_U);
                QTRY_COMPARE(meldung(), u"Zurückgeholt: Scan_12.pdf"_s);
                QCOMPARE(name(), datei);
                druecken(Qt::Key_Right);
                QCOMPARE(name(), u"Scan_13.pdf"_s);
                druecken(Qt::Key_Left);
                QCOMPARE(name(), datei);
                druecken(Qt::Key_Return);
                QTRY_VERIFY(meldung().startsWith(u"Einsortiert: "_s));
            }
        }
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, einsortiert);
        QCOMPARE(m_z->pruefung()->zaehlwerk().aussortiert, dubletten);
        QCOMPARE(m_z->pruefung()->zaehlwerk().zurueckgestellt, zurueckgestellt);
        QCOMPARE(m_b->lesen(ids[u"Scan_08.pdf"_s]).angaben.titel, u"Zudu 8"_s);
        QCOMPARE(m_b->lesen(ids[u"Scan_09.pdf"_s]).angaben.ort.rubrik, u"Wasser"_s);
        for (const qint64 id : std::as_const(ids))
            QVERIFY(QFile::exists(m_b->lesen(id).pfad));
        // The skipped ones come again on request, and the last deed can still be taken back.
        QCOMPARE(teil<QAbstractButton>("leerknopf")->text(),
                 u"%1 Zurückgestellte wieder vorlegen"_s.arg(zurueckgestellt));
        druecken(Qt::Key_U);
        QTRY_COMPARE(name(), u"Scan_30.pdf"_s);
        druecken(Qt::Key_D);
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        mitTabZu("leerknopf");
        druecken(Qt::Key_Return);
        QTRY_COMPARE(name(), u"Scan_07.pdf"_s);
    }

    void tastenImFeld()
    {
        dokument(u"a.pdf"_s);
        dokument(u"b.pdf"_s);
        oeffnen();
        QVERIFY(tasten().startsWith(u"Eingabe übernehmen · Z zurückstellen"_s));
        tippen("datum", u"2019-05-0"_s);
        QTRY_VERIFY(tasten().endsWith(u"Eingabe übernehmen · Esc verlässt das Feld"_s));
        QCOMPARE(teil<QLabel>("wochentag")->text(), u"Bitte als JJJJ-MM-TT"_s);
        druecken(Qt::Key_Return);
        QCOMPARE(meldung(), u"Das Datum hat nicht die Form JJJJ-MM-TT"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_3);
        QCOMPARE(wochentag(), u"Freitag"_s);
        QCOMPARE(teil<QLineEdit>("jahr")->text(), u"2019"_s);
        QCOMPARE(neuerName(), u"2019-05-03 Stadtwerke - a.pdf"_s);
        QCOMPARE(teil<Textschild>("zielpfad")->ganzerText(), u"Haushalt › Jahresablage › 2019 › Strom"_s);
        // In a field Ctrl+Z takes the typing back; the arrows move the cursor.
        tippen("titel", u"Neu"_s);
        druecken(Qt::Key_Left);
        QCOMPARE(name(), u"a.pdf"_s);
        druecken(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(teil<QLineEdit>("titel")->text() != u"Neu"_s);
        // In a choice a letter chooses.
        mitTabZu("rubrik");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_W);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Wasser"_s);
        // What the analysis writes meanwhile does not move what is typed, nor the cursor in it.
        tippen("gegenueber", u"Von Hand"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        m_b->sql(u"UPDATE dokumente SET gegenueber='Modell', konfidenz=0.31"_s);
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(teil<QLabel>("konfidenz")->text(), u"31 Prozent"_s);
        QCOMPARE(teil<QLineEdit>("gegenueber")->text(), u"Von Hand"_s);
        QCOMPARE(teil<QLineEdit>("gegenueber")->cursorPosition(), 0);
        // Escape leaves the field; a key that is held down counts once.
        druecken(Qt::Key_Escape);
        QVERIFY(!qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        QKeyEvent gehalten(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, u"z"_s, true);
        QApplication::sendEvent(QApplication::focusWidget(), &gehalten);
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(name(), u"a.pdf"_s);
        // So does one whose repeats come as strokes of their own, without time between release and press.
        constexpr ulong zeit = 1000;
        QKeyEvent los(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier);
        los.setTimestamp(zeit);
        QApplication::sendEvent(QApplication::focusWidget(), &los);
        qt_sendShortcutOverrideEvent(QApplication::focusWidget(), zeit, Qt::Key_Right, Qt::NoModifier);
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
        qt_sendShortcutOverrideEvent(QApplication::focusWidget(), zeit + 80, Qt::Key_Right, Qt::NoModifier);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        druecken(Qt::Key_Left);
        druecken(Qt::Key_Return);
        QTRY_COMPARE(name(), u"b.pdf"_s);
    }

    void aufgeklappt_data()
    {
        QTest::addColumn<QString>("was");
        for (const char *was : {"zweig", "ablage", "rubrik", "menue", "kontextmenue"})
            QTest::addRow("%s", was) << QString::fromLatin1(was);
    }
    /** While anything is open over the card its keys rest, and what is open has them. */
    void aufgeklappt()
    {
        QFETCH(QString, was);
        for (const char *datei : {"a.pdf", "b.pdf", "c.pdf"})
            dokument(QString::fromLatin1(datei));
        oeffnen();
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        plattformtaste(Qt::Key_Return);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        for (const Qt::Key taste : {Qt::Key_D, Qt::Key_Z, Qt::Key_U, Qt::Key_Left, Qt::Key_Right}) {
            aufklappen(was);
            QTRY_VERIFY(QApplication::activePopupWidget());
            plattformtaste(taste);
            QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
            QCOMPARE(name(), u"b.pdf"_s);
            QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, 1);
            while (QWidget *offen = QApplication::activePopupWidget())
                offen->close();
        }
        if (!m_fenster->findChild<QComboBox *>(was))
            return;
        // Down, Return: chosen and nothing filed. Only the next Return accepts.
        aufklappen(was);
        QTRY_VERIFY(QApplication::activePopupWidget());
        plattformtaste(Qt::Key_Down);
        plattformtaste(Qt::Key_Return);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(name(), u"b.pdf"_s);
        plattformtaste(Qt::Key_Enter);
        QTRY_COMPARE(name(), u"c.pdf"_s);
    }

    /** An open list takes Return for itself, and does not outlive its document. */
    void offeneWahl()
    {
        const qint64 a = dokument(u"a.pdf"_s);
        dokument(u"b.pdf"_s);
        oeffnen();
        mitTabZu("rubrik");
        auto *rubrik = teil<QComboBox>("rubrik");
        rubrik->showPopup();
        QTRY_VERIFY(rubrik->view()->isVisible());
        QTest::keyClick(rubrik->view(), Qt::Key_Down);
        QTest::keyClick(rubrik->view(), Qt::Key_Return);
        QTRY_VERIFY(!rubrik->view()->isVisible());
        QCOMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Wasser"_s);
        rubrik->showPopup();
        QTRY_VERIFY(rubrik->view()->isVisible());
        m_b->sql(u"UPDATE dokumente SET status='erledigt' WHERE id=?"_s, {a});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QTRY_VERIFY(!rubrik->view()->isVisible());
    }

    // Keys go where a user's keys go: while the list is open Return takes a row of it and files nothing.
    void bekanntesGegenueber()
    {
        const qint64 id = dokument(u"a.pdf"_s);
        dokument(u"b.pdf"_s);
        m_b->sql(u"INSERT INTO gelernt VALUES ('stadtwerke meissen','Stadtwerke Meißen','Haushalt','Jahresablage',\n"
                 "'Wasser',3,''), ('meister bau','Meister Bau','Verein','Jahresablage','Spenden',1,''),\n"
                 "('caf rose','Café Rosé','Verein','Jahresablage','Spenden',1,'')"_s);
        oeffnen();
        const auto angaben = [&] { return m_z->pruefung()->aktuelles()->angaben; };
        const Ort vorher = angaben().ort;
        mitTabZu("gegenueber");
        QTRY_COMPARE(m_z->pruefung()->bekannte().size(), 3);
        tippen("gegenueber", u"Meis"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        const auto *liste = qobject_cast<Liste *>(QApplication::activePopupWidget());
        QVERIFY(liste);
        QCOMPARE(liste->model()->rowCount(), 2);
        QCOMPARE(liste->model()->index(0, 0).data(ZweiteZeile).toString(), u"Haushalt/Jahresablage/Wasser"_s);
        // Passing over a row writes nothing into the field.
        plattformtaste(Qt::Key_Down);
        QCOMPARE(teil<QLineEdit>("gegenueber")->text(), u"Meis"_s);
        plattformtaste(Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(angaben().gegenueber, u"Meis"_s);
        QVERIFY(angaben().ort == vorher);
        tippen("gegenueber", u"cafe ro"_s); // accents need not be typed
        QTRY_VERIFY(QApplication::activePopupWidget());
        // A name of one's own stays what it is: no row was gone to.
        tippen("gegenueber", u"stadtwerke mei"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        plattformtaste(Qt::Key_Return);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        QCOMPARE(angaben().gegenueber, u"stadtwerke mei"_s);
        QVERIFY(angaben().ort == vorher);
        QVERIFY(m_b->lesen(id).status == Status::Bereit);
        tippen("gegenueber", u"stadtwerke mei"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        plattformtaste(Qt::Key_Down);
        plattformtaste(Qt::Key_Return);
        QTRY_COMPARE(angaben().gegenueber, u"Stadtwerke Meißen"_s);
        QCOMPARE(angaben().ort.rubrik, u"Wasser"_s);
        QVERIFY(m_b->lesen(id).status == Status::Bereit);
        // Another one brings its own place along, but not in the stead of what the reviewer has chosen.
        tippen("gegenueber", u"meister"_s);
        plattformtaste(Qt::Key_Down);
        plattformtaste(Qt::Key_Tab);
        QTRY_COMPARE(angaben().ort.rubrik, u"Spenden"_s);
        m_z->pruefung()->setzeFeld(Feld::Zweig, u"Haushalt"_s);
        tippen("gegenueber", u"stadtwerke mei"_s);
        plattformtaste(Qt::Key_Down);
        plattformtaste(Qt::Key_Return);
        QTRY_COMPARE(angaben().gegenueber, u"Stadtwerke Meißen"_s);
        QCOMPARE(angaben().ort.zweig, u"Haushalt"_s);
        QCOMPARE(angaben().ort.rubrik, QString());
        QVERIFY(m_b->lesen(id).status == Status::Bereit);
    }

    /** What is typed belongs to the document that was seen, or to none. */
    void tippenUndWechsel()
    {
        const qint64 a = dokument(u"a.pdf"_s);
        const qint64 b = dokument(u"b.pdf"_s);
        dokument(u"c.pdf"_s);
        oeffnen();
        // Another program takes the document away in the middle of a word.
        tippen("titel", u"Zu"_s);
        m_b->sql(u"UPDATE dokumente SET status='erledigt' WHERE id=?"_s, {a});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QCOMPARE(meldung(), u"a.pdf wartet nicht mehr auf Prüfung"_s);
        QTest::keyClicks(QApplication::focusWidget(), u"zud"_s);
        druecken(Qt::Key_Return);
        QCOMPARE(name(), u"b.pdf"_s);
        QTRY_VERIFY(m_fenster->findChild<PruefAnsicht *>()->nimmtTasten());
        // While a slow deed runs nothing can be typed that would be dropped.
        tippen("titel", u"Fertig"_s);
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        m_b->sql(u"BEGIN IMMEDIATE"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), u" zu spaet"_s);
        QCOMPARE(teil<QLineEdit>("titel")->text(), u"Fertig"_s);
        QVERIFY(m_z->ausfuehrung()->beschaeftigt());
        m_b->sql(u"COMMIT"_s);
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QCOMPARE(m_b->lesen(b).angaben.titel, u"Fertig"_s);
        tippen("titel", u"Weiter"_s);
        QCOMPARE(teil<QLineEdit>("titel")->text(), u"Weiter"_s);
        // The window waits for what is in hand, says so, and begins nothing new.
        dokument(u"d.pdf"_s);
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        m_b->sql(u"BEGIN IMMEDIATE"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!m_fenster->close());
        QCOMPARE(meldung(), u"Schließt, sobald die laufende Bewegung fertig ist …"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        m_b->sql(u"COMMIT"_s);
        QTRY_VERIFY(!m_fenster->isVisible());
        QCOMPARE(m_b->lesen(3).status, Status::Erledigt);
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
    }

    /** Two strokes of one impatient hand: the second one comes before the next document was on the screen. */
    void zuFrueh()
    {
        QMap<QString, qint64> ids;
        for (const char *datei : {"a.pdf", "b.pdf", "c.pdf"})
            ids[QString::fromLatin1(datei)] = dokument(QString::fromLatin1(datei));
        oeffnen();
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        QSignalSpy zuFrueh(m_z->ausfuehrung(), &Ausfuehrung::zuFruehGedrueckt);
        for (const Qt::Key zweite : {Qt::Key_Enter, Qt::Key_Z, Qt::Key_D, Qt::Key_unknown}) {
            const auto druecken = [&] {
                if (zweite == Qt::Key_unknown)
                    teil<QAbstractButton>("uebernehmen")->click();
                else
                    plattformtaste(zweite);
            };
            zuFrueh.clear();
            m_b->sql(u"BEGIN IMMEDIATE"_s); // the first one is not done before the second one comes
            plattformtaste(Qt::Key_Return);
            druecken(); // while the first one is being done
            connect(m_z->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this,
                    druecken, // when it is done, before it is painted
                    Qt::SingleShotConnection);
            m_b->sql(u"COMMIT"_s);
            QTRY_COMPARE(name(), u"b.pdf"_s);
            QCOMPARE(zuFrueh.size(), 2);
            QCOMPARE(tasten(), u"Zu früh: Das nächste Dokument war noch nicht zu sehen."_s);
            QTRY_VERIFY(!m_z->pruefung()->ungesehen());
            QCOMPARE(name(), u"b.pdf"_s);
            QCOMPARE(m_b->lesen(ids[u"b.pdf"_s]).status, Status::Bereit);
            TestPruefkarte::druecken(Qt::Key_U);
            QTRY_COMPARE(name(), u"a.pdf"_s);
            QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        }
        // Looking around is kept.
        plattformtaste(Qt::Key_Return);
        plattformtaste(Qt::Key_Right);
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QTRY_VERIFY(tasten().startsWith(u"Eingabe übernehmen"_s));
    }

    void schaltflaechen()
    {
        const qint64 a = dokument(u"a.pdf"_s, [](Dokument &d) {
            d.altOrdner = u"Haushalt/Jahresablage/2021/Wasser"_s;
            d.angaben.gegenueber = u"<b>Fett & Söhne</b>"_s;
        });
        const qint64 b = dokument(u"b.pdf"_s);
        m_b->sql(u"UPDATE dokumente SET aehnlich_zu=?, aehnlichkeit=0.861 WHERE id=?"_s, {b, a});
        oeffnen();
        QCOMPARE(teil<Textschild>("neuerName")->textFormat(), Qt::PlainText);
        QVERIFY(neuerName().contains(u"Fett & Söhne"_s));
        mitTabZu("altenOrtBehalten");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(teil<QComboBox>("rubrik")->currentText(), u"Wasser"_s);
        QVERIFY(tasten().contains(u"Z zurückstellen"_s)); // the button has gone, and the focus into no field
        QTest::mouseClick(teil<QAbstractButton>("partnerZeigen"), Qt::LeftButton);
        QVERIFY(m_z->pruefung()->partnerZeigen());
        QTest::mouseClick(teil<QAbstractButton>("zurueckZumDokument"), Qt::LeftButton);
        QVERIFY(!m_z->pruefung()->partnerZeigen());
        m_z->pruefung()->setzePartnerZeigen(true);
        QVERIFY(teil<QAbstractButton>("zurueckZumDokument"));
        m_z->pruefung()->setzePartnerZeigen(false);
        QVERIFY(!m_fenster->findChild<QAbstractButton *>(u"zurueckZumDokument"_s)->isVisible());
        QCOMPARE(teil<QAbstractButton>("uebernehmen")->text(), u"Übernehmen und weiter"_s);
        QTest::mouseClick(teil<QAbstractButton>("kopieren"), Qt::LeftButton);
        QCOMPARE(teil<QAbstractButton>("uebernehmen")->text(), u"Übernehmen und kopieren"_s);
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        QTest::mouseClick(teil<QAbstractButton>("uebernehmen"), Qt::LeftButton);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
        QTest::mouseClick(teil<QAbstractButton>("rueckgaengig"), Qt::LeftButton);
        QTRY_COMPARE(name(), u"a.pdf"_s);
    }

    /** No run without the model; the top bar takes Return, but not the keys. */
    void leereKarteUndKopfleiste()
    {
        oeffnen();
        QCOMPARE(teil<QLabel>("leerzeile")->text(), u"Hier gibt es noch keine Dokumente."_s);
        const qint64 a = dokument(u"a.pdf"_s, [](Dokument &d) { d.status = Status::Neu; });
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(teil<QLabel>("leerzeile")->text(), u"1 Dokument wartet darauf, gelesen zu werden."_s);
        mitTabZu("leerknopf");
        druecken(Qt::Key_Return);
        // What can be done about it is asked on the run card.
        QTRY_COMPARE(m_z->reiter(), Reiter::Ablauf);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"modellPruefen"_s);
        QVERIFY(!m_z->durchgang()->analyse()->laeuft());
        QCOMPARE(m_b->lesen(a).status, Status::Neu);
        m_z->setzeReiter(Reiter::Pruefen);
        auto *profil = teil<QComboBox>("aktiv");
        QTest::mouseClick(profil, Qt::LeftButton);
        QTRY_VERIFY(profil->view()->isVisible());
        QTest::keyClick(profil->view(), Qt::Key_Return);
        QTRY_VERIFY(!profil->view()->isVisible());
        QVERIFY(!profil->hasFocus());
        mitTabZu("neuesProfil");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(m_z->profilwahl()->aktiv()->name, u"Ablage 2"_s);
        QTRY_VERIFY(!m_z->profilwahl()->oeffnet());
        // Cards without a place for notices have them in the status line.
        m_z->ausfuehrung()->dublettenAusraeumen();
        QTRY_COMPARE(teil<QLabel>("lage")->text(), u"Es ist noch kein Zielordner gewählt"_s);
        m_z->setzeReiter(Reiter::Pruefen);
        QTRY_COMPARE(teil<QLabel>("lage")->text(), u"Der Modellserver ollama läuft nicht"_s);
    }

    /** The empty queue tells of what was skipped, even before what nobody has read, and brings it again. */
    void leereMitZurueckgestellten()
    {
        dokument(u"a.pdf"_s, [](Dokument &d) { d.status = Status::Zurueckgestellt; });
        dokument(u"b.pdf"_s, [](Dokument &d) { d.status = Status::Zurueckgestellt; });
        dokument(u"c.pdf"_s, [](Dokument &d) { d.status = Status::Neu; });
        Fensterprobe::oeffnen();
        m_z->setzeReiter(Reiter::Pruefen);
        QTRY_COMPARE(teil<QLabel>("leerzeile")->text(), u"2 Dokumente sind noch zurückgestellt."_s);
        QCOMPARE(teil<QAbstractButton>("leerknopf")->text(), u"2 Zurückgestellte wieder vorlegen"_s);
        mitTabZu("leerknopf");
        druecken(Qt::Key_Return);
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_z->pruefung()->zaehlwerk().bereit, 2);
        druecken(Qt::Key_U);
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().zurueckgestellt, 2);
        QCOMPARE(teil<QLabel>("leerzeile")->text(), u"2 Dokumente sind noch zurückgestellt."_s);
    }

    /** A target folder that is empty all of a sudden: asked by the keyboard, left as it was, and confirmed. */
    void zielordnerFraglich()
    {
        for (const char *datei : {"a.pdf", "b.pdf"})
            dokument(QString::fromLatin1(datei));
        oeffnen();
        druecken(Qt::Key_Return);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        const QString wurzel = m_b->profil.zielWurzel;
        QVERIFY(QDir().rename(wurzel, wurzel + u"-verlegt"_s));
        QVERIFY(QDir().mkpath(wurzel));
        for (const bool ja : {false, true}) {
            druecken(Qt::Key_Return);
            QTRY_VERIFY(suchen<QWidget>("zielfrage"));
            QCOMPARE(fokus(), u"zielStimmt-abbrechen"_s);
            QCOMPARE(name(), u"b.pdf"_s);
            if (ja)
                mitTabZu("zielStimmt");
            druecken(ja ? Qt::Key_Return : Qt::Key_Escape);
            QVERIFY(!suchen<QWidget>("zielfrage"));
            QVERIFY(QDir(wurzel).isEmpty());
            QCOMPARE(name(), u"b.pdf"_s);
        }
        druecken(Qt::Key_Return);
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, 2);
    }

    void nichtsWirdAbgeschnitten_data()
    {
        QTest::addColumn<int>("punkte");
        QTest::addColumn<QSize>("fenster");
        for (const int punkte : {9, 14, 18}) {
            for (const QSize &fenster : {QSize(1100, 600), QSize(1280, 676), QSize(1280, 860), QSize(1600, 1000)})
                QTest::addRow("%d Punkt, %d", punkte, fenster.width()) << punkte << fenster;
        }
    }
    void nichtsWirdAbgeschnitten()
    {
        QFETCH(int, punkte);
        QFETCH(QSize, fenster);
        const qint64 a =
            dokument(u"a.pdf"_s, [](Dokument &d) { d.altOrdner = u"Haushalt/Jahresablage/2021/Wasser"_s; });
        m_b->sql(u"UPDATE dokumente SET aehnlich_zu=id, konfidenz=1 WHERE id=?"_s, {a});
        const auto vorher = qScopeGuard([groesse = Stil::schriftgroesse()] { Stil::setzeSchriftgroesse(groesse); });
        Stil::setzeSchriftgroesse(Stil::groessteSchrift);
        oeffnen();
        Stil::setzeSchriftgroesse(punkte); // nothing keeps the size that it had
        m_fenster->resize(fenster);
        QTRY_COMPARE(m_fenster->size(), fenster);
        QCoreApplication::processEvents();
        const QWidget *seite = teil<QWidget>("hinweise")->parentWidget()->parentWidget();
        for (const char *name : {"neuerName", "zielpfad", "konfidenz", "altenOrtBehalten", "partnerZeigen", "titel",
                                 "zweig", "ablage", "jahr", "rubrik"}) {
            const auto *stueck = teil<QWidget>(name);
            QVERIFY2(stueck->mapTo(seite, QPoint(stueck->width(), 0)).x() <= seite->width(), name);
        }
        QVERIFY(teil<QComboBox>("rubrik")->height() <= 2 * QFontMetrics(teil<QComboBox>("rubrik")->font()).height());
    }

    void spracheImLaufenWechseln()
    {
        dokument(u"a.pdf"_s);
        m_b->sql(u"UPDATE dokumente SET fehler='Einordnung nicht möglich: kein Text'"_s);
        oeffnen();
        tippen("titel", u"Von Hand"_s);
        m_sprache->waehlen(u"en"_s);
        QCOMPARE(m_z->pruefung()->pruefhinweise().first().text, u"Cannot be classified: no text"_s);
        QTRY_VERIFY(m_fenster->centralWidget()->isVisible());
        QCOMPARE(teil<QAbstractButton>("uebernehmen")->text(), u"Accept and continue"_s);
        QCOMPARE(teil<QLineEdit>("titel")->text(), u"Von Hand"_s);
        QCOMPARE(wochentag(), u"Tuesday"_s);
        QTRY_COMPARE(teil<QLabel>("lage")->text(), u"The model server ollama is not running"_s);
        // What was said is said again, and in plain text.
        m_sprache->waehlen(u"de"_s);
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        m_z->ausfuehrung()->zuruecklegen();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QTRY_VERIFY(suchen<Textschild>("hinweis"));
        QCOMPARE(meldung(), u"Zurückgestellt: a.pdf"_s);
        m_sprache->waehlen(u"en"_s);
        QTRY_VERIFY(suchen<Textschild>("hinweis"));
        QCOMPARE(meldung(), u"Skipped: a.pdf"_s);
        QFile eigene(Sprache::eigenerOrdner() + u"/eigene.json"_s);
        QVERIFY(eigene.open(QIODevice::WriteOnly));
        eigene.write("{\"Vorschlag\": \"<b>V</b>\"}");
        eigene.close();
        m_z->ausfuehrung()->tatZuruecknehmen();
        QTRY_COMPARE(name(), u"a.pdf"_s);
        m_sprache->waehlen(u"eigene"_s);
        QTRY_VERIFY(m_fenster->centralWidget()->isVisible());
        QCOMPARE(wochentag(), u"Dienstag"_s);
        for (const QLabel *schild : m_fenster->findChildren<QLabel *>()) {
            if (schild->isVisible())
                QCOMPARE(schild->textFormat(), Qt::PlainText);
        }
        // A file that is edited is read again; a broken one says so in the choice.
        QVERIFY(eigene.open(QIODevice::WriteOnly));
        eigene.write("{\"Übernehmen und weiter\": \"Los\"}");
        eigene.close();
        const auto *los = suchen<QAbstractButton>("uebernehmen");
        QTRY_VERIFY((los = suchen<QAbstractButton>("uebernehmen")) && los->text() == u"Los"_s);
        QFile kaputt(Sprache::eigenerOrdner() + u"/zz.json"_s);
        QVERIFY(kaputt.open(QIODevice::WriteOnly));
        kaputt.close();
        auto *menue = m_fenster->findChild<QMenu *>(u"sprache"_s);
        Q_EMIT menue->aboutToShow();
        const auto *zz = menue->findChild<QAction *>(u"sprache-zz"_s);
        QVERIFY(zz && !zz->isEnabled() && zz->text() == u"ZZ – Die Datei lässt sich nicht lesen"_s);
        QVERIFY(eigene.remove() && kaputt.remove());
        m_sprache->waehlen(u"de"_s);
        QTRY_VERIFY(m_fenster->centralWidget()->isVisible());
        QCOMPARE(teil<QAbstractButton>("uebernehmen")->text(), u"Übernehmen und weiter"_s);
    }

    /** What a help text says is the description too, and follows it. */
    void hilfenSindBeschreibungen()
    {
        dokument(u"a.pdf"_s);
        oeffnen();
        QVERIFY(teil<QWidget>("dateiname")->toolTip().startsWith(u"So heißt die Datei heute"_s));
        const auto *zurueck = teil<QAbstractButton>("rueckgaengig");
        const QString vorher = zurueck->toolTip();
        QCOMPARE(zurueck->accessibleDescription(), vorher);
        druecken(Qt::Key_Z);
        QTRY_VERIFY(zurueck->toolTip() != vorher);
        for (const Reiter reiter : alleReiter()) {
            m_z->setzeReiter(reiter);
            QCoreApplication::processEvents();
            for (const QWidget *w : m_fenster->findChildren<QWidget *>()) {
                if (w->isVisible() && (w->focusPolicy() & Qt::TabFocus) && !w->toolTip().isEmpty())
                    QVERIFY2(w->accessibleDescription().contains(w->toolTip()), qPrintable(w->objectName()));
            }
        }
        m_z->setzeReiter(Reiter::Ablauf);
        QCoreApplication::processEvents();
        QCOMPARE(teil<QWidget>("stufe-1")->accessibleName(), u"Bestand aufnehmen"_s);
        QCOMPARE(teil<QWidget>("zahl-1")->accessibleName(), u"0 bereit zur Prüfung"_s);
    }

    /** Nothing can have the focus without a name, in any card; Tab goes the way of the eye. */
    void jedesBedienelementHatEinenNamen()
    {
        const qint64 a = dokument(u"a.pdf"_s);
        oeffnen();
        for (const Reiter reiter : alleReiter()) {
            m_z->setzeReiter(reiter);
            QCoreApplication::processEvents();
            for (const Abschnitt abschnitt : alleAbschnitte()) {
                m_z->einrichtung()->setzeAbschnitt(abschnitt);
                benannt();
                radAendertNichts();
            }
        }
        m_z->setzeReiter(Reiter::Pruefen);
        // Notes that come later stand in the row of the Tab key where they are seen.
        m_b->sql(u"UPDATE dokumente SET alt_ordner='Haushalt/Jahresablage/2021/Wasser', aehnlich_zu=? WHERE id=?"_s,
                 {dokument(u"b.pdf"_s), a});
        m_z->pruefung()->aktualisieren();
        QTRY_VERIFY(m_fenster->findChild<QAbstractButton *>(u"partnerZeigen"_s));
        QPoint vorher(0, 0);
        mitTabZu("teilung");
        for (const char *feld : {"altenOrtBehalten", "partnerZeigen", "datum", "gegenueber", "titel", "zweig", "ablage",
                                 "jahr", "rubrik", "uebernehmen"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->objectName(), QLatin1String(feld));
            const QPoint hier = QApplication::focusWidget()->mapToGlobal(QPoint(0, 0));
            QVERIFY2(hier.y() > vorher.y() || (hier.y() == vorher.y() && hier.x() > vorher.x()), feld);
            vorher = hier;
        }
        for (QLabel *schild : m_fenster->findChildren<QLabel *>()) {
            if (schild->isVisible() && schild->textFormat() == Qt::AutoText && !schild->buddy())
                QVERIFY2(!Qt::mightBeRichText(schild->text()), qPrintable(schild->text()));
        }
    }
};

QTEST_MAIN(TestPruefkarte)
#include "test_pruefkarte.moc"
