#include "abschnitte.h"
#include "einrichtung.h"
#include "einstellungen.h"
#include "fensterprobe.h"
#include "kleiderordnung.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "scanwache.h"
#include "stil.h"
#include "textschild.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QHash>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::einrichtung;

/** The sections of the setup card, row by row as their tables have them, with real keys and the mouse. */
class TestAbschnitte : public Fensterprobe
{
    Q_OBJECT

private:
    [[nodiscard]] const Profil &profil() const { return *m_z->profilwahl()->aktiv(); }
    void aendern(const std::function<void(Profil &)> &aenderung)
    {
        Profil neu = profil();
        aenderung(neu);
        m_z->profilwahl()->setzeProfil(neu);
    }
    static void tippen(QWidget *eingabe, const QString &text)
    {
        eingabe->setFocus(Qt::TabFocusReason);
        QTest::keyClick(eingabe, Qt::Key_A, Qt::ControlModifier);
        for (const QString &zeile : text.split(u'\n')) {
            QTest::keyClicks(eingabe, zeile);
            if (!text.endsWith(zeile))
                QTest::keyClick(eingabe, Qt::Key_Return);
        }
    }
    [[nodiscard]] QList<Abschnittszeile> zeilen(Abschnitt abschnitt)
    {
        m_z->einrichtung()->setzeAbschnitt(abschnitt);
        return abschnittszeilen(abschnitt, m_z.get(), m_sprache.get());
    }

    // One for each kind of field: what the profile has is shown, what is entered is stored.
    void pruefen(const Abschnittszeile &, std::monostate) {}
    void pruefen(const Abschnittszeile &, Feld::Titel) {}
    void pruefen(const Abschnittszeile &, const Feld::Eigenes &) {}
    void textPruefen(const Abschnittszeile &z, QString Profil::*feld, const QString &getippt,
                     const QString &gespeichert)
    {
        auto *eingabe = teil<QLineEdit>(z.name);
        aendern([&](Profil &p) { p.*feld = u"vorher"_s; });
        QCOMPARE(eingabe->text(), u"vorher"_s);
        tippen(eingabe, getippt);
        QCOMPARE(profil().*feld, gespeichert);
        QCOMPARE(eingabe->text(), getippt); // for as long as it is typed
        druecken(Qt::Key_Tab);
        QCOMPARE(eingabe->text(), gespeichert);
    }
    void pruefen(const Abschnittszeile &z, const Feld::Text &art)
    {
        textPruefen(z, art.feld, u" Neu "_s, u"Neu"_s);
        if (!art.mangel)
            return;
        auto *eingabe = teil<QLineEdit>(z.name);
        tippen(eingabe, u"a/b"_s);
        QCOMPARE(profil().*art.feld, u"a"_s);
        QCOMPARE(gesagt(z), art.mangel(u"a/b"_s));
        druecken(Qt::Key_Tab);
        QCOMPARE(eingabe->text(), u"a"_s);
        QCOMPARE(gesagt(z), z.hilfe);
    }
    void pruefen(const Abschnittszeile &z, const Feld::Ordner &art)
    {
        textPruefen(z, art.feld, u"~/nirgends "_s, QDir::homePath() + u"/nirgends"_s);
        QVERIFY(teil<QAbstractButton>(z.name + u"-waehlen"_s)->isEnabled());
    }
    void pruefen(const Abschnittszeile &z, const Feld::Vorlage &art)
    {
        textPruefen(z, art.feld, u"{zweig} "_s, u"{zweig} "_s);
        for (const Baustein baustein : art.bausteine)
            klicken(z.name + u'-' + bausteinWort(baustein));
        QVERIFY((profil().*art.feld).endsWith(u'{' + bausteinWort(art.bausteine.last()) + u'}'));
    }
    void pruefen(const Abschnittszeile &z, const Feld::Zeilen &art)
    {
        auto *eingabe = teil<QPlainTextEdit>(z.name);
        aendern([&](Profil &p) { p.*art.feld = {u"a"_s, u"b"_s}; });
        QCOMPARE(eingabe->toPlainText(), u"a\nb"_s);
        tippen(eingabe, u"eins\n \nzwei"_s);
        QCOMPARE(profil().*art.feld, (QStringList{u"eins"_s, u"zwei"_s}));
        QCOMPARE(eingabe->toPlainText(), u"eins\n \nzwei"_s);
        druecken(Qt::Key_Tab);
    }
    void pruefen(const Abschnittszeile &z, const Feld::Kaestchen &art)
    {
        auto *kaestchen = teil<QAbstractButton>(z.name);
        aendern([&](Profil &p) { p.*art.feld = false; });
        QVERIFY(!kaestchen->isChecked());
        kaestchen->click();
        QVERIFY(profil().*art.feld && kaestchen->isChecked());
    }
    void pruefen(const Abschnittszeile &z, const Feld::Paar &art)
    {
        auto *nein = teil<QAbstractButton>(z.name + u'-' + art.nein.name);
        auto *ja = teil<QAbstractButton>(z.name + u'-' + art.ja.name);
        aendern([&](Profil &p) { p.*art.feld = true; });
        QVERIFY(ja->isChecked() && !nein->isChecked());
        nein->click();
        QVERIFY(!(profil().*art.feld) && !ja->isChecked());
    }
    void pruefen(const Abschnittszeile &z, const Feld::Zahl &art)
    {
        auto *eingabe = teil<QSpinBox>(z.name);
        aendern([&](Profil &p) { p.*art.feld = art.groesste + 1; }); // from a file
        QCOMPARE(eingabe->value(), art.groesste + 1);
        tippen(eingabe, u"7"_s);
        QCOMPARE(profil().*art.feld, 7);
    }
    void pruefen(const Abschnittszeile &z, const Feld::Wahl &art)
    {
        auto *wahl = teil<QComboBox>(z.name);
        aendern([&](Profil &p) { p.*art.feld = u"fremd"_s; });
        QCOMPARE(wahl->currentData().toString(), u"fremd"_s); // whatever else there is
        wahl->setFocus();
        druecken(Qt::Key_Down);
        QCOMPARE(profil().*art.feld, wahl->currentData().toString());
        QVERIFY(profil().*art.feld != u"fremd"_s);
    }
    void pruefen(const Abschnittszeile &z, const Feld::Modell &art)
    {
        auto *wahl = teil<QComboBox>(z.name);
        aendern([&](Profil &p) { p.*art.feld = u"vorher:1b"_s; });
        QCOMPARE(wahl->currentText(), u"vorher:1b"_s);
        tippen(wahl->lineEdit(), u"neu:1b"_s);
        QCOMPARE(profil().*art.feld, u"vorher:1b"_s); // each letter would be another model
        druecken(Qt::Key_Return);
        QCOMPARE(profil().*art.feld, u"neu:1b"_s);
        tippen(wahl->lineEdit(), u"neu:cloud"_s);
        druecken(Qt::Key_Return);
        QCOMPARE(profil().*art.feld, u"neu:1b"_s);
        QCOMPARE(gesagt(z), art.befund(m_z->einrichtung()->lage(), u"neu:cloud"_s).satz);
        druecken(Qt::Key_Tab);
        QCOMPARE(wahl->currentText(), u"neu:1b"_s);
    }

    [[nodiscard]] static QString gesagt(const Abschnittszeile &z)
    {
        const bool allein = std::holds_alternative<std::monostate>(z.feld);
        const auto *text = suchen<Textschild>(allein ? z.name : z.name + u"-stand"_s);
        return text ? text->ganzerText() : QString();
    }

    /** What stands beside @p teil is that high by itself; 0 without anything beside it. */
    static int hoechsterNachbar(const QWidget *teil)
    {
        int hoehe = 0;
        for (const auto *neben : teil->parentWidget()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            const QRect da = neben->geometry();
            if (neben != teil && neben->isVisible() && da.top() <= teil->y() + teil->height() / 2 &&
                da.bottom() >= teil->y() + teil->height() / 2)
                hoehe = std::max(hoehe, neben->sizeHint().height());
        }
        return hoehe;
    }

private Q_SLOTS:
    void jedeZeile_data()
    {
        QTest::addColumn<Abschnitt>("abschnitt");
        for (const Abschnitt abschnitt : alleAbschnitte())
            QTest::newRow(qPrintable(rohwert(abschnitt))) << abschnitt;
    }
    void jedeZeile()
    {
        QFETCH(Abschnitt, abschnitt);
        m_b->profil.zielWurzel = m_b->ordner();
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        QTRY_VERIFY(m_z->einrichtung()->stand().programme);
        for (const Abschnittszeile &z : zeilen(abschnitt)) {
            teil<QWidget>("abschnitte")->setFocus(); // nothing is being typed
            std::visit([&](const auto &art) { pruefen(z, art); }, z.feld);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(z.name));
            const QString satz = z.befund ? z.befund(m_z->einrichtung()->lage()).satz : QString();
            QVERIFY2(satz.isEmpty() || gesagt(z) == satz, qPrintable(z.name));
            const bool ohneFeld = z.name.isEmpty() || std::holds_alternative<Feld::Titel>(z.feld);
            if (const auto *feld = ohneFeld || z.hilfe.isEmpty() ? nullptr : suchen<QWidget>(z.name))
                QCOMPARE(feld->accessibleDescription(), z.hilfe);
        }
        QTRY_COMPARE(Profilspeicher::laden().first(), profil());
    }

    /** The choice is no key of the profile; what is said follows what the watch sees. */
    void neueScans()
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        const Abschnittszeile z = zeilen(Abschnitt::Herkunft).at(3);
        QCOMPARE(z.name, u"neueScans"_s);
        QVERIFY(!teil<QAbstractButton>(z.name)->isChecked());
        QVERIFY(gesagt(z).startsWith(u"Solange das Fenster offen ist"_s));
        const Profil vorher = profil();
        teil<QAbstractButton>(z.name)->click();
        QVERIFY(m_z->scanwache()->stand().an && teil<QAbstractButton>(z.name)->isChecked());
        QCOMPARE(gesagt(z), u"Wartet auf neue Scans."_s);
        QVERIFY(QFile(m_b->quelle(u"a.pdf"_s)).open(QIODevice::WriteOnly));
        QTRY_COMPARE(gesagt(z), u"1 neuer Scan ist gekommen."_s);
        teil<QAbstractButton>(z.name)->click();
        QVERIFY(!m_z->scanwache()->stand().an);
        QCOMPARE(profil(), vorher);
    }

    /** Entered and taken out by keys alone; where nothing is excluded there is nothing to take out. */
    void ausnahmen()
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Herkunft);
        QVERIFY(!suchen<QWidget>("ausnahmen") && !suchen<QWidget>("ausnahmeEntfernen"));
        for (const QString &regel : {u"Fotos"_s, u"privat/2019"_s}) {
            tippen(teil<QLineEdit>("neueAusnahme"), regel);
            druecken(Qt::Key_Return);
        }
        QCOMPARE(profil().ausnahmen, (QStringList{u"Fotos"_s, u"privat/2019"_s}));
        QVERIFY(!teil<QAbstractButton>("ausnahmeEntfernen")->isEnabled());
        mitTabZu("ausnahmen");
        druecken(Qt::Key_End);
        plattformtaste(Qt::Key_Delete);
        QCOMPARE(profil().ausnahmen, QStringList{u"Fotos"_s});
        plattformtaste(Qt::Key_Delete); // the one that is left is chosen
        QCOMPARE(profil().ausnahmen, QStringList());
        QCOMPARE(fokus(), u"abschnitte"_s); // not the button that starts a run
        QVERIFY(!suchen<QWidget>("ausnahmen") && !suchen<QWidget>("ausnahmeEntfernen"));
    }

    /** What was learned is forgotten row by row or all at once; the last key does not start a run. */
    void gelerntes()
    {
        m_b->sql(u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl) VALUES "
                 "('bank','Bank','Haushalt','Stammdaten','Verträge',3),('stadt','Stadt','Verein','','',1)"_s);
        m_b->sql(u"INSERT INTO namen (von, nach, anzahl) VALUES ('alt','Neu',2)"_s);
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Gelernt);
        const auto &stand = m_z->einrichtung()->stand().gelerntes;
        QTRY_COMPARE(stand.zuordnungen.size(), 2);
        mitTabZu("gelernt");
        QTRY_VERIFY(teil<QAbstractButton>("gelernt-vergessen")->isEnabled());
        mitTabZu("gelernt-vergessen");
        for (const int uebrig : {1, 0}) {
            QCOMPARE(fokus(), u"gelernt-vergessen"_s);
            druecken(Qt::Key_Space);
            QTRY_COMPARE(stand.zuordnungen.size(), uebrig);
        }
        QTRY_COMPARE(fokus(), u"abschnitte"_s);
        klicken("allesVergessen");
        QCOMPARE(fokus(), u"allesVergessenJa-abbrechen"_s);
        klicken("allesVergessenJa");
        QTRY_VERIFY(stand == Lernstand());
        QCOMPARE(fokus(), u"abschnitte"_s);
    }

    /** What was chosen from leaves no gaps behind, and no list cut off. */
    void nachDerAuswahlLiegtAllesWieVorher()
    {
        const QString ordner = m_b->ziel(u"Haushalt/Jahresablage/2024/Strom"_s);
        QDir().mkpath(ordner);
        for (int n = 0; n < 12; ++n) {
            const QString name = u"Werk "_s + QChar(u'A' + n);
            QVERIFY(QFile(ordner + u"/2024-01-31 %1 - Brief.pdf"_s.arg(name)).open(QIODevice::WriteOnly));
            m_b->sql(u"INSERT INTO gelernt VALUES (?,?,'Haushalt','Jahresablage','Wasser',3,'')"_s,
                     {name.toLower(), name});
        }
        oeffnen();
        m_fenster->resize(1200, 620); // the section scrolls, and its sentences wrap
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Gelernt);
        const auto lagen = [this] {
            QHash<QWidget *, QRect> alle;
            for (auto *zeile :
                 teil<QWidget>("abschnitt-gelernt")->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
                if (zeile->isVisible())
                    alle.insert(zeile, zeile->geometry());
            }
            return alle;
        };
        const auto volleZeilen = [this] {
            const auto *liste = suchen<QListView>("gelernt"); // comes when what was learned has been read
            return liste && liste->height() == 8 * liste->sizeHintForRow(0);
        };
        QTRY_VERIFY(volleZeilen());
        mitTabZu("ausAblageLernen");
        QCoreApplication::processEvents();
        const auto vorher = lagen();
        druecken(Qt::Key_Space);
        QTRY_COMPARE(fokus(), u"fund"_s);
        QTRY_VERIFY(volleZeilen());
        druecken(Qt::Key_Escape);
        QTRY_VERIFY(lagen() == vorher);
    }

    /** From the button to what was learned and back, by keys alone; the focus is always where one goes on. */
    void ausDerAblage()
    {
        const auto ablegen = [this](const QString &gegenueber, int anzahl) {
            const QString ordner = m_b->ziel(u"Haushalt/Jahresablage/2024/Strom"_s);
            QDir().mkpath(ordner);
            for (int n = 0; n < anzahl; ++n)
                QVERIFY(QFile(ordner + u"/2024-01-31 %1 - Brief %2.pdf"_s.arg(gegenueber).arg(n))
                            .open(QIODevice::WriteOnly));
        };
        ablegen(u"Elbtal Energie"_s, 3);
        ablegen(u"Sparkasse"_s, 2);
        ablegen(u"DKB"_s, 2); // its key is too short
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Gelernt);
        const Ablagelernen &ablage = *m_z->einrichtung()->ablagelernen();
        QVERIFY(!suchen<QWidget>("fund") && !suchen<QWidget>("ausAblageZuruecknehmen"));
        mitTabZu("ausAblageLernen");
        druecken(Qt::Key_Space);
        QTRY_COMPARE(fokus(), u"fund"_s);
        QCOMPARE(teil<Textschild>("fund-anzahl")->ganzerText(), u"Angekreuzt: 2 von 3"_s);
        druecken(Qt::Key_Escape);
        QCOMPARE(fokus(), u"ausAblageLernen"_s);
        QVERIFY(!suchen<QWidget>("fund"));
        druecken(Qt::Key_Space);
        QTRY_COMPARE(fokus(), u"fund"_s);
        druecken(Qt::Key_Space); // the first row
        QCOMPARE(teil<Textschild>("fund-anzahl")->ganzerText(), u"Angekreuzt: 1 von 3"_s);
        auto *liste = teil<QListView>("fund");
        const auto haken = [liste](const QString &name) {
            const QModelIndex zeile =
                liste->model()->match(liste->model()->index(0, 0), Qt::DisplayRole, name).value(0);
            return QPair(liste->visualRect(zeile).topLeft() + QPoint(10, 10), zeile.data(Qt::CheckStateRole).toInt());
        };
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, haken(u"DKB"_s).first);
        QCOMPARE(haken(u"DKB"_s).second, int(Qt::Unchecked));
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, haken(u"Elbtal Energie"_s).first);
        QCOMPARE(haken(u"Elbtal Energie"_s).second, int(Qt::Checked));
        tippen(teil<QLineEdit>("fundSuche"), u"spar"_s);
        QCOMPARE(liste->model()->rowCount(), 1);
        klicken("fundKeine"); // of what is shown
        QCOMPARE(teil<Textschild>("fund-anzahl")->ganzerText(), u"Angekreuzt: 1 von 3"_s);
        teil<QLineEdit>("fundSuche")->setFocus();
        druecken(Qt::Key_Escape);
        QCOMPARE(liste->model()->rowCount(), 3);
        druecken(Qt::Key_Return);
        QCOMPARE(fokus(), u"fund"_s);
        QCOMPARE(ablage.lage(), Ablagelernen::Lage::Auswahl);
        druecken(Qt::Key_Return);
        QTRY_COMPARE(ablage.lage(), Ablagelernen::Lage::Ruht);
        QCOMPARE(fokus(), u"ausAblageLernen"_s);
        QTRY_VERIFY(suchen<QWidget>("ausAblageZuruecknehmen"));
        QCOMPARE(m_z->einrichtung()->stand().gelerntes.orte.size(), 1);
        mitTabZu("ausAblageZuruecknehmen");
        druecken(Qt::Key_Space);
        QTRY_VERIFY(m_z->einrichtung()->stand().gelerntes == Lernstand());
        QTRY_VERIFY(!suchen<QWidget>("ausAblageZuruecknehmen"));
        QCOMPARE(fokus(), u"ausAblageLernen"_s);
        // In another language what was found and ticked is still there.
        druecken(Qt::Key_Space);
        QTRY_COMPARE(fokus(), u"fund"_s);
        druecken(Qt::Key_Space);
        m_sprache->waehlen(u"en"_s);
        QTRY_VERIFY(suchen<Textschild>("fund-anzahl") &&
                    suchen<Textschild>("fund-anzahl")->ganzerText() == u"Ticked: 1 of 3"_s);
        QVERIFY(teil<Textschild>("ausAblage-stand")->ganzerText().contains(u"Tick what"_s));
        QCOMPARE(teil<QListView>("fund")->model()->rowCount(), 3);
    }

    /** Whatever the card was made for, every sentence of it has the height that it needs when it comes up. */
    void hoeheDerSaetze_data()
    {
        QTest::addColumn<double>("punkte");
        QTest::newRow("klein") << 10.0;
        QTest::newRow("gross") << 18.0;
    }
    void hoeheDerSaetze()
    {
        QFETCH(const double, punkte);
        schriftgroesseWaehlen(punkte);
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        m_fenster->resize(1100, 700);
        m_fenster->close();
        m_z.reset();
        m_fenster.reset();
        oeffnen(); // at this size from the beginning, with another card in front
        QTRY_COMPARE(m_z->reiter(), Reiter::Pruefen);
        QCOMPARE(m_fenster->size(), QSize(1100, 700));
        m_fenster->resize(1120, 700);
        m_z->setzeReiter(Reiter::Einrichtung);
        for (const Abschnitt abschnitt : alleAbschnitte()) {
            m_z->einrichtung()->setzeAbschnitt(abschnitt);
            QTest::qWait(50); // what is asked for in between would take the height away
            const auto *seite = teil<QWidget>(u"abschnitt-"_s + rohwert(abschnitt));
            for (const auto *text : seite->findChildren<Textschild *>()) {
                const auto zuviel = [text] { return text->height() - text->heightForWidth(text->width()); };
                const auto passt = [&] {
                    return zuviel() >= 0 && (zuviel() < text->fontMetrics().height() ||
                                             text->height() == hoechsterNachbar(text)); // as high as its row
                };
                if (text->isVisible() && text->wordWrap())
                    QTRY_VERIFY2(passt(), qPrintable(text->ganzerText()));
            }
            QTRY_VERIFY(seite->height() >= seite->layout()->totalHeightForWidth(seite->width()));
        }
        Einstellungen::entfernen(u"schriftgroesse"_s);
        Stil::setzeSchriftgroesse(10);
    }

    /** What is known changes while nobody touches the card, and while another section is shown. */
    void folgtDemZustand()
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Ziel);
        aendern([](Profil &p) { p.auffangOrdner = u"später"_s; });
        QCOMPARE(teil<QLineEdit>("auffangOrdner")->text(), u"später"_s);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Eigentuemer);
        aendern([](Profil &p) { p.auffangOrdner = u"noch später"_s; });
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Ziel);
        QCOMPARE(teil<QLineEdit>("auffangOrdner")->text(), u"noch später"_s);
        // What was typed for one profile is not meant for another.
        tippen(teil<QLineEdit>("auffangOrdner"), u"a/b"_s);
        m_z->profilwahl()->neuesProfil();
        QTRY_COMPARE(teil<QLineEdit>("auffangOrdner")->text(), Profil().auffangOrdner);
    }
};

QTEST_MAIN(TestAbschnitte)
#include "test_abschnitte.moc"
