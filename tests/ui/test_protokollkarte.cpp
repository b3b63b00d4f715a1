#include "aktualisierung.h"
#include "ausfuehrung.h"
#include "bewegungsmodell.h"
#include "fensterprobe.h"
#include "hinweisfeld.h"
#include "infofenster.h"
#include "liste.h"
#include "meldestelle.h"
#include "ordnerwahl.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "programmordner.h"
#include "protokollbuch.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sitzungsmodell.h"
#include "sprache.h"
#include "textschild.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

/** Log card and info window on a stage of real files. */
class TestProtokollkarte : public Fensterprobe
{
    Q_OBJECT

public Q_SLOTS:
    void ordnerGeoeffnet(const QUrl &url) { m_geoeffnet << url.toLocalFile(); }

private:
    QStringList m_geoeffnet;

    void uebernehmen(int anzahl)
    {
        for (int n = 0; n < anzahl; ++n) {
            m_z->pruefung()->setzeUngesehen(false); // its card is not in front
            QTRY_VERIFY(m_z->pruefung()->aktuelles() && !m_z->ausfuehrung()->beschaeftigt());
            m_z->pruefung()->setzeUngesehen(false); // another card is on show
            m_z->ausfuehrung()->uebernehmen();
            QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        }
    }

    static bool sichtbar(const char *name) { return suchen<QWidget>(name) != nullptr; }
    static Bewegungsmodell *modell() { return static_cast<Bewegungsmodell *>(teil<Liste>("bewegungen")->model()); }
    static QString text(const char *name) { return teil<Textschild>(name)->ganzerText(); }
    /** A click on the row of a list: somewhere on its words, or on the symbol at its end. */
    static void zeileKlicken(const char *name, int zeile, bool amEnde = false)
    {
        auto *liste = teil<Liste>(name);
        const QRect flaeche = liste->visualRect(liste->model()->index(zeile, 0));
        const QPoint ort = amEnde ? QPoint(flaeche.right() - 8, flaeche.center().y()) : flaeche.center();
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, ort);
    }
    Bewegungsstand stand(int zeile)
    {
        return Bewegungsstand(modell()->index(zeile).data(Bewegungsmodell::Stand).toInt());
    }
    QString meldung() { return teil<Textschild>("rueckbauMeldung")->ganzerText(); }

    /** A log from elsewhere, of files that are not here. */
    QString fremdesProtokoll(int zeilen)
    {
        QFile datei(m_b->ordner() + u"/fremd.jsonl"_s);
        if (!datei.open(QIODevice::WriteOnly))
            qFatal("not written");
        Protokollkopf kopf = Protokollkopf::fuer(m_b->profil);
        kopf.rechner = u"anderswo"_s;
        kopf.quelle = u"/fremd/Scans"_s;
        datei.write(kopf.json() + '\n');
        for (int n = 0; n < zeilen; ++n)
            datei.write(Protokollzeile{.zeit = u"2025-01-31T14:05:09Z"_s,
                                       .aktion = u"einsortiert"_s,
                                       .dokument = 0,
                                       .von = u"/fremd/Scans/Scan_%1.pdf"_s.arg(n),
                                       .nach = u"/fremd/Ablage/Haushalt/Jahresablage/Brief %1.pdf"_s.arg(n),
                                       .altStatus = u"bereit"_s,
                                       .kopiert = false}
                            .json() +
                        '\n');
        return datei.fileName();
    }

private Q_SLOTS:
    void init()
    {
        Fensterprobe::init();
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nichts");
        QDesktopServices::setUrlHandler(u"file"_s, this, "ordnerGeoeffnet");
        m_geoeffnet.clear();
    }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(u"file"_s); }
    /** From the first look to the session turned back, by keys alone. */
    void sitzungZurueckdrehen()
    {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s})
            m_b->dokument(name);
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        QTRY_COMPARE(text("protokollAnzahl"), u"Im Protokollordner liegt noch nichts."_s);
        QCOMPARE(teil<QLabel>("leertitel")->text(), u"Keine Sitzung gewählt"_s);
        QVERIFY(teil<QWidget>("nochNichtsBewegt")->toolTip().startsWith(u"Die Datei entsteht erst"_s));
        QVERIFY(!teil<QAbstractButton>("sitzungZurueckdrehen")->isEnabled());
        uebernehmen(3);
        QTRY_COMPARE(fokus(), u"protokoll"_s);
        QTRY_COMPARE(text("protokollAnzahl"), u"Im Protokollordner liegt nur die laufende Sitzung."_s);
        mitTabZu("laufendeSitzung");
        druecken(Qt::Key_Return);
        QTRY_COMPARE(text("bewegungsAnzahl"), u"3 Einträge, älteste zuerst."_s);
        QTRY_COMPARE(stand(2), Bewegungsstand::AmZiel);
        QCOMPARE(modell()->index(0).data().toString(), u"Von: a.pdf"_s);
        QCOMPARE(modell()->index(0).data(ZweiteZeile).toString(),
                 u"Nach: Haushalt/Jahresablage/2023/Strom/2023-02-14 Stadtwerke - a.pdf"_s);
        // The last step goes back; what the user moved himself is not found.
        druecken(Qt::Key_U); // no letter is a key here
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
        druecken(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(stand(2), Bewegungsstand::Zurueck);
        QVERIFY(QFile::remove(modell()->zeile(1).nach));
        mitTabZu("protokolleAuffrischen");
        druecken(Qt::Key_Space);
        QTRY_COMPARE(stand(1), Bewegungsstand::Verschwunden);
        QCOMPARE(stand(0), Bewegungsstand::AmZiel);
        // Asked and left.
        mitTabZu("sitzungZurueckdrehen");
        druecken(Qt::Key_Return);
        QCOMPARE(teil<Rueckfrage>("rueckbauFrage")->findChild<Textschild *>()->ganzerText(),
                 u"3 Bewegungen werden zurückgedreht. Sicher?"_s);
        QCOMPARE(fokus(), u"rueckbauAbbrechen"_s);
        druecken(Qt::Key_Escape);
        QCOMPARE(fokus(), u"sitzungZurueckdrehen"_s);
        druecken(Qt::Key_Return);
        druecken(Qt::Key_Return); // on "Abbrechen"
        QVERIFY(!m_z->sitzungen()->rueckbauLaeuft() && QFile::exists(modell()->zeile(0).nach));
        // Asked and confirmed.
        druecken(Qt::Key_Return);
        druecken(Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(fokus(), u"jaZurueckdrehen"_s);
        druecken(Qt::Key_Return);
        QTRY_VERIFY(meldung().startsWith(u"1 zurückgeholt, 2 übersprungen"_s));
        QTRY_COMPARE(stand(0), Bewegungsstand::Zurueck);
        QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
        QVERIFY(!sichtbar("rueckbauFehler"));
        QTRY_COMPARE(fokus(), u"sitzungZurueckdrehen"_s);
        QCOMPARE(m_z->sitzungen()->rueckbauTon(), Meldestelle::Ton::Warnung);
        // Why the others are not back stands with them; the session goes on in its log.
        QTRY_COMPARE(modell()->index(1).data(Wort).toString(),
                     u"nicht gefunden: Die Datei liegt nicht mehr am Zielort"_s);
        QVERIFY(m_z->sitzungen()->laufendesBuch() && !sichtbar("nochNichtsBewegt"));
        m_sprache->waehlen(u"en"_s);
        QCOMPARE(m_z->sitzungen()->rueckbauMeldung(), u"1 brought back, 2 passed over"_s);
    }

    /** The button is off while it works: the focus goes to the card, not to what lies next to it in the row of keys. */
    void fokusBleibtAufDerKarte()
    {
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s})
            m_b->dokument(name);
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        uebernehmen(2);
        mitTabZu("letztenSchrittZurueck");
        druecken(Qt::Key_Return);
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().erledigt, 1);
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(fokus(), u"laufendeSitzung"_s);
    }

    /** A failure stands below, with its reason, and at its movement. */
    void wasSichNichtZurueckdrehenLiess()
    {
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        uebernehmen(1);
        m_z->setzeReiter(Reiter::Protokoll);
        m_z->sitzungen()->protokollWaehlen(m_z->sitzungen()->laufendesBuch()->datei());
        QTRY_COMPARE(modell()->rowCount(), 1);
        QVERIFY(QDir(m_b->profil.quelle).removeRecursively());
        QFile sperre(m_b->profil.quelle); // where the old folder would have to be made again
        QVERIFY(sperre.open(QIODevice::WriteOnly));
        klicken("sitzungZurueckdrehen");
        klicken("jaZurueckdrehen");
        QTRY_COMPARE(meldung(), u"0 zurückgeholt, 1 Fehler"_s);
        const QString zeile = teil<QPlainTextEdit>("rueckbauFehler")->toPlainText();
        QVERIFY2(zeile.startsWith(u"2023-02-14 Stadtwerke - a.pdf: "_s), qPrintable(zeile));
        QTRY_COMPARE(stand(0), Bewegungsstand::Fehler);
        QVERIFY(modell()->index(0).data(Qt::ToolTipRole).toString().contains(zeile.mid(zeile.indexOf(u": "_s) + 2)));
        QVERIFY(QFile::exists(modell()->zeile(0).nach));
    }

    /** Another session is another question; whatever is chosen, it is that one which is shown. */
    void fruehereUndFremdeSitzungen()
    {
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        uebernehmen(1);
        const QString eigene = m_z->sitzungen()->laufendesBuch()->datei();
        m_z.reset();
        m_fenster.reset();
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        QTRY_COMPARE(text("protokollAnzahl"), u"1 Protokoll gefunden."_s);
        QCOMPARE(teil<Liste>("sitzungen")->model()->index(0, 0).data(Marke).toInt(), int(Symbol::Offen));
        zeileKlicken("sitzungen", 0);
        QTRY_COMPARE(modell()->rowCount(), 1);
        QCOMPARE(teil<Liste>("sitzungen")->model()->index(0, 0).data(Marke).toInt(), int(Symbol::Gewaehlt));
        QTRY_COMPARE(teil<Liste>("sitzungen")->model()->index(0, 0).data(ZweiteZeile).toString(), u"1 Bewegung"_s);
        zeileKlicken("sitzungen", 0, true);
        const QString ordner = QFileInfo(eigene).path(); // there is no file manager on the bus
        QTRY_COMPARE(m_geoeffnet, QStringList{ordner});
        klicken("finden");
        QTRY_COMPARE(m_geoeffnet, (QStringList{ordner, ordner}));
        klicken("sitzungZurueckdrehen");
        Ordnerwahl::protokollwaehler = [this](const QString &, const QString &) { return fremdesProtokoll(2); };
        klicken("protokollOeffnen");
        QVERIFY(!sichtbar("rueckbauFrage"));
        QTRY_COMPARE(modell()->rowCount(), 2);
        QVERIFY(teil<QWidget>("sitzungskopf")->findChild<Textschild *>());
        QCOMPARE(m_z->sitzungen()->protokollKopf()->rechner, u"anderswo"_s);
        QCOMPARE(teil<Textschild>("sitzungstitel")->ganzerText(), u"Sitzung aus fremd.jsonl"_s);
        QTRY_COMPARE(stand(1), Bewegungsstand::Verschwunden);
        klicken("sitzungZurueckdrehen");
        klicken("jaZurueckdrehen");
        QTRY_VERIFY(meldung().startsWith(u"0 zurückgeholt, 2 übersprungen"_s));
        // What is no log has neither header nor movements, and nothing to turn back.
        Ordnerwahl::protokollwaehler = [this](const QString &, const QString &) { return m_b->ziel(u"Haushalt"_s); };
        klicken("protokollOeffnen");
        QTRY_COMPARE(text("bewegungsAnzahl"), u"In dieser Datei steht keine lesbare Bewegung."_s);
        QVERIFY(!teil<QAbstractButton>("sitzungZurueckdrehen")->isEnabled());
    }

    /** Of a hundred thousand movements only those are looked at on the disk that somebody sees. */
    void hunderttausendBewegungen()
    {
        constexpr int viele = 100'000;
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        const QString datei = fremdesProtokoll(viele);
        QElapsedTimer uhr;
        qint64 laengste = 0;
        QTimer schlag;
        connect(&schlag, &QTimer::timeout, this, [&] { laengste = std::max(laengste, uhr.restart()); });
        uhr.start();
        schlag.start(0);
        m_z->sitzungen()->protokollWaehlen(datei);
        QTRY_COMPARE_WITH_TIMEOUT(modell()->rowCount(), viele, 60'000);
        QTRY_COMPARE(stand(0), Bewegungsstand::Verschwunden);
        teil<Liste>("bewegungen")->scrollToBottom();
        QTRY_COMPARE(stand(viele - 1), Bewegungsstand::Verschwunden);
        QCOMPARE(stand(viele / 2), Bewegungsstand::Unbekannt);
        qInfo("longest turn of the event loop: %lld ms", static_cast<long long>(laengste));
    }

    /** A hundred thousand sessions: those in view are read, and told apart by the second where they must be. */
    void hunderttausendSitzungen()
    {
        constexpr int viele = 100'000;
        const QString ordner = m_b->profil.protokollURL().value();
        QVERIFY(QDir().mkpath(ordner));
        for (const int sekunde : {3, 7}) {
            QFile datei(ordner + u"/Protokoll 2025-01-31 14050%1.jsonl"_s.arg(sekunde));
            QVERIFY(datei.open(QIODevice::WriteOnly));
            Protokollkopf kopf = Protokollkopf::fuer(m_b->profil);
            kopf.zeit = u"2025-01-31T14:05:0%1"_s.arg(sekunde);
            datei.write(kopf.json() + '\n');
        }
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        QTRY_COMPARE(text("protokollAnzahl"), u"2 Protokolle gefunden, neueste zuerst."_s);
        auto *liste = teil<Liste>("sitzungen");
        QTRY_COMPARE(liste->model()->index(0, 0).data().toString(), u"31. Januar 2025, 14:05:07"_s);
        QCOMPARE(liste->model()->index(1, 0).data().toString(), u"31. Januar 2025, 14:05:03"_s);
        QVERIFY(QFile::remove(ordner + u"/Protokoll 2025-01-31 140503.jsonl"_s));
        klicken("protokolleAuffrischen");
        QTRY_COMPARE(liste->model()->rowCount(), 1);
        QTRY_COMPARE(liste->model()->index(0, 0).data().toString(), u"31. Januar 2025, 14:05"_s);
        QStringList dateien;
        for (int n = 0; n < viele; ++n)
            dateien << ordner + u"/Protokoll %1.jsonl"_s.arg(n);
        auto *modell = static_cast<Sitzungsmodell *>(liste->model());
        modell->setzen(dateien);
        QTRY_COMPARE(modell->index(0, 0).data(ZweiteZeile).toString(), u"0 Bewegungen"_s);
        liste->scrollToBottom();
        QTRY_COMPARE(modell->index(viele - 1, 0).data(ZweiteZeile).toString(), u"0 Bewegungen"_s);
        QVERIFY(modell->index(viele / 2, 0).data(ZweiteZeile).toString().isEmpty());
        QVERIFY2(liste->viewport()->findChildren<QWidget *>().isEmpty(), "no widget for a row");
    }

    void protokollordner()
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Protokoll);
        QVERIFY(teil<Textschild>("protokollOrdner")->ganzerText().startsWith(u"Standard: "_s));
        const QString eigener = m_b->ordner() + u"/Logbuch"_s;
        QVERIFY(QDir().mkpath(eigener));
        QVERIFY(QFile::copy(fremdesProtokoll(1), eigener + u"/Protokoll.jsonl"_s));
        QString gefragt;
        Ordnerwahl::ordnerwaehler = [&](const QString &titel, const QString &) {
            gefragt = titel;
            return eigener;
        };
        klicken("protokollOrdnerWaehlen");
        QCOMPARE(gefragt, u"Ordner für die Sitzungsprotokolle wählen"_s);
        QCOMPARE(teil<Textschild>("protokollOrdner")->ganzerText(), u"Eigener Ort gewählt"_s);
        QTRY_COMPARE(text("protokollAnzahl"), u"1 Protokoll gefunden."_s);
        QTRY_COMPARE(Profilspeicher::laden().first().protokollOrdner, eigener);
        // A place where nothing can be written says so.
        Ordnerwahl::ordnerwaehler = [this](const QString &, const QString &) {
            return m_b->ordner() + u"/fremd.jsonl/darin"_s;
        };
        klicken("protokollOrdnerWaehlen");
        QTRY_VERIFY(sichtbar("protokollOrtWarnung"));
        klicken("protokollOrdnerStandard");
        QTRY_VERIFY(!sichtbar("protokollOrtWarnung"));
        QCOMPARE(m_z->profilwahl()->aktiv()->protokollOrdner, QString());
        QTRY_COMPARE(text("protokollAnzahl"), u"Im Protokollordner liegt noch nichts."_s);
    }

    void ohneProfil()
    {
        oeffnen(false);
        m_z->setzeReiter(Reiter::Protokoll);
        QCOMPARE(teil<QLabel>("leertitel")->text(), u"Noch kein Profil"_s);
        klicken("leerknopf");
        QCOMPARE(m_z->reiter(), Reiter::Einrichtung);
    }

    void infofenster()
    {
        oeffnen();
        auto *eintrag = m_fenster->findChild<QAction *>(u"info"_s);
        QVERIFY(eintrag);
        eintrag->trigger();
        eintrag->trigger();
        QCOMPARE(m_fenster->findChildren<Infofenster *>().size(), 1);
        auto *info = m_fenster->findChild<Infofenster *>();
        QVERIFY(info->isVisible() && !info->isModal());
        QCOMPARE(teil<QLabel>("fassung")->text(), u"Version "_s + Aktualisierung::eigeneFassung());
        for (QWidget *w : info->findChildren<QWidget *>()) {
            if (!(w->focusPolicy() & Qt::TabFocus) || !w->isVisible())
                continue;
            const QString sagt = QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name);
            QVERIFY2(!sagt.isEmpty() && !w->objectName().isEmpty(), w->metaObject()->className());
        }
        QTRY_VERIFY(teil<QAbstractButton>("programmordnerOeffnen")->isEnabled());
        klicken("programmordnerOeffnen");
        QCOMPARE(m_geoeffnet, QStringList{programmOrdner()});
        QVERIFY(!teil<QAbstractButton>("protokolleOeffnen")->isEnabled()); // it is not there yet
        klicken("angabenKopieren");
        QTRY_VERIFY(QApplication::clipboard()->text().contains(u"Qt "_s + QString::fromLatin1(qVersion())));
        QTRY_VERIFY(teil<QLabel>("fassung-pdftotext")->text() != u"…"_s);
        const QString angaben = QApplication::clipboard()->text();
        QVERIFY2(angaben.contains(u"\npdftotext "_s + teil<QLabel>("fassung-pdftotext")->text()), qPrintable(angaben));
        QVERIFY(teil<QLabel>("fassung-tesseract")->text().contains(u'.'));
        QCOMPARE(teil<QLabel>("fassung-ollama")->text(), u"läuft nicht"_s);
        QVERIFY(!teil<QCheckBox>("beimStartPruefen")->isChecked());
        teil<QCheckBox>("beimStartPruefen")->click();
        QVERIFY(Aktualisierung::beimStartPruefen());
        teil<QCheckBox>("beimStartPruefen")->click();
        QVERIFY(!Aktualisierung::beimStartPruefen());
        m_sprache->waehlen(u"en"_s);
        QTRY_COMPARE(teil<QAbstractButton>("updateSuchen")->text(), u"Check for updates"_s);
        klicken("schliessen");
        QTRY_VERIFY(!m_fenster->findChild<Infofenster *>());
    }
};

QTEST_MAIN(TestProtokollkarte)
#include "test_protokollkarte.moc"
