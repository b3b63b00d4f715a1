#include "lage.h"
#include "laufkarte.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::zustand;

namespace
{
const std::optional<Bereitschaft> vollstaendige = Bereitschaft{{}, true, true, true, true};

Profil profil()
{
    Profil p;
    p.quelle = QDir::homePath() + u"/Scans"_s;
    p.zielWurzel = u"/ablage"_s;
    p.seiten = 2;
    p.modell = u"klein"_s;
    return p;
}
} // namespace

/** What the run card says in each of its states. */
class TestLaufkarte : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dauern_data()
    {
        QTest::addColumn<qint64>("ms");
        QTest::addColumn<QString>("text");
        QTest::newRow("gleich") << qint64(1'999) << u"fertig"_s;
        QTest::newRow("Sekunden") << qint64(2'000) << u"fertig nach 2 Sekunden"_s;
        QTest::newRow("noch Sekunden") << qint64(89'999) << u"fertig nach 89 Sekunden"_s;
        QTest::newRow("eine Minute") << qint64(90'000) << u"fertig nach 1 Minute"_s;
        QTest::newRow("Minuten") << qint64(89 * 60'000) << u"fertig nach 89 Minuten"_s;
        QTest::newRow("Stunden") << qint64(90 * 60'000) << u"fertig nach 1,5 Stunden"_s;
    }
    void dauern()
    {
        QFETCH(const qint64, ms);
        QLocale::setDefault(QLocale(QLocale::German));
        QTEST(dauertext(std::chrono::milliseconds(ms)), "text");
    }

    void titelUndZeile_data()
    {
        QTest::addColumn<bool>("laeuft");
        QTest::addColumn<bool>("haeltAn");
        QTest::addColumn<bool>("wartet");
        QTest::addColumn<bool>("gelaufen");
        QTest::addColumn<QString>("titel");
        QTest::addColumn<QString>("zeile");
        const QString weg = u"Von ~/Scans nach /ablage. "_s;
        const QString erst = weg + u"Verschoben wird erst, was du beim Prüfen übernimmst."_s;
        QTest::newRow("bereit") << false << false << false << false << u"Bereit für den Durchgang"_s << erst;
        QTest::newRow("wartet") << false << false << true << false << u"Bereit für den Durchgang"_s
                                << u"Wartet auf die Antwort des Modellservers …"_s;
        QTest::newRow("läuft") << true << false << false << true << u"Der Durchgang läuft"_s
                               << weg + u"Du kannst nebenher prüfen."_s;
        QTest::newRow("hält an") << true << true << false << true << u"Der Durchgang läuft"_s
                                 << u"Hält nach dem laufenden Dokument an. Das bereits Erkannte bleibt erhalten, ein "
                                    "späterer Start setzt dort fort."_s;
        QTest::newRow("fertig") << false << false << false << true << u"Abgeschlossen"_s << erst;
    }
    void titelUndZeile()
    {
        QFETCH(const bool, laeuft);
        QFETCH(const bool, haeltAn);
        QFETCH(const bool, wartet);
        QFETCH(const bool, gelaufen);
        const Profil p = profil();
        const Lauflage lage{.profil = p,
                            .bereitschaft = vollstaendige,
                            .laeuft = laeuft,
                            .haeltAn = haeltAn,
                            .startWartet = wartet,
                            .gelaufen = gelaufen,
                            .stufe = u"Abgeschlossen"_s};
        QTEST(lage.titel(), "titel");
        QTEST(lage.zeile(), "zeile");
        QCOMPARE(lage.fehlendes(), QString());
    }

    /** While it is being looked at nothing is called missing. */
    void nichtEingerichtet()
    {
        const Profil p = profil();
        const std::optional<Bereitschaft> keine;
        const std::optional<Bereitschaft> halbe = Bereitschaft{{u"tesseract"_s}, true, false, true, false};
        const Lauflage unbekannt{.profil = p, .bereitschaft = keine, .stufe = {}};
        const Lauflage unvollstaendig{.profil = p, .bereitschaft = halbe, .stufe = {}};
        QCOMPARE(unbekannt.fehlendes(), QString());
        QCOMPARE(unvollstaendig.titel(), u"Noch nicht eingerichtet"_s);
        QCOMPARE(unvollstaendig.zeile(),
                 u"Es fehlt noch: tesseract, Zielordner, Namensmuster. Das geht auf der Karte Einrichtung."_s);
    }

    /** No run is offered that would end at once. */
    void beschaedigterKatalog()
    {
        const Profil p = profil();
        Lauflage lage{.profil = p, .bereitschaft = vollstaendige, .gelaufen = true, .beschaedigt = true, .stufe = {}};
        QVERIFY(!lage.startbereit());
        QCOMPARE(lage.titel(), u"Der Katalog ist beschädigt"_s);
        QVERIFY2(lage.zeile().contains(u"Karte Einrichtung"_s), qPrintable(lage.zeile()));
        QCOMPARE(lage.fehlendes(), lage.zeile());
        lage.laeuft = true; // noticed meanwhile: what goes on is said first
        QCOMPARE(lage.titel(), u"Der Durchgang läuft"_s);
    }

    void vorschauen()
    {
        Profil p = profil();
        const Lauflage lage{.profil = p, .bereitschaft = vollstaendige, .stufe = {}};
        QCOMPARE(lage.vorschau(0), u"Sucht die PDF-Dateien in ~/Scans und den Ordnern darunter."_s);
        p.mitUnterordnern = false;
        QCOMPARE(lage.vorschau(0), u"Sucht die PDF-Dateien in ~/Scans."_s);
        p.quelle.clear();
        QCOMPARE(lage.vorschau(0), u"Sucht die PDF-Dateien im Herkunftsordner."_s);
        QCOMPARE(lage.vorschau(1), u"Die ersten 2 Seiten, wo nötig per Texterkennung."_s);
        p.seiten = 1;
        QCOMPARE(lage.vorschau(1), u"Die erste Seite, wo nötig per Texterkennung."_s);
        QCOMPARE(lage.vorschau(2), u"klein schlägt Datum, Gegenüber, Titel und Ort vor."_s);
        p.zweitmeinung = true;
        p.modellGross = u"groß"_s;
        QCOMPARE(lage.vorschau(3), u"groß sieht sich an, was unsicher ist."_s);
        p.zweitmeinung = false;
        QCOMPARE(lage.vorschau(3), u"Ist in diesem Profil ausgeschaltet."_s);
    }

    void stufenzeilen_data()
    {
        QTest::addColumn<int>("stand");
        QTest::addColumn<QString>("meldung");
        QTest::addColumn<QString>("dauersatz");
        QTest::addColumn<QString>("zeile");
        const auto laeuft = int(Stufenbild::Stand::Laeuft);
        QTest::newRow("offen") << int(Stufenbild::Stand::Offen) << QString() << u"a dauert länger"_s << u"Vorschau"_s;
        QTest::newRow("fertig") << int(Stufenbild::Stand::Fertig) << u"3 von 3"_s << u"a dauert länger"_s
                                << u"3 von 3"_s;
        QTest::newRow("läuft") << laeuft << u"2 von 3"_s << QString() << u"2 von 3"_s;
        QTest::newRow("dauert") << laeuft << u"2 von 3"_s << u"a dauert länger"_s << u"2 von 3 · a dauert länger"_s;
        QTest::newRow("gleich das erste") << laeuft << QString() << u"a dauert länger"_s << u"a dauert länger"_s;
    }
    void stufenzeilen()
    {
        QFETCH(const int, stand);
        QFETCH(const QString, meldung);
        QFETCH(const QString, dauersatz);
        const Stufenbild bild{.stand = Stufenbild::Stand(stand), .name = {}, .meldung = meldung, .dauer = {}};
        QTEST(stufenzeile(bild, u"Vorschau"_s, dauersatz), "zeile");
    }

    void stufenzeiten_data()
    {
        QTest::addColumn<int>("stand");
        QTest::addColumn<int>("gesamt");
        QTest::addColumn<QString>("zeit");
        QTest::newRow("läuft") << int(Stufenbild::Stand::Laeuft) << 0 << u"noch lange"_s;
        QTest::newRow("fertig") << int(Stufenbild::Stand::Fertig) << 0 << u"fertig nach 3 Sekunden"_s;
        QTest::newRow("offen") << int(Stufenbild::Stand::Offen) << 0 << QString();
        QTest::newRow("läuft in Portionen") << int(Stufenbild::Stand::Laeuft) << 500 << QString();
        QTest::newRow("fertig in Portionen") << int(Stufenbild::Stand::Fertig) << 500 << QString();
    }
    void stufenzeiten()
    {
        QFETCH(const int, stand);
        QFETCH(const int, gesamt);
        const Stufenbild bild{.stand = Stufenbild::Stand(stand), .name = {}, .meldung = {}, .dauer = 3s};
        const Laufganzes ganzes{.gesamt = gesamt, .restzeit = {}};
        QTEST(stufenzeit(bild, ganzes, u"noch lange"_s), "zeit");
    }

    /** Each portion begins anew with reading; at the end stands what all of them came to. */
    void bildInPortionen()
    {
        using Stand = Stufenbild::Stand;
        const auto staende = [](const Laufbild &bild) {
            QList<Stand> liste;
            for (const Stufenbild &s : bild.stufen())
                liste << s.stand;
            return liste;
        };
        Laufbild bild;
        Laufbild::Zeitpunkt jetzt;
        bild.beginnen(jetzt);
        const auto schritt = [&](const QString &name, const QString &meldung) {
            bild.nehmen(name, meldung, jetzt += 10s);
        };
        schritt(u"Text lesen"_s, u"10 von 10 gelesen"_s);
        schritt(u"Dokumente einordnen"_s, u"10 von 10 eingeordnet"_s);
        schritt(u"Text lesen"_s, u"1 von 50 gelesen"_s);
        QCOMPARE(staende(bild), (QList{Stand::Fertig, Stand::Laeuft, Stand::Offen, Stand::Offen}));
        QCOMPARE(bild.stufen().at(1).meldung, u"1 von 50 gelesen"_s);
        QCOMPARE(bild.stufen().at(2).meldung, QString());
        schritt(u"Dokumente einordnen"_s, u"50 von 50 eingeordnet"_s);
        bild.enden(true, jetzt += 10s);
        bild.zusammenfassen({{u"Text lesen"_s, u"60 von 60 gelesen"_s},
                             {u"Ähnliche Dokumente suchen"_s, u"keine"_s},
                             {u"Dokumente einordnen"_s, u"60 von 60 eingeordnet"_s}});
        QCOMPARE(staende(bild), (QList{Stand::Fertig, Stand::Fertig, Stand::Fertig, Stand::Offen}));
        QCOMPARE(bild.stufen().at(1).meldung, u"60 von 60 gelesen · keine"_s);
        QCOMPARE(bild.stufen().at(1).dauer, 20s);
        QCOMPARE(bild.stufen().at(2).dauer, 20s);
    }

    void saetze()
    {
        QCOMPARE(dublettensatz({.id = 1, .name = u"a"_s, .original = u"b.pdf"_s, .bytegleich = true}),
                 u"gleich wie b.pdf"_s);
        QCOMPARE(dublettensatz({.id = 1, .name = u"a"_s, .original = u"b.pdf"_s, .bytegleich = false}),
                 u"gleicher Text wie b.pdf"_s);
        QVERIFY(startfrage(Modellstand::Art::ServerFehlt, u"Er fehlt"_s).startsWith(u"Er fehlt. So werden"_s));
        QVERIFY(startfrage(Modellstand::Art::ServerFehlt, {}).endsWith(u"„ollama serve“."_s));
        QVERIFY(startfrage(Modellstand::Art::ModellFehlt, {}).contains(u"Laden lässt es sich"_s));
        QCOMPARE(standwort(Stufenbild::Stand::Laeuft), u"läuft"_s);
    }
};

QTEST_GUILESS_MAIN(TestLaufkarte)
#include "test_laufkarte.moc"
