#include "analyse.h"
#include "archiv.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "fensterprobe.h"
#include "modelldienst.h"
#include "modellserver.h"
#include "ordnerwahl.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "stil.h"
#include "textschild.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDirIterator>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QScrollArea>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int laengsterDurchgang = 240'000; // ms, with character recognition beside other tests

qint64 pdfUnter(const QString &ordner)
{
    qint64 anzahl = 0;
    QDirIterator dateien(ordner, {u"*.pdf"_s}, QDir::Files, QDirIterator::Subdirectories);
    for (; dateien.hasNext(); ++anzahl)
        dateien.next();
    return anzahl;
}

} // namespace

/** The setup card with real keys and the mouse. */
class TestErststart : public Fensterprobe
{
    Q_OBJECT

private:
    void mitProfil(Abschnitt abschnitt)
    {
        oeffnen();
        m_z->setzeReiter(Reiter::Einrichtung);
        m_z->einrichtung()->setzeAbschnitt(abschnitt);
    }
    [[nodiscard]] QString satz(const QString &name) { return teil<Textschild>(name)->ganzerText(); }
    void tippen(const QString &feld, const QString &text)
    {
        auto *eingabe = teil<QWidget>(feld);
        eingabe->setFocus(Qt::TabFocusReason);
        QTest::keyClick(eingabe, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(eingabe, text);
    }
    [[nodiscard]] QString weiter() { return teil<QAbstractButton>(u"weiter"_s)->text(); }
    [[nodiscard]] static bool imFokus(const QString &name) { return fokus() == name; }

    void oeffnenOhneKatalog()
    {
        m_z = std::make_unique<Zustand>();
        m_sprache = std::make_unique<Fenstersprache>();
        m_fenster = std::make_unique<Hauptfenster>(m_z.get(), m_sprache.get());
        m_fenster->show();
        QVERIFY(QTest::qWaitForWindowActive(m_fenster.get()));
        QTRY_VERIFY(!m_z->profilwahl()->katalogfehler().isEmpty());
    }

private Q_SLOTS:
    /** From nothing to the first filed document of the sample archive, by what the window says alone. */
    void vomErstenStartZumErstenDokument()
    {
        vorfuehrung::Modellserver server(Profil().modell);
        QVERIFY(server.lauschen(0));
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        const QString archiv = m_b->ordner() + u"/Archiv"_s;
        vorfuehrung::archivSchreiben(archiv);
        const QString quelle = vorfuehrung::quelleVon(archiv);
        const QString ziel = vorfuehrung::zielVon(archiv);
        const qint64 alle = pdfUnter(quelle);
        const qint64 anzahl = alle - pdfUnter(quelle + u"/_Dubletten"_s); // what was set aside before stays there
        oeffnen(false);
        QTRY_VERIFY(imFokus(u"erstesProfil"_s));
        druecken(Qt::Key_Space);
        QTRY_VERIFY(m_z->profilwahl()->offen());
        QTRY_VERIFY(imFokus(u"abschnitte"_s));
        QTRY_COMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Programme).lage, Abschnittsstand::Lage::Gut);
        QTRY_VERIFY(m_z->modelldienst()->modellBereit());

        QCOMPARE(weiter(), u"Weiter zu Herkunft"_s);
        klicken(u"weiter"_s);
        Ordnerwahl::ordnerwaehler = [quelle](const QString &, const QString &) { return quelle; };
        klicken(u"quelle-waehlen"_s);
        QTRY_COMPARE(satz(u"quelle-stand"_s), u"%1 PDF gefunden."_s.arg(anzahl));

        QTRY_COMPARE(weiter(), u"Weiter zu Ziel"_s);
        klicken(u"weiter"_s);
        tippen(u"zielWurzel"_s, ziel);
        QTRY_COMPARE(satz(u"zielWurzel-stand"_s), u"Ordner gefunden."_s);
        klicken(u"strukturEinlesen"_s);
        auto *baum = teil<QTreeView>(u"struktur"_s);
        QTRY_COMPARE(baum->model()->rowCount(), 3);
        QCOMPARE(baum->indexBelow(baum->indexBelow(baum->model()->index(0, 0))).data().toString(),
                 u"Ausgangsrechnungen"_s);

        QTRY_COMPARE(weiter(), u"Weiter zu Eigentümer"_s);
        klicken(u"weiter"_s);
        tippen(u"eigeneNamen"_s, u"Anna Muster"_s);
        QCOMPARE(m_z->profilwahl()->aktiv()->eigeneNamen, QStringList{u"Anna Muster"_s});
        for (const Abschnitt abschnitt : alleAbschnitte())
            QVERIFY2(!m_z->einrichtung()->abschnittsstand(abschnitt).hindert(), qPrintable(abschnittTitel(abschnitt)));

        QTRY_COMPARE(weiter(), u"Durchgang starten"_s);
        QTRY_VERIFY(teil<QAbstractButton>(u"weiter"_s)->isEnabled());
        klicken(u"weiter"_s);
        QCOMPARE(m_z->reiter(), Reiter::Ablauf);
        QTRY_VERIFY_WITH_TIMEOUT(!m_z->durchgang()->analyse()->laeuft() &&
                                     m_z->pruefung()->zaehlwerk().bereit + m_z->pruefung()->zaehlwerk().dubletten ==
                                         anzahl,
                                 laengsterDurchgang);
        QVERIFY(m_z->durchgang()->nacharbeit().gescheiterte.size() < anzahl / 10);
        klicken(u"vorschlaegePruefen"_s);
        QTRY_VERIFY(m_z->pruefung()->aktuelles());
        const QString alterPfad = m_z->pruefung()->aktuelles()->pfad;
        const QString name = teil<Textschild>(u"neuerName"_s)->ganzerText();
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        druecken(Qt::Key_Return);
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().erledigt, 1);
        QDirIterator abgelegte(ziel, {name}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(abgelegte.hasNext());
        QVERIFY(!QFile::exists(alterPfad));
        QCOMPARE(pdfUnter(quelle) + pdfUnter(ziel), alle);
    }

    /** A model server that has gone since: the run does not begin, and the card says what can be done. */
    void keinDurchgangOhneModellserver()
    {
        auto server = std::make_unique<vorfuehrung::Modellserver>(m_b->profil.modell);
        QVERIFY(server->lauschen(0));
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server->port()));
        m_b->profil.eigeneNamen = QStringList{u"Anna Muster"_s};
        m_b->dokument(u"a.pdf"_s, [](Dokument &d) { d.status = Status::Neu; });
        m_b->dokument(u"b.pdf"_s, [](Dokument &d) { d.fehler = u"Einordnung nicht möglich"_s; });
        mitProfil(Abschnitt::Programme);
        QTRY_COMPARE(weiter(), u"Durchgang starten"_s);
        QTRY_VERIFY(teil<QAbstractButton>(u"weiter"_s)->isEnabled());
        server.reset();
        klicken(u"weiter"_s);
        QCOMPARE(m_z->reiter(), Reiter::Ablauf);
        QTRY_VERIFY(imFokus(u"modellPruefen"_s));
        QVERIFY(!m_z->durchgang()->analyse()->laeuft() && !m_z->durchgang()->laufbild().gelaufen());
        druecken(Qt::Key_Space); // still none
        QTRY_VERIFY(!m_z->durchgang()->startErbeten());
        QTRY_VERIFY(imFokus(u"modellPruefen"_s));
        klicken(u"nurLesen"_s);
        QTRY_VERIFY(m_z->durchgang()->laufbild().gelaufen() && !m_z->durchgang()->analyse()->laeuft());
        QCOMPARE(m_z->durchgang()->laufbild().stufen().at(2).stand, Stufenbild::Stand::Offen);
        // Not the choice of the profile: the next key would change that.
        QTRY_VERIFY(imFokus(u"vorschlaegePruefen"_s) || imFokus(u"durchgangStarten"_s));
        QTRY_COMPARE(m_z->durchgang()->nacharbeit().gescheiterte.size(), 1);
        klicken(u"alleErneut"_s);
        QTRY_VERIFY(imFokus(u"modellPruefen"_s));
        klicken(u"nurLesen"_s);
        QTRY_VERIFY(m_z->durchgang()->nacharbeit().gescheiterte.isEmpty()); // opened again, and waits for the model
        QTRY_VERIFY(!m_z->durchgang()->analyse()->laeuft());
        QTRY_VERIFY(imFokus(u"durchgangStarten"_s));
        druecken(Qt::Key_Space);
        QTRY_VERIFY(imFokus(u"modellPruefen"_s));
        m_z->profilwahl()->neuesProfil(); // which the question is not about
        QTRY_VERIFY(m_z->profilwahl()->offen() && m_z->profilwahl()->aktiv()->id != m_b->profil.id);
        m_z->setzeReiter(Reiter::Ablauf);
        QVERIFY(!m_fenster->findChild<QWidget *>(u"nurLesen"_s)->isVisible());
        QTRY_COMPARE(teil<QAbstractButton>(u"durchgangStarten"_s)->text(), u"Zur Einrichtung"_s);
        klicken(u"durchgangStarten"_s);
        QCOMPARE(m_z->reiter(), Reiter::Einrichtung);
        QCOMPARE(m_z->einrichtung()->abschnitt(), Abschnitt::Herkunft);
    }

    void beschwerdeStehtAmFeld()
    {
        mitProfil(Abschnitt::Ziel);
        tippen(u"auffangOrdner"_s, u"a/b"_s);
        QCOMPARE(satz(u"auffangOrdner-stand"_s), u"Nur ein Name, kein Pfad."_s);
        QCOMPARE(m_z->profilwahl()->aktiv()->auffangOrdner, u"a"_s);
        druecken(Qt::Key_Tab);
        QCOMPARE(teil<QLineEdit>(u"auffangOrdner"_s)->text(), u"a"_s);
        QCOMPARE(satz(u"auffangOrdner-stand"_s), u"Je Zweig, für alles ohne passende Rubrik."_s);
        tippen(u"zielWurzel"_s, u"/nirgends"_s);
        QTRY_VERIFY(satz(u"zielWurzel-stand"_s).startsWith(u"Diesen Ordner gibt es nicht"_s));
        QTRY_COMPARE(Profilspeicher::laden().first().zielWurzel, u"/nirgends"_s);
    }

    void tabGehtDenWegDesAuges()
    {
        mitProfil(Abschnitt::Ziel);
        teil<QWidget>(u"abschnitte"_s)->setFocus();
        QStringList weg;
        for (int n = 0; n < 12 && !weg.contains(u"weiter"_s); ++n) {
            druecken(Qt::Key_Tab);
            weg << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(weg, (QStringList{u"profilUmbenennen"_s, u"profilEntfernen"_s, u"zielWurzel"_s,
                                   u"zielWurzel-waehlen"_s, u"auffangOrdner"_s, u"dublettenOrdner"_s,
                                   u"betriebsart-verschieben"_s, u"strukturEinlesen"_s, u"struktur"_s, u"weiter"_s}));
    }

    /** At every font size each section keeps to the width of its pane. */
    void nichtsWirdAbgeschnitten()
    {
        const auto zurueck = qScopeGuard([vorher = Stil::schriftgroesse()] { Stil::setzeSchriftgroesse(vorher); });
        mitProfil(Abschnitt::Programme);
        for (const QString &sprache : {u"de"_s, u"en"_s}) {
            m_sprache->waehlen(sprache);
            for (double punkte = Stil::kleinsteSchrift; punkte <= Stil::groessteSchrift; ++punkte) {
                Stil::setzeSchriftgroesse(punkte);
                m_fenster->resize(1100, 700);
                for (const Abschnitt abschnitt : alleAbschnitte()) {
                    m_z->einrichtung()->setzeAbschnitt(abschnitt);
                    QCoreApplication::processEvents();
                    auto *rollen = qobject_cast<QScrollArea *>(
                        teil<QWidget>(u"abschnitt-"_s + rohwert(abschnitt))->parentWidget()->parentWidget());
                    QVERIFY(rollen);
                    QVERIFY2(rollen->widget()->minimumSizeHint().width() <= rollen->viewport()->width(),
                             qPrintable(u"%1, %2 pt: %3"_s.arg(sprache).arg(punkte).arg(abschnittTitel(abschnitt))));
                }
                QCOMPARE(m_fenster->size(), QSize(1100, 700));
            }
        }
    }

    void bausteineUndBeispiel()
    {
        m_b->dokument(u"Scan.pdf"_s, [](Dokument &d) { d.angaben.titel = u"Abschlag"_s; });
        mitProfil(Abschnitt::Namen);
        tippen(u"namensVorlage"_s, u"{datum} "_s);
        klicken(u"namensVorlage-titel"_s);
        QVERIFY(imFokus(u"namensVorlage"_s));
        QTRY_COMPARE(teil<Textschild>(u"beispiel-name"_s)->ganzerText(), u"2023-02-14 Abschlag.pdf"_s);
        QCOMPARE(teil<Textschild>(u"beispiel-ohneTitel"_s)->ganzerText(), u"2023-02-14.pdf"_s);
        tippen(u"pfadVorlage"_s, u"{zweig}/{monat}"_s);
        QVERIFY(satz(u"pfadVorlage-stand"_s).startsWith(u"{monat} bleibt im Ordner immer leer"_s));
        klicken(u"pfadVorlage-entfernen"_s);
        QCOMPARE(m_z->profilwahl()->aktiv()->pfadVorlage, u"{zweig}"_s);
        QCOMPARE(teil<Textschild>(u"beispiel-ort"_s)->ganzerText(), u"Haushalt"_s);
    }

    /** A list that cannot be read is no first start. */
    void beschaedigteProfilliste()
    {
        QFile liste(Profilspeicher::datei());
        QVERIFY(liste.open(QIODevice::WriteOnly));
        liste.write("[{\"name\": \"Haus");
        liste.close();
        QString kopie;
        for (int start = 0; start < 2; ++start) { // told each time, kept once
            oeffnen(false);
            QTRY_VERIFY(suchen<QWidget>(u"unlesbareProfile"_s));
            QVERIFY(kopie.isEmpty() || kopie == m_z->profilwahl()->unlesbareProfile());
            kopie = m_z->profilwahl()->unlesbareProfile();
            QVERIFY(kopie != Profilspeicher::datei() && QFile::exists(kopie));
            QVERIFY(teil<QWidget>(u"unlesbareProfile"_s)->y() < teil<QWidget>(u"erstesProfil"_s)->y());
            m_fenster.reset();
        }
        QVERIFY(QFile::remove(kopie));
    }

    /** Every card names the catalogue that does not open, and opens it when it can. */
    void katalogAufJederKarte()
    {
        m_b->profilSichern();
        m_b->schliessen();
        const QString katalog = Profilspeicher::katalogDatei(m_b->profil);
        QFile kaputt(katalog);
        QVERIFY(kaputt.open(QIODevice::WriteOnly | QIODevice::Truncate));
        kaputt.write(QByteArray(8192, 'x'));
        kaputt.close();
        oeffnenOhneKatalog();
        for (const Reiter reiter : {Reiter::Ablauf, Reiter::Pruefen, Reiter::Protokoll}) {
            m_z->setzeReiter(reiter);
            QTRY_COMPARE(teil<QLabel>(u"leertitel"_s)->text(), u"Der Katalog lässt sich nicht öffnen"_s);
            QVERIFY(teil<QLabel>(u"leerzeile"_s)->text().contains(QFileInfo(katalog).fileName()));
            QCOMPARE(teil<QAbstractButton>(u"leerknopf"_s)->text(), u"Noch einmal versuchen"_s);
        }
        m_z->setzeReiter(Reiter::Einrichtung);
        QTRY_VERIFY(suchen<QWidget>(u"katalogfehler"_s));
        QVERIFY(QFile::remove(katalog));
        klicken(u"katalogErneutOeffnen"_s);
        QTRY_VERIFY(m_z->profilwahl()->offen());
        QTRY_VERIFY(!suchen<QWidget>(u"katalogfehler"_s));
    }

    /** A folder that is made meanwhile is found: on Return, on leaving the field, and on coming back to the window. */
    void ordnerInzwischenAngelegt()
    {
        mitProfil(Abschnitt::Herkunft);
        const QString fehlt = u"Diesen Ordner gibt es nicht, oder er ist gerade nicht erreichbar."_s;
        for (const QString &wie : {u"eingabe"_s, u"verlassen"_s, u"fenster"_s}) {
            const QString ordner = m_b->ordner() + u'/' + wie;
            tippen(u"quelle"_s, ordner);
            QTRY_COMPARE(satz(u"quelle-stand"_s), fehlt);
            QVERIFY(QDir().mkpath(ordner));
            if (wie == u"eingabe"_s)
                druecken(Qt::Key_Return);
            else if (wie == u"verlassen"_s)
                druecken(Qt::Key_Tab);
            else
                for (QWidget *vorn : {static_cast<QWidget *>(nullptr), static_cast<QWidget *>(m_fenster.get())})
                    QApplication::setActiveWindow(vorn);
            QTRY_VERIFY2(satz(u"quelle-stand"_s) != fehlt, qPrintable(wie));
        }
    }

    /** Where the question begins: where this one was answered before, else where the field points. */
    void ordnerfrageBeginntBeimVorigen()
    {
        mitProfil(Abschnitt::Herkunft);
        QStringList beginne;
        Ordnerwahl::ordnerwaehler = [&](const QString &, const QString &beginn) {
            beginne << beginn;
            return m_b->ordner();
        };
        klicken(u"quelle-waehlen"_s);
        klicken(u"quelle-waehlen"_s);
        m_z->einrichtung()->setzeAbschnitt(Abschnitt::Ziel);
        klicken(u"zielWurzel-waehlen"_s);
        QCOMPARE(beginne, (QStringList{m_b->profil.quelle, m_b->ordner(), m_b->profil.zielWurzel}));
    }

    void umbenennenUndEntfernenMitDerTastatur()
    {
        mitProfil(Abschnitt::Gelernt);
        auto *umbenennen = teil<QAbstractButton>(u"profilUmbenennen"_s);
        umbenennen->setFocus();
        druecken(Qt::Key_Space);
        QVERIFY(imFokus(u"profilname"_s));
        QTest::keyClicks(QApplication::focusWidget(), u"Neu <b>"_s);
        druecken(Qt::Key_Return);
        QTRY_COMPARE(m_z->profilwahl()->aktiv()->name, u"Neu <b>"_s);
        teil<QAbstractButton>(u"profilEntfernen"_s)->setFocus();
        druecken(Qt::Key_Space);
        QVERIFY(imFokus(u"profilEntfernenJa-abbrechen"_s));
        druecken(Qt::Key_Escape);
        QVERIFY(m_z->profilwahl()->aktiv());
        QVERIFY(imFokus(u"profilEntfernen"_s));
        klicken(u"profilEntfernen"_s);
        klicken(u"profilEntfernenJa"_s);
        QVERIFY(!m_z->profilwahl()->aktiv());
        QTRY_VERIFY(teil<QAbstractButton>(u"erstesProfil"_s)->isVisible());
        QVERIFY(QFile::exists(Profilspeicher::katalogDatei(m_b->profil)));
    }

    /** A long tree is shown whole, and what has changed is told apart. */
    void grosseStruktur()
    {
        for (int n = 0; n < 5000; ++n)
            m_b->profil.zweige.first().ablagen.first().rubriken << u"Rubrik %1"_s.arg(n);
        mitProfil(Abschnitt::Ziel);
        auto *baum = teil<QTreeView>(u"struktur"_s);
        const QModelIndex art = baum->model()->index(0, 0, baum->model()->index(0, 0));
        QCOMPARE(baum->model()->rowCount(art), 5002);
        QCOMPARE(art.siblingAtColumn(1).data().toString(), u"mit Jahren"_s);
        QCOMPARE(baum->model()->parent(baum->model()->index(4711, 0, art)), art);
        QDir().mkpath(m_b->ziel(u"Haushalt/Jahresablage/2024/Strom"_s));
        klicken(u"strukturEinlesen"_s);
        QTRY_COMPARE(m_z->einrichtung()->stand().zahlen.entfallen, 5000 + 1 + 1 + 2);
        QTRY_COMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Ziel).zeile, u"0 neu, 5004 entfallen"_s);
    }
};

QTEST_MAIN(TestErststart)
#include "test_erststart.moc"
