#include "ablagelernen.h"

#include "einrichtung.h"
#include "hintergrund.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "testserver.h"
#include "zustandsprobe.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::zustand;
using Lage = Ablagelernen::Lage;
using Marke = Befund::Marke;

namespace
{
const QString strom = u"Haushalt/Jahresablage/2024/Strom"_s;
const QString wasser = u"Haushalt/Jahresablage/2024/Wasser"_s;
} // namespace

/** Learning from the filing tree as the setup card asks for it: real files, a real catalogue. */
class TestAblagelernen : public Zustandsprobe
{
    Q_OBJECT

private:
    void ablegen(const QString &ordner, const QStringList &namen)
    {
        QDir().mkpath(m_b->ziel(ordner));
        for (const QString &name : namen) {
            QFile datei(m_b->ziel(ordner + u'/' + name));
            QVERIFY(datei.open(QIODevice::WriteOnly));
        }
    }
    void briefe(const QString &gegenueber, const QString &ordner, int anzahl)
    {
        QStringList namen;
        for (int n = 1; n <= anzahl; ++n)
            namen << u"2024-01-31 %1 - Brief %2.pdf"_s.arg(gegenueber).arg(n);
        ablegen(ordner, namen);
    }
    /** A proposal without a place. */
    qint64 wartendes(const QString &gegenueber)
    {
        return m_b->dokument(gegenueber + u".pdf"_s, [&](Dokument &d) {
            d.angaben.gegenueber = gegenueber;
            d.angaben.ort = {};
            d.konfidenz = 0.3;
        });
    }
    void beginnen()
    {
        Zustandsprobe::beginnen();
        m_z->setzeReiter(Reiter::Einrichtung);
    }
    [[nodiscard]] Ablagelernen &ablage() const { return *m_z->einrichtung()->ablagelernen(); }
    void lesen()
    {
        ablage().lesen();
        QTRY_VERIFY(ablage().lage() != Lage::Liest);
    }
    void fertigschreiben() { QTRY_VERIFY(ablage().lage() != Lage::Schreibt && ablage().lage() != Lage::NimmtZurueck); }
    [[nodiscard]] QStringList angekreuzte() const
    {
        QStringList namen;
        for (qsizetype n = 0; n < ablage().anzahl(); ++n) {
            if (ablage().zeile(n).angekreuzt)
                namen << ablage().zeile(n).gegenueber;
        }
        return namen;
    }
    /** Everything that was asked for elsewhere has come or is lost. */
    static void abwarten()
    {
        QVERIFY(Hintergrund::warten(30s));
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void hinUndZurueck()
    {
        briefe(u"Elbtal Energie"_s, strom, 3);
        briefe(u"Elbtal Energie"_s, wasser, 1);
        briefe(u"Bäckerei Kern"_s, wasser, 1);
        briefe(u"4711"_s, wasser, 2);
        const qint64 id = wartendes(u"Elbtal Energie GmbH"_s);
        beginnen();
        lesen();
        QCOMPARE(ablage().lage(), Lage::Auswahl);
        QCOMPARE(ablage().anzahl(), 3);
        QCOMPARE(angekreuzte(), QStringList{u"Elbtal Energie"_s});
        const Fundzeile erste = ablage().zeile(0);
        QCOMPARE(erste.orte,
                 (QStringList{u"Haushalt/Jahresablage/Strom (3)"_s, u"Haushalt/Jahresablage/Wasser (1)"_s}));
        QCOMPARE(erste.zeugen.first(), u"2024-01-31 Elbtal Energie - Brief 1.pdf"_s);
        QVERIFY(ablage().trifft(0, u"elbtál"_s) && !ablage().trifft(0, u"kern"_s));
        ablage().setzeAngekreuzt({0, 1, 2}, true);
        QCOMPARE(ablage().angekreuzte(), 3);
        ablage().vorschlagen({1, 2});
        QCOMPARE(angekreuzte(), QStringList{u"Elbtal Energie"_s});
        ablage().uebernehmen();
        fertigschreiben();
        QCOMPARE(ablage().befund().satz,
                 u"Aus der Ablage gelernt, Gegenüber: 1. 1 wartendes Dokument wurde angepasst."_s);
        QCOMPARE(m_z->meldestelle()->hinweis(), ablage().befund().satz);
        QCOMPARE(m_b->lesen(id).angaben.ort.rubrik, u"Strom"_s);
        QTRY_COMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Strom"_s);
        QTRY_VERIFY(m_z->einrichtung()->stand().gelerntes.ausAblage);
        ablage().zuruecknehmen();
        fertigschreiben();
        QCOMPARE(ablage().befund().marke, Marke::Gut);
        QTRY_VERIFY(m_z->einrichtung()->stand().gelerntes == Lernstand());
        QCOMPARE(m_b->lesen(id).angaben.ort.rubrik, QString());
    }

    void nichtsZuLernen_data()
    {
        QTest::addColumn<QString>("ordner");
        QTest::addColumn<QStringList>("namen");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("leer") << strom << QStringList{u"notiz.txt"_s}
                              << u"Unter dem Zielordner liegt noch keine PDF-Datei, aus der sich lernen ließe."_s;
        QTest::newRow("Namen")
            << strom << QStringList{u"Scan_1.pdf"_s, u"Scan_2.pdf"_s}
            << u"Hier ist nichts zu lernen. 2 Dateinamen passen nicht zur Namensvorlage, etwa "
               "„Scan_1.pdf“, „Scan_2.pdf“. Die Vorlage „{datum} {gegenueber} - {titel}“ steht unter "
               "„Namen“."_s;
        QTest::newRow("Orte") << u"Altes"_s << QStringList{u"2024-01-31 Kern - Brief.pdf"_s}
                              << u"Hier ist nichts zu lernen. 1 Datei liegt an keinem Ort der Struktur: "
                                 "„Altes/2024-01-31 Kern - Brief.pdf“. Die Struktur wird unter „Ziel“ eingelesen."_s;
    }
    void nichtsZuLernen()
    {
        QFETCH(const QString, ordner);
        QFETCH(const QStringList, namen);
        ablegen(ordner, namen);
        beginnen();
        lesen();
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QTEST(ablage().befund().satz, "erwartet");
    }

    /** A tree that is not there tells so and takes nothing away; one that is read with other settings is dropped. */
    void ordnerFehltUndEinstellungenWechseln()
    {
        briefe(u"Elbtal Energie"_s, strom, 2);
        beginnen();
        lesen();
        ablage().uebernehmen();
        fertigschreiben();
        const QString weg = m_b->profil.zielWurzel + u"-weg"_s;
        QVERIFY(QDir().rename(m_b->profil.zielWurzel, weg));
        lesen();
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QCOMPARE(ablage().befund().marke, Marke::Warnung);
        QVERIFY(ablage().befund().satz.startsWith(u"Der Zielordner ist nicht erreichbar"_s));
        QTRY_VERIFY(m_z->einrichtung()->stand().gelerntes.ausAblage);
        QVERIFY(QDir().rename(weg, m_b->profil.zielWurzel));
        lesen();
        QCOMPARE(ablage().lage(), Lage::Auswahl);
        m_z->profilwahl()->aendern([](Profil &p) { p.maxZeichen += 1; });
        QCOMPARE(ablage().lage(), Lage::Auswahl);
        m_z->profilwahl()->aendern([](Profil &p) { p.namensVorlage = u"{gegenueber} - {titel}"_s; });
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QCOMPARE(ablage().anzahl(), 0);
        QCOMPARE(ablage().befund().marke, Marke::Hinweis);
        ablage().uebernehmen(); // of what is gone
        QCOMPARE(ablage().lage(), Lage::Ruht);
    }

    /** What was stopped, or asked for another profile, comes to nothing. */
    void anhaltenUndProfilWechseln()
    {
        briefe(u"Elbtal Energie"_s, strom, 2500);
        beginnen();
        ablage().lesen();
        QCOMPARE(ablage().lage(), Lage::Liest);
        ablage().abbrechen();
        abwarten();
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QCOMPARE(ablage().anzahl(), 0);
        ablage().lesen();
        m_z->profilwahl()->neuesProfil();
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln() && m_z->profilwahl()->aktiv()->id != m_b->profil.id);
        abwarten();
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QCOMPARE(ablage().befund(), Befund());
        QCOMPARE(ablage().anzahl(), 0);
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln() && m_z->profilwahl()->aktiv()->id == m_b->profil.id);
        ablage().lesen();
        m_z.reset(); // the window is closed meanwhile
        abwarten();
    }

    /** A catalogue that cannot be written: what failed is told, and the same press does the rest. */
    void schreibenScheitert()
    {
        briefe(u"Elbtal Energie"_s, strom, 3);
        briefe(u"Stadtbad"_s, strom, 2);
        beginnen();
        lesen();
        m_b->sql(u"CREATE TRIGGER voll BEFORE INSERT ON gelernt WHEN NEW.schluessel='stadtbad' "
                 "BEGIN SELECT RAISE(ABORT,'voll'); END"_s);
        ablage().uebernehmen();
        fertigschreiben();
        QCOMPARE(ablage().lage(), Lage::Auswahl);
        QCOMPARE(ablage().befund().marke, Marke::Warnung);
        QVERIFY(ablage().befund().satz.endsWith(u"Noch einmal drücken holt den Rest nach."_s));
        QCOMPARE(ablage().angekreuzte(), 2);
        m_b->sql(u"DROP TRIGGER voll"_s);
        ablage().uebernehmen();
        fertigschreiben();
        QCOMPARE(ablage().lage(), Lage::Ruht);
        QTRY_COMPARE(m_z->einrichtung()->stand().gelerntes.zuordnungen.size(), 2);
    }

    /** At the end of the setup, if there is anything to learn from; once. */
    void einmalAngeboten()
    {
        m_b->profil.modell = u"klein:1b"_s;
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::fest(200, "{}"));
        server.antworten("/api/tags", Testantwort::fest(200, R"({"models":[{"name":"klein:1b"}]})"));
        briefe(u"Elbtal Energie"_s, strom, 2);
        m_b->dokument(u"a.pdf"_s);
        beginnen();
        QTRY_VERIFY(m_z->modelldienst()->modellBereit() && m_z->einrichtung()->stand().programme);
        abwarten();
        QVERIFY(!ablage().angebot()); // the owner's names are missing
        m_z->profilwahl()->aendern([](Profil &p) { p.eigeneNamen = QStringList{u"Anna Müller"_s}; });
        QTRY_VERIFY(ablage().angebot());
        ablage().angebotGesehen();
        ablage().ablehnen();
        QVERIFY(!ablage().angebot());
        abwarten();
        m_z->profilwahl()->sichern();
        QTRY_COMPARE(Profilspeicher::laden().first().eigeneNamen.size(), 1);
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen();
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln());
        m_z->setzeReiter(Reiter::Einrichtung);
        QTRY_VERIFY(m_z->modelldienst()->modellBereit() && m_z->einrichtung()->stand().programme &&
                    m_z->profilwahl()->bereitschaft());
        QTRY_COMPARE(m_z->einrichtung()->starthindernis(), QString());
        abwarten();
        QVERIFY(!ablage().angebot());
        m_b->sql(u"DELETE FROM uebertragungen"_s); // as if it never had been
        m_z->profilwahl()->neuesProfil();
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln() && m_z->profilwahl()->aktiv()->id != m_b->profil.id);
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        QTRY_VERIFY(ablage().angebot());
        ablage().lesen();
        QVERIFY(!ablage().angebot());
    }
};

QTEST_GUILESS_MAIN(TestAblagelernen)
#include "test_ablagelernen.moc"
