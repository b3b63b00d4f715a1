#include "befunde.h"
#include "ocrsprachen.h"
#include "vorlagenmangel.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;
using Marke = Befund::Marke;
using Lage = Abschnittsstand::Lage;
using Art = Modellstand::Art;

namespace
{
/** Everything is as it should be; what a row of a table changes is not. */
struct Welt {
    Profil profil;
    std::optional<Bereitschaft> bereitschaft{{.fehlendeWerkzeuge = {}, .quelle = true, .ziel = true}};
    Einrichtungsstand stand;
    Modellstand modell;
    QString umgebung;
    qint64 ruhende = 0;

    Welt()
    {
        profil.quelle = u"/scans"_s;
        profil.zielWurzel = u"/ablage"_s;
        profil.zweige = {{.name = u"Haus"_s, .ablagen = {{.name = u"Akten"_s, .rubriken = {u"Strom"_s}}}}};
        profil.modell = u"klein:1b"_s;
        profil.modellGross = u"gross:9b"_s;
        stand.programme = Programmstand{
            .werkzeuge = {{.name = u"pdftotext"_s, .paket = u"poppler-utils"_s, .pfad = u"/usr/bin/pdftotext"_s},
                          {.name = u"tesseract"_s, .paket = u"tesseract-ocr"_s, .pfad = {}}},
            .sprachen = {u"deu"_s, u"eng"_s}};
        stand.quelle = Quellstand{.anzahl = 3};
        stand.struktur = strukturzeilen({}, profil.zweige);
        stand.zahlen = strukturzahlen(stand.struktur);
        modell.art = Art::Bereit;
        modell.meldung = u"Sprachmodell klein:1b einsatzbereit"_s;
        modell.vorhandene = QStringList{u"klein:1b"_s};
    }

    [[nodiscard]] Einrichtungslage lage() const
    {
        return {.profil = profil,
                .bereitschaft = bereitschaft,
                .stand = stand,
                .modell = modell,
                .umgebung = umgebung,
                .ruhende = ruhende};
    }
};

using Aenderung = std::function<void(Welt &)>;
using Regel = std::function<Befund(const Einrichtungslage &)>;

void unveraendert(Welt &) {}
Befund pdftotext(const Einrichtungslage &lage) { return Befunde::werkzeug(lage, u"pdftotext"_s); }
Befund tesseract(const Einrichtungslage &lage) { return Befunde::werkzeug(lage, u"tesseract"_s); }
Befund strom(const Einrichtungslage &lage) { return Befunde::rubrik(lage, u"Strom"_s); }
Befund gas(const Einrichtungslage &lage) { return Befunde::rubrik(lage, u"Gas"_s); }
Befund klein(const Einrichtungslage &lage) { return Befunde::modell(lage, lage.profil.modell); }
Befund gross(const Einrichtungslage &lage) { return Befunde::modellGross(lage, lage.profil.modellGross); }

void zeile(const char *name, const Regel &regel, const Aenderung &aenderung, Marke marke, const QString &satz)
{
    QTest::newRow(name) << regel << aenderung << marke << satz;
}

Modellverzeichnis mitEntferntem()
{
    return Modellverzeichnis::aus(R"({"models":[{"name":"fern:1b","remote_host":"https://example.org"}]})");
}

Modellstand ohneServer()
{
    Modellstand stand;
    stand.art = Art::ServerFehlt;
    stand.meldung = u"Der Modellserver ollama läuft nicht"_s;
    return stand;
}
} // namespace

Q_DECLARE_METATYPE(Regel)
Q_DECLARE_METATYPE(Aenderung)

/** What the setup card says of each field, state by state. */
class TestBefunde : public QObject
{
    Q_OBJECT

private:
    static void programme()
    {
        zeile("Werkzeug gefunden", pdftotext, unveraendert, Marke::Gut, u"/usr/bin/pdftotext"_s);
        zeile("Werkzeug fehlt", tesseract, unveraendert, Marke::Warnung,
              u"Nicht gefunden. Installiere das Paket tesseract-ocr."_s);
        const Aenderung ungeprueft = [](Welt &w) { w.stand.programme.reset(); };
        zeile("Werkzeug wird gesucht", pdftotext, ungeprueft, Marke::Laeuft, u"Wird gesucht …"_s);
        zeile("Sprachen ungeprüft", Befunde::ocrSprache, ungeprueft, Marke::Keine, u"Noch keine Sprachen gefunden."_s);
        zeile(
            "keine Sprachen", Befunde::ocrSprache, [](Welt &w) { w.stand.programme->sprachen.clear(); }, Marke::Keine,
            u"Noch keine Sprachen gefunden."_s);
        zeile(
            "Sprache da", Befunde::ocrSprache, [](Welt &w) { w.profil.ocrSprache = u"deu+eng"_s; }, Marke::Keine,
            u"Installiert: Deutsch, Englisch."_s);
        zeile(
            "Sprache fehlt", Befunde::ocrSprache, [](Welt &w) { w.profil.ocrSprache = u"chi_sim"_s; }, Marke::Warnung,
            u"%1 ist nicht installiert, Scans bleiben ungelesen. Installiere das Paket tesseract-ocr-chi-sim."_s.arg(
                Ocrsprachen::name(u"chi_sim"_s)));
    }

    static void ordner()
    {
        const Aenderung ohne = [](Welt &w) { w.profil.quelle.clear(), w.profil.zielWurzel.clear(); };
        const Aenderung weg = [](Welt &w) { w.bereitschaft = Bereitschaft(); };
        const Aenderung ungeprueft = [](Welt &w) { w.bereitschaft.reset(), w.stand.quelle.reset(); };
        const QString fehlt = u"Diesen Ordner gibt es nicht, oder er ist gerade nicht erreichbar."_s;
        zeile("Quelle ungewählt", Befunde::quelle, ohne, Marke::Keine,
              u"Noch nicht gewählt. Hier liegen die Scans, die einen Namen brauchen."_s);
        zeile("Quelle weg", Befunde::quelle, weg, Marke::Warnung, fehlt);
        zeile("Quelle wird gezählt", Befunde::quelle, ungeprueft, Marke::Laeuft, u"PDF werden gezählt …"_s);
        zeile("Quelle gezählt", Befunde::quelle, unveraendert, Marke::Gut, u"3 PDF gefunden."_s);
        zeile(
            "Quelle mit einem", Befunde::quelle, [](Welt &w) { w.stand.quelle->anzahl = 1; }, Marke::Gut,
            u"1 PDF gefunden."_s);
        zeile(
            "Quelle leer, alles ausgenommen", Befunde::quelle,
            [](Welt &w) { w.stand.quelle = Quellstand{.anzahl = 0, .ausgelassen = 2, .ausgenommen = 4}; },
            Marke::Warnung,
            u"0 PDF gefunden. 4 durch Ausnahmen ausgelassen. 2 ausgelassen: Verweise oder Namen, die sich nicht "
            "lesen lassen."_s);
        const auto wache = [](const Scanstand &stand) {
            return [stand](const Einrichtungslage &) { return Befunde::neueScans(stand); };
        };
        zeile("nicht von selbst", wache({.wartende = 3}), unveraendert, Marke::Keine, {});
        zeile("wartet auf Scans", wache({.an = true}), unveraendert, Marke::Gut, u"Wartet auf neue Scans."_s);
        zeile("ein Scan", wache({.an = true, .wartende = 1}), unveraendert, Marke::Laeuft,
              u"1 neuer Scan ist gekommen."_s);
        zeile("Scans ohne Modell", wache({.an = true, .wartende = 2, .ohneModell = true}), unveraendert, Marke::Warnung,
              u"2 neue Scans warten auf das Sprachmodell."_s);
        zeile("nichts ruht", Befunde::ruhende, unveraendert, Marke::Keine,
              u"Derzeit ruht kein Dokument wegen einer Ausnahme."_s);
        zeile(
            "eines ruht", Befunde::ruhende, [](Welt &w) { w.ruhende = 1; }, Marke::Keine,
            u"1 Dokument ruht wegen einer Ausnahme."_s);
        zeile(
            "zwei ruhen", Befunde::ruhende, [](Welt &w) { w.ruhende = 2; }, Marke::Keine,
            u"2 Dokumente ruhen wegen einer Ausnahme."_s);
        zeile("Ziel ungewählt", Befunde::zielWurzel, ohne, Marke::Keine,
              u"Noch nicht gewählt. Hierhin wandern die Dokumente, die du übernimmst."_s);
        zeile("Ziel wird gesucht", Befunde::zielWurzel, ungeprueft, Marke::Laeuft, u"Wird gesucht …"_s);
        zeile("Ziel weg", Befunde::zielWurzel, weg, Marke::Warnung, fehlt);
        zeile("Ziel da", Befunde::zielWurzel, unveraendert, Marke::Gut, u"Ordner gefunden."_s);
    }

    static void struktur()
    {
        zeile(
            "Struktur wird gelesen", Befunde::struktur, [](Welt &w) { w.stand.liestStruktur = true; }, Marke::Laeuft,
            u"Ordner werden gelesen …"_s);
        zeile(
            "Struktur nicht zu lesen", Befunde::struktur, [](Welt &w) { w.stand.strukturmangel = u"Nein."_s; },
            Marke::Warnung, u"Nein."_s);
        zeile(
            "Struktur von anderswo", Befunde::struktur, [](Welt &w) { w.stand.strukturAlt = true; }, Marke::Warnung,
            u"Die Struktur stammt aus dem bisherigen Zielordner. Lies sie neu ein."_s);
        zeile(
            "Struktur ungelesen", Befunde::struktur, [](Welt &w) { w.stand.zahlen = {}; }, Marke::Keine,
            u"Noch nicht eingelesen. Ohne Struktur weiß das Modell nicht, wohin."_s);
        zeile("Struktur gezählt", Befunde::struktur, unveraendert, Marke::Keine,
              u"Zweige: 1, Ablagen: 1, Rubriken: 1."_s);
        zeile(
            "Struktur unverändert", Befunde::struktur, [](Welt &w) { w.stand.geradeGelesen = true; }, Marke::Keine,
            u"Zweige: 1, Ablagen: 1, Rubriken: 1. Eben eingelesen, nichts hat sich geändert."_s);
        zeile(
            "Struktur verändert", Befunde::struktur, [](Welt &w) { w.stand.zahlen.entfallen = 2; }, Marke::Keine,
            u"Zweige: 1, Ablagen: 1, Rubriken: 1. Neu: 0, entfallen: 2."_s);
        zeile("Rubrik bekannt", strom, unveraendert, Marke::Keine, {});
        zeile(
            "Rubrik entfallen", strom,
            [](Welt &w) { w.stand.struktur.last().wechsel = Strukturzeile::Wechsel::Entfallen; }, Marke::Hinweis,
            u"Gibt es in deiner Struktur nicht. Dann wird nicht unterschieden."_s);
        zeile("Rubrik unbekannt", gas, unveraendert, Marke::Hinweis,
              u"Gibt es in deiner Struktur nicht. Dann wird nicht unterschieden."_s);
        zeile("Rubrik ohne Struktur", gas, [](Welt &w) { w.profil.zweige.clear(); }, Marke::Keine, {});
    }

    static void vorlagen()
    {
        const auto vorlage = [](const QString &text, bool istPfad) -> Regel {
            return [=](const Einrichtungslage &) { return Befunde::vorlage(text, istPfad); };
        };
        zeile("Vorlage gut", vorlage(u"{datum} {titel}"_s, false), unveraendert, Marke::Keine, {});
        zeile("Vorlage leer", vorlage(u" "_s, false), unveraendert, Marke::Warnung,
              u"Ohne Vorlage bekommt keine Datei einen Namen."_s);
        zeile("Pfad leer", vorlage({}, true), unveraendert, Marke::Keine, {});
        zeile("Klammer offen", vorlage(u"{datum} {titel"_s, false), unveraendert, Marke::Warnung,
              u"Eine geschweifte Klammer ist nicht geschlossen."_s);
        zeile("Baustein unbekannt", vorlage(u"{ort}"_s, false), unveraendert, Marke::Warnung,
              u"Den Baustein {ort} gibt es nicht, er bleibt immer leer."_s);
        zeile("Baustein leer im Pfad", vorlage(u"{zweig}/{monat}"_s, true), unveraendert, Marke::Warnung,
              u"{monat} bleibt im Ordner immer leer, die Ebene fällt weg."_s);
        const auto beispiel = [](bool echt) -> Regel {
            return [echt](const Einrichtungslage &) {
                Beispiel b;
                b.echt = echt;
                return Befunde::beispiel(b);
            };
        };
        zeile("Beispiel echt", beispiel(true), unveraendert, Marke::Keine,
              u"An einem Dokument, das auf deine Prüfung wartet. Rechnet sich mit jedem Tastendruck neu."_s);
        zeile("Beispiel erfunden", beispiel(false), unveraendert, Marke::Keine,
              u"Noch wartet kein Dokument, deshalb an einem erfundenen. Rechnet sich mit jedem Tastendruck neu."_s);
    }

    static void server()
    {
        const Aenderung unbekannt = [](Welt &w) { w.modell = Modellstand(); };
        const Aenderung fehlt = [](Welt &w) { w.modell = ohneServer(); };
        const Aenderung fremder = [](Welt &w) { w.umgebung = u"Fremder."_s; };
        zeile("Server wird gesucht", Befunde::modellserver, unbekannt, Marke::Laeuft, u"Wird gesucht …"_s);
        zeile("Server fehlt", Befunde::modellserver, fehlt, Marke::Warnung, u"Der Modellserver ollama läuft nicht"_s);
        zeile("Server läuft", Befunde::modellserver, unveraendert, Marke::Gut, u"Der Modellserver läuft."_s);
        zeile("Rat ohne Wissen", Befunde::serverrat, unbekannt, Marke::Keine, {});
        zeile(
            "Rat bei fehlendem", Befunde::serverrat, fehlt, Marke::Keine,
            u"Starte ihn mit „ollama serve“. Fehlt er ganz, installiere das Programm ollama und prüfe dann erneut."_s);
        zeile("Rat bei laufendem", Befunde::serverrat, unveraendert, Marke::Keine,
              u"Sprachmodell klein:1b einsatzbereit"_s);
        zeile("Server kurz, wird gesucht", Befunde::server, unbekannt, Marke::Laeuft, u"Wird gesucht …"_s);
        zeile("Server kurz, fehlt", Befunde::server, fehlt, Marke::Warnung,
              u"ollama läuft nicht. Was zu tun ist, steht unter Programme."_s);
        zeile("Server kurz, läuft", Befunde::server, unveraendert, Marke::Gut, u"ollama läuft"_s);
        zeile("Server kurz, Umgebung", Befunde::server, fremder, Marke::Warnung, u"ollama läuft. Fremder."_s);
        zeile(
            "Server kurz, fehlt, Umgebung", Befunde::server, [=](Welt &w) { fehlt(w), fremder(w); }, Marke::Warnung,
            u"ollama läuft nicht. Was zu tun ist, steht unter Programme. Fremder."_s);
    }

    static void modelle()
    {
        zeile("Modell da", klein, unveraendert, Marke::Gut, u"einsatzbereit"_s);
        zeile(
            "Modell ungewählt", klein, [](Welt &w) { w.profil.modell.clear(); }, Marke::Keine, u"Keines gewählt."_s);
        zeile(
            "Modell fehlt", klein, [](Welt &w) { w.modell.vorhandene.clear(); }, Marke::Warnung,
            u"Das Modell klein:1b fehlt noch"_s);
        zeile(
            "Modell ließ sich nicht laden", gross,
            [](Welt &w) { w.modell.fehlermodell = u"gross:9b"_s, w.modell.ladefehler = u"no space left"_s; },
            Marke::Warnung, u"Das Modell gross:9b fehlt noch: no space left"_s);
        zeile(
            "ein anderes ließ sich nicht laden", gross,
            [](Welt &w) { w.modell.fehlermodell = u"klein:1b"_s, w.modell.ladefehler = u"no space left"_s; },
            Marke::Warnung, u"Das Modell gross:9b fehlt noch"_s);
        zeile(
            "Modell ohne Server", klein, [](Welt &w) { w.modell = ohneServer(); }, Marke::Keine,
            u"Ob es da ist, weiß nur der Modellserver."_s);
        zeile(
            "Modell kommt", gross, [](Welt &w) { w.modell.laedtModell = u"gross:9b"_s; }, Marke::Laeuft,
            u"wird geladen"_s);
        zeile(
            "Modell kommt zu einem Viertel", gross,
            [](Welt &w) { w.modell.laedtModell = u"gross:9b"_s, w.modell.geladen = 1000, w.modell.ladegroesse = 4000; },
            Marke::Laeuft, u"wird geladen, 25 %"_s);
        zeile(
            "Modell rechnet anderswo", klein,
            [](Welt &w) { w.profil.modell = u"fern:1b"_s, w.modell.verzeichnis = mitEntferntem(); }, Marke::Warnung,
            Modellstand::anderswoSatz(u"fern:1b"_s));
        zeile(
            "großes nicht gefragt", gross, [](Welt &w) { w.profil.zweitmeinung = false; }, Marke::Keine,
            u"Wird nicht gefragt."_s);
        zeile("nichts wird geladen", Befunde::ladestand, unveraendert, Marke::Keine, {});
        zeile(
            "Laden beginnt", Befunde::ladestand,
            [](Welt &w) { w.modell.laedtModell = u"a"_s, w.modell.ladetext = u"pulling manifest"_s; }, Marke::Keine,
            u"pulling manifest. Du kannst inzwischen weiter einrichten."_s);
        zeile(
            "Laden mit Restzeit", Befunde::ladestand,
            [](Welt &w) {
                w.modell.laedtModell = u"a"_s, w.modell.geladen = 512, w.modell.ladegroesse = 1023,
                w.modell.restzeit = u"noch 2 Minuten"_s;
            },
            Marke::Keine,
            u"%1 von %2 · noch 2 Minuten. Du kannst inzwischen weiter einrichten."_s.arg(
                QLocale().formattedDataSize(512, 1), QLocale().formattedDataSize(1023, 1)));
    }

    static void gelerntes()
    {
        zeile("keine Zuordnungen", Befunde::zuordnungen, unveraendert, Marke::Keine,
              u"Noch keine. Übernimmst du ein Dokument, merkt sich das Programm den Ort für sein Gegenüber."_s);
        zeile(
            "Zuordnungen", Befunde::zuordnungen, [](Welt &w) { w.stand.gelerntes.zuordnungen.resize(3); }, Marke::Keine,
            u"3 gemerkt"_s);
        zeile(
            "keine Gleichungen", Befunde::gleichungen, [](Welt &w) { w.stand.gelerntes.zuordnungen.resize(3); },
            Marke::Keine,
            u"Noch keine. Änderst du beim Prüfen den Namen des Gegenübers, merkt sich das Programm die Gleichung und "
            "trägt sie in alle wartenden Dokumente mit dem alten Namen ein."_s);
        zeile(
            "Gleichungen", Befunde::gleichungen, [](Welt &w) { w.stand.gelerntes.gleichungen.resize(1); }, Marke::Keine,
            u"1 gemerkt"_s);
    }

private Q_SLOTS:
    void einesFeldes_data()
    {
        QTest::addColumn<Regel>("regel");
        QTest::addColumn<Aenderung>("aenderung");
        QTest::addColumn<Marke>("marke");
        QTest::addColumn<QString>("satz");
        programme();
        ordner();
        struktur();
        vorlagen();
        server();
        modelle();
        gelerntes();
    }
    void einesFeldes()
    {
        QFETCH(Regel, regel);
        QFETCH(Aenderung, aenderung);
        Welt welt;
        aenderung(welt);
        const Befund befund = regel(welt.lage());
        QTEST(befund.satz, "satz");
        QTEST(befund.marke, "marke");
    }

    /** The sentence tells how much of the model the question takes, and the mark whether that is too much. */
    void platz_data()
    {
        QTest::addColumn<double>("anteil");
        QTest::addColumn<Marke>("marke");
        QTest::addColumn<QString>("ende");
        QTest::newRow("genug") << 0.89 << Marke::Gut << u"was das Modell fasst."_s;
        QTest::newRow("knapp") << 0.91 << Marke::Hinweis << u"Das ist knapp."_s;
        QTest::newRow("zu viel") << 1.01 << Marke::Warnung << u"oder fasse Rubriken zusammen."_s;
    }
    void platz()
    {
        QFETCH(double, anteil);
        QFETCH(QString, ende);
        Welt welt;
        const auto mit = [&welt](int zeichen) {
            welt.profil.maxZeichen = zeichen;
            return platzImModell(welt.profil);
        };
        const double ohne = mit(0);
        welt.profil.maxZeichen = int((anteil - ohne) / (mit(1000) - ohne) * 1000);
        const Befund befund = Befunde::platz(welt.lage());
        QTEST(befund.marke, "marke");
        QVERIFY2(befund.satz.endsWith(ende), qPrintable(befund.satz));
    }

    void ordnername_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("mangel");
        const QString keinPfad = u"Nur ein Name, kein Pfad."_s;
        QTest::newRow("gut") << u"prüfen"_s << QString();
        QTest::newRow("mit Punkt") << u".prüfen"_s << QString();
        QTest::newRow("leer") << u"  "_s << u"Der Ordner braucht einen Namen."_s;
        QTest::newRow("Pfad") << u"a/b"_s << keinPfad;
        QTest::newRow("dieser") << u"."_s << keinPfad;
        QTest::newRow("darüber") << u" .. "_s << keinPfad;
    }
    void ordnername()
    {
        QFETCH(QString, name);
        QTEST(ordnernamenmangel(name), "mangel");
    }

    void modellauswahl()
    {
        Modellstand stand;
        stand.vorhandene = QStringList{u"a:1b"_s, u"fern:1b"_s};
        stand.verzeichnis = mitEntferntem();
        const QList<Wahleintrag> auswahl = stand.auswahl(u"b:1b"_s);
        QCOMPARE(auswahl.size(), 3);
        QCOMPARE(auswahl.first(), (Wahleintrag{.wert = u"b:1b"_s, .anzeige = u"b:1b"_s}));
        QCOMPARE(auswahl.last().mangel, Modellstand::anderswoSatz(u"fern:1b"_s));
        QCOMPARE(stand.auswahl(u"a:1b"_s).size(), 2);
        QCOMPARE(stand.auswahl({}).first().wert, u"a:1b"_s);
    }

    void ladenWirdAngeboten()
    {
        Modellstand stand;
        QVERIFY(Befunde::fehlt(stand, u"a:1b"_s, u"a:1b"_s));
        QVERIFY(!Befunde::fehlt(stand, {}, {}));
        stand.laedtModell = u"a:1b"_s;
        QVERIFY(!Befunde::fehlt(stand, u"a:1b"_s, u"a:1b"_s) && Befunde::fehlt(stand, u"b:1b"_s, u"b:1b"_s));
        stand.vorhandene = QStringList{u"b:1b"_s};
        QVERIFY(!Befunde::fehlt(stand, u"b:1b"_s, u"b:1b"_s));
        stand.verzeichnis = mitEntferntem();
        QVERIFY(!Befunde::fehlt(stand, u"c:1b"_s, u"fern:1b"_s) && Befunde::fehlt(stand, u"c:1b"_s, u"c:1b"_s));
    }

    void abschnitte()
    {
        QCOMPARE(Befunde::ort({u"Haus"_s, u"Akten"_s}), u"Haus › Akten"_s);
        QCOMPARE(Befunde::ort({}), u"Noch kein Zielordner gewählt"_s);
        Welt welt;
        for (const Abschnitt abschnitt : alleAbschnitte())
            QCOMPARE(fussnote(abschnitt, welt.lage()).isEmpty(), abschnitt != Abschnitt::Namen);
        welt.stand.zahlen.neu = 1;
        QCOMPARE(fussnote(Abschnitt::Ziel, welt.lage()),
                 u"Die Änderungen der Struktur gelten ab dem nächsten Durchgang."_s);
        const auto wort = [](Lage lage) { return Abschnittsstand{.lage = lage, .zeile = {}}.markenwort(); };
        QCOMPARE(wort(Lage::Fehlt) + wort(Lage::Offen), u"fehlt nochfehlt noch"_s);
        QCOMPARE(wort(Lage::Gestoert) + wort(Lage::Warnung), u"AchtungAchtung"_s);
        QCOMPARE(wort(Lage::Gut) + wort(Lage::Prueft) + wort(Lage::Ohne), u"fertig"_s);
    }
};

QTEST_GUILESS_MAIN(TestBefunde)
#include "test_befunde.moc"
