#include "abschnitte.h"

#include "abschnittsseite.h"
#include "bau.h"
#include "einrichtung.h"
#include "fenstersprache.h"
#include "kleiderordnung.h"
#include "modelldienst.h"
#include "ocrsprachen.h"
#include "scanwache.h"
#include "sprache.h"
#include "textschild.h"
#include "zustand.h"

#include <QCheckBox>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
// Widths of fields, in characters.
constexpr int namenszeichen = 22;
constexpr int rubrikzeichen = 26;
constexpr int zahlzeichen = 8;

constexpr int meisteSeiten = 50;
constexpr int meisteZeichen = 20'000;
constexpr int zeichenschritt = 100;

/** A word that stands inside sentences too, and so begins small in some languages. */
QString alsBeschriftung(const QString &text) { return text.left(1).toUpper() + text.mid(1); }

/** The title of a section or of a part of it. */
Abschnittszeile titel(const QString &text, const QString &erklaerung) { return {{}, Feld::Titel{}, text, erklaerung}; }

Abschnittszeile werkzeug(const QString &name, const QString &hilfe)
{
    return {u"werkzeug-"_s + name, {}, name, hilfe, 0, [name](const Einrichtungslage &lage) {
                return Befunde::werkzeug(lage, name);
            }};
}

QList<Wahleintrag> ocrSprachen(const Einrichtungslage &lage)
{
    QList<Wahleintrag> sprachen;
    const QStringList installierte = lage.stand.programme ? lage.stand.programme->sprachen : QStringList();
    for (const QString &code : Ocrsprachen::auswahl(installierte, lage.profil.ocrSprache))
        sprachen << Wahleintrag{.wert = code, .anzeige = Ocrsprachen::name(code)};
    return sprachen;
}

QList<Abschnittszeile> programme(Zustand *zustand, Fenstersprache *)
{
    return {
        titel(abschnittTitel(Abschnitt::Programme),
              Sprache::text(u"Womit die Dokumente gelesen werden. Alles läuft auf diesem Rechner."_s)),
        werkzeug(u"pdftotext"_s, Sprache::text(u"Holt den Text aus PDF, die schon welchen enthalten."_s)),
        werkzeug(u"pdftoppm"_s, Sprache::text(u"Macht aus den Seiten eines Scans Bilder für die Texterkennung."_s)),
        werkzeug(u"tesseract"_s, Sprache::text(u"Erkennt den Text auf den Bildern."_s)),
        {.knopf = {u"programmePruefen"_s, Sprache::text(u"Erneut prüfen"_s),
                   Sprache::text(u"Sieht noch einmal nach, was installiert ist"_s),
                   [zustand] {
                       zustand->einrichtung()->einrichtungPruefen();
                       zustand->modelldienst()->modellPruefen();
                   }}},
        titel(Sprache::text(u"Texterkennung"_s),
              Sprache::text(u"Die Texterkennung liest nur Sprachen gut, deren Daten installiert sind."_s)),
        {u"ocrSprache"_s, Feld::Wahl{&Profil::ocrSprache, ocrSprachen}, Sprache::text(u"Sprache der Scans"_s),
         Sprache::text(u"Die Sprache, in der deine Briefe meist sind."_s), namenszeichen, Befunde::ocrSprache},
        titel(Sprache::text(u"Modellserver"_s),
              Sprache::text(u"Er rechnet das Sprachmodell, das Namen und Ordner vorschlägt."_s)),
        {u"modellserver"_s, {}, u"ollama"_s, {}, 0, Befunde::modellserver},
        {u"modellserver-rat"_s, {}, {}, {}, 0, Befunde::serverrat},
    };
}

/** Whether new scans are taken in by themselves, which is kept outside of the profile. */
Teile scanwahl(Abschnittsseite &seite, const Abschnittszeile &zeile)
{
    Scanwache *wache = seite.zustand()->scanwache();
    auto *kaestchen = new QCheckBox(zeile.beschriftung, &seite);
    QObject::connect(kaestchen, &QCheckBox::clicked, wache, &Scanwache::setzeAn);
    QObject::connect(wache, &Scanwache::geaendert, &seite, [&seite] {
        if (seite.isVisible())
            seite.auffrischen();
    });
    seite.folgen([kaestchen, wache](const Einrichtungslage &) { kaestchen->setChecked(wache->stand().an); });
    return {.feld = kaestchen};
}

QList<Abschnittszeile> herkunft(Zustand *zustand, Fenstersprache *)
{
    return {
        titel(abschnittTitel(Abschnitt::Herkunft),
              Sprache::text(u"Der Ordner mit den Scans. Gelesen wird er nur, bis du einen Vorschlag übernimmst."_s)),
        {u"quelle"_s, Feld::Ordner{&Profil::quelle, Sprache::text(u"Herkunftsordner mit den Scans wählen"_s)},
         alsBeschriftung(Sprache::text(u"Herkunftsordner"_s)),
         Sprache::text(u"Der Ordner, in dem die gescannten PDF liegen."_s), 0, Befunde::quelle},
        {u"mitUnterordnern"_s, Feld::Kaestchen{&Profil::mitUnterordnern}, Sprache::text(u"Unterordner mitlesen"_s)},
        {.name = u"neueScans"_s,
         .feld = Feld::Eigenes{scanwahl},
         .beschriftung = Sprache::text(u"Neue Scans von selbst einlesen"_s),
         .befund = [zustand](const Einrichtungslage &) { return Befunde::neueScans(zustand->scanwache()->stand()); },
         .erklaerung = Sprache::text(u"Solange das Fenster offen ist, beginnt ein Durchgang von selbst, sobald neue "
                                     "Dateien zehn Sekunden lang unverändert daliegen."_s)},
        titel(Sprache::text(u"Ausnahmen"_s),
              Sprache::text(u"Ausnahmen wirken sofort auf die ganze Warteschlange. Nimmst du eine Regel wieder "
                            "heraus, kehren die Dokumente von selbst zurück."_s)),
        {{}, Feld::Eigenes{ausnahmen}},
        {u"ruhende"_s, {}, {}, {}, 0, Befunde::ruhende},
        {u"ausgelassene"_s, Feld::Eigenes{ausgelassene}},
    };
}

QList<Abschnittszeile> ziel(Zustand *zustand, Fenstersprache *)
{
    return {
        titel(abschnittTitel(Abschnitt::Ziel),
              Sprache::text(u"Die Wurzel deiner Ablage. Darunter liegen Zweige, Ablagen und Rubriken so, wie du sie "
                            "angelegt hast."_s)),
        {u"zielWurzel"_s,
         Feld::Ordner{&Profil::zielWurzel, Sprache::text(u"Zielordner wählen, in dem deine Ablage liegt"_s)},
         alsBeschriftung(Sprache::text(u"Zielordner"_s)), Sprache::text(u"Der oberste Ordner deiner Ablage."_s), 0,
         Befunde::zielWurzel},
        {u"auffangOrdner"_s, Feld::Text{&Profil::auffangOrdner, ordnernamenmangel}, Sprache::text(u"Auffangordner"_s),
         Sprache::text(u"Je Zweig, für alles ohne passende Rubrik."_s), namenszeichen},
        {u"dublettenOrdner"_s, Feld::Text{&Profil::dublettenOrdner, ordnernamenmangel},
         Sprache::text(u"Dublettenordner"_s), Sprache::text(u"Hierhin kommt, was doppelt ist. Gelöscht wird nichts."_s),
         namenszeichen},
        {u"betriebsart"_s,
         Feld::Paar{
             &Profil::kopieren,
             {u"verschieben"_s, Sprache::text(u"Verschieben"_s), Sprache::text(u"Am alten Platz bleibt nichts."_s)},
             {u"kopieren"_s, Sprache::text(u"Kopieren"_s),
              Sprache::text(u"Die Originale bleiben unberührt liegen."_s)}},
         Sprache::text(u"Betriebsart"_s)},
        {.name = u"struktur"_s,
         .feld = Feld::Titel{},
         .beschriftung = Sprache::text(u"Struktur"_s),
         .befund = Befunde::struktur,
         .knopf = {u"strukturEinlesen"_s, Sprache::text(u"Struktur einlesen"_s),
                   Sprache::text(u"Liest die Ordner unter dem Zielordner. Verändert wird dort nichts."_s),
                   [zustand] { zustand->einrichtung()->strukturEinlesen(); }, Symbol::NeuLaden, false,
                   [](const Einrichtungslage &lage) {
                       return !lage.profil.zielWurzel.isEmpty() && !lage.stand.liestStruktur;
                   }}},
        {{}, Feld::Eigenes{strukturbaum}},
    };
}

/** A line of the example, which is made anew with every key. */
Abschnittszeile ergebnis(const QString &name, const QString &beschriftung,
                         const std::function<QString(const Beispiel &)> &text, Schrift schrift = Schrift::Grund)
{
    const auto bauen = [name, text, schrift](Abschnittsseite &seite, const Abschnittszeile &) -> Teile {
        auto *schild = new Textschild(Textschild::Art::Umbruch, schrift, name);
        seite.folgen([schild, text, &seite](const Einrichtungslage &) {
            schild->setzeText(text(seite.zustand()->einrichtung()->beispiel()));
        });
        return {.feld = schild};
    };
    return {name, Feld::Eigenes{bauen}, beschriftung};
}

QList<Abschnittszeile> beispiel(Zustand *zustand)
{
    const Einrichtung *einrichtung = zustand->einrichtung();
    return {
        {.name = u"beispiel"_s,
         .feld = Feld::Titel{},
         .beschriftung = Sprache::text(u"Beispiel"_s),
         .befund = [einrichtung](const Einrichtungslage &) { return Befunde::beispiel(einrichtung->beispiel()); },
         .knopf = {u"anderesBeispiel"_s, Sprache::text(u"Anderes Dokument"_s),
                   Sprache::text(u"Zeigt das Beispiel am nächsten wartenden Dokument"_s),
                   [zustand] { zustand->einrichtung()->anderesBeispiel(); }, Symbol::NeuLaden, true,
                   [einrichtung](const Einrichtungslage &) { return einrichtung->beispiel().echt; }}},
        ergebnis(u"beispiel-dokument"_s, Sprache::text(u"Dokument"_s), &Beispiel::dokument),
        ergebnis(u"beispiel-name"_s, Sprache::text(u"Neuer Name"_s), &Beispiel::name, Schrift::Abschnitt),
        ergebnis(
            u"beispiel-ort"_s, Sprache::text(u"Neuer Ort"_s), [](const Beispiel &b) { return Befunde::ort(b.ort); },
            Schrift::Verweis),
        ergebnis(u"beispiel-ohneTitel"_s, Sprache::text(u"Ohne Titel"_s), &Beispiel::ohneTitel, Schrift::Neben),
        ergebnis(
            u"beispiel-ohneRubrik"_s, Sprache::text(u"Ohne Rubrik"_s),
            [](const Beispiel &b) { return Befunde::ort(b.ohneRubrik); }, Schrift::Neben),
    };
}

QList<Abschnittszeile> namen(Zustand *zustand, Fenstersprache *)
{
    const auto mangel = [](QString Profil::*feld, bool istPfad) {
        return [=](const Einrichtungslage &lage) { return Befunde::vorlage(lage.profil.*feld, istPfad); };
    };
    return QList<Abschnittszeile>{
               titel(abschnittTitel(Abschnitt::Namen),
                     Sprache::text(u"Wie die Dateien heißen und in welchen Ordner sie kommen. Ein Baustein wird an "
                                   "der Schreibmarke eingesetzt."_s)),
               {u"namensVorlage"_s,
                Feld::Vorlage{&Profil::namensVorlage, false, {alleBausteine.begin(), alleBausteine.end()}},
                Sprache::text(u"Dateiname"_s),
                Sprache::text(u"Bausteine in geschweiften Klammern werden je Dokument ersetzt. Leere "
                              "Bausteine verschwinden samt ihrer Trennzeichen."_s),
                0, mangel(&Profil::namensVorlage, false)},
               {u"pfadVorlage"_s,
                Feld::Vorlage{
                    &Profil::pfadVorlage, true, {Baustein::Zweig, Baustein::Ablage, Baustein::Jahr, Baustein::Rubrik}},
                Sprache::text(u"Ordner"_s),
                Sprache::text(u"Ordnerebenen durch Schrägstrich getrennt. Fehlt ein Baustein, fällt die Ebene "
                              "weg."_s),
                0, mangel(&Profil::pfadVorlage, true)},
           } +
           beispiel(zustand);
}

Abschnittszeile rubrik(const QString &name, QString Profil::*feld, const QString &beschriftung, const QString &hilfe)
{
    return {name,          Feld::Text{feld},
            beschriftung,  hilfe,
            rubrikzeichen, [feld](const Einrichtungslage &lage) { return Befunde::rubrik(lage, lage.profil.*feld); }};
}

QList<Abschnittszeile> eigentuemer(Zustand *, Fenstersprache *)
{
    return {
        titel(abschnittTitel(Abschnitt::Eigentuemer),
              Sprache::text(u"Wer du bist. Daran erkennt das Programm bei jedem Schreiben die andere Seite."_s)),
        {u"eigentuemer"_s,
         Feld::Text{&Profil::eigentuemer, nullptr, Sprache::text(u"etwa Familie Brandt, Meißen"_s)},
         Sprache::text(u"Eigentümer"_s),
         Sprache::text(u"Beschreibung in freien Worten."_s),
         0,
         {},
         Sprache::text(u"In freien Worten. Steht in der Anweisung an das Modell."_s)},
        {u"eigeneNamen"_s, Feld::Zeilen{&Profil::eigeneNamen}, Sprache::text(u"Eigene Namen"_s),
         Sprache::text(u"Einer je Zeile, auch Firma und Schreibweisen. Diese Namen werden nie als Gegenüber "
                       "vorgeschlagen."_s)},
        {u"eigeneAnschriften"_s, Feld::Zeilen{&Profil::eigeneAnschriften}, Sprache::text(u"Eigene Anschriften"_s),
         Sprache::text(u"Eine je Zeile, Teile durch Komma getrennt, etwa Burgstraße 1, 01662 Meißen. Steht "
                       "sie im Anschriftenfeld, ist die Rechnung an dich gerichtet."_s)},
        titel(Sprache::text(u"Rechnungen"_s),
              Sprache::text(u"Rechnungen von dir und an dich kommen in diese Rubriken, auch wenn deine Struktur sie "
                            "noch nicht hat. Beim Prüfen ist das am Feld zu sehen."_s)),
        rubrik(u"rubrikAusgang"_s, &Profil::rubrikAusgang, Sprache::text(u"Rubrik für ausgehende"_s),
               Sprache::text(u"Für Rechnungen, die du geschrieben hast."_s)),
        rubrik(u"rubrikEingang"_s, &Profil::rubrikEingang, Sprache::text(u"Rubrik für eingehende"_s),
               Sprache::text(u"Für Rechnungen, die du bekommen hast."_s)),
    };
}

/** How far the fetching of a model is; only while there is one. */
Teile ladeteil(Abschnittsseite &seite, const Abschnittszeile &)
{
    QProgressBar *fortschritt = balken(u"modell-fortschritt"_s);
    QWidget *teil =
        traeger(reihe({{fortschritt, 1},
                       seite.knopf({u"modellLadenAbbrechen"_s, Sprache::text(u"Abbrechen"_s),
                                    Sprache::text(u"Was schon da ist, bleibt für das nächste Mal"_s),
                                    [dienst = seite.zustand()->modelldienst()] { dienst->modellLadenAbbrechen(); },
                                    Symbol::Halt})},
                      Abstand::Feld),
                &seite);
    seite.folgen([teil, fortschritt](const Einrichtungslage &lage) {
        const Modellstand &stand = lage.modell;
        teil->setVisible(!stand.laedtModell.isEmpty());
        setzeAnteil(fortschritt, stand.ladegroesse > 0 ? double(stand.geladen) / double(stand.ladegroesse) : 0);
    });
    return {.feld = teil};
}

QList<Abschnittszeile> modell(Zustand *zustand, Fenstersprache *)
{
    return {
        titel(abschnittTitel(Abschnitt::Modell),
              Sprache::text(u"Womit die Dokumente eingeordnet werden. Alles läuft auf diesem Rechner, kein Text "
                            "verlässt ihn."_s)),
        {.name = u"modellstand"_s,
         .beschriftung = Sprache::text(u"Modellserver"_s),
         .befund = Befunde::server,
         .knopf = {u"modellPruefen"_s, Sprache::text(u"Erneut prüfen"_s),
                   Sprache::text(u"Fragt den Modellserver noch einmal"_s),
                   [zustand] { zustand->modelldienst()->modellPruefen(); }}},
        {u"modell"_s, Feld::Modell{&Profil::modell, Befunde::modell}, Sprache::text(u"Sprachmodell"_s),
         Sprache::text(u"Schlägt für jedes Dokument Datum, Gegenüber, Titel und Ort vor."_s), namenszeichen},
        {u"modell-ladeteil"_s, Feld::Eigenes{ladeteil}},
        {u"modell-menge"_s, {}, {}, {}, 0, Befunde::ladestand},
        {u"zweitmeinung"_s, Feld::Kaestchen{&Profil::zweitmeinung},
         Sprache::text(u"Zweitmeinung für strittige Fälle einholen"_s)},
        {.name = u"modellGross"_s,
         .feld = Feld::Modell{&Profil::modellGross, Befunde::modellGross},
         .beschriftung = Sprache::text(u"Großes Modell"_s),
         .hilfe = Sprache::text(u"Prüft nach, wo sich das Sprachmodell nicht sicher war."_s),
         .zeichen = namenszeichen,
         .gilt = [](const Profil &profil) { return profil.zweitmeinung; }},
        titel(Sprache::text(u"Lesen"_s),
              Sprache::text(u"Mehr Seiten und Zeichen machen Vorschläge etwas sicherer und den Durchgang deutlich "
                            "langsamer."_s)),
        {u"seiten"_s, Feld::Zahl{&Profil::seiten, meisteSeiten}, Sprache::text(u"Seiten"_s),
         Sprache::text(u"So viele Seiten je Dokument werden gelesen."_s), zahlzeichen},
        {u"maxZeichen"_s, Feld::Zahl{&Profil::maxZeichen, meisteZeichen, zeichenschritt}, Sprache::text(u"Zeichen"_s),
         Sprache::text(u"So viele Zeichen davon bekommt das Modell höchstens."_s), zahlzeichen},
        titel(Sprache::text(u"Platz im Modell"_s),
              Sprache::text(u"Die Anweisung zählt deine Zweige, Ablagen und Rubriken auf. Wird sie zu lang, sieht "
                            "das Modell nicht mehr alle."_s)),
        {u"platz"_s, {}, Sprache::text(u"Anweisung"_s), {}, 0, Befunde::platz},
    };
}

QList<Abschnittszeile> gelernt(Zustand *, Fenstersprache *)
{
    return {titel(abschnittTitel(Abschnitt::Gelernt),
                  Sprache::text(u"Was sich das Programm aus deinen Entscheidungen gemerkt hat."_s)),
            {{}, Feld::Eigenes{ausAblage}},
            {{}, Feld::Eigenes{gelerntes}},
            titel(Sprache::text(u"Sicherungen"_s),
                  Sprache::text(u"Einmal am Tag wird der Katalog gesichert: was er von den Dokumenten weiß, Vorschläge "
                                "und Gelerntes. Sieben Sicherungen bleiben. Die Dokumente selbst sind nicht darin."_s)),
            {{}, Feld::Eigenes{sicherungen}}};
}

/** A choice of the window itself, which no profile keeps. */
Feld::Eigenes fensterwahl(QList<Wahleintrag> (*eintraege)(), const std::function<QString()> &wert,
                          const std::function<void(const QString &)> &waehlen)
{
    return {[eintraege, wert, waehlen](Abschnittsseite &seite, const Abschnittszeile &) -> Teile {
        auto *wahl = new Auswahl([=](QComboBox *alle) { wahlAuffrischen(alle, eintraege(), wert()); }, &seite);
        // Later: the choice may go down with the window's whole content.
        QObject::connect(
            wahl, &QComboBox::activated, wahl, [wahl, waehlen] { waehlen(wahl->currentData().toString()); },
            Qt::QueuedConnection);
        const auto zeigen = [wahl, wert] {
            wahl->setCurrentIndex(std::max(0, wahl->findData(wert()))); // the chosen one may be gone
        };
        seite.folgen([zeigen](const Einrichtungslage &) { zeigen(); });
        Stil::folgen(wahl, zeigen);
        return {.feld = wahl};
    }};
}

QList<Abschnittszeile> oberflaeche(Zustand *zustand, Fenstersprache *sprache)
{
    return {
        titel(abschnittTitel(Abschnitt::Oberflaeche),
              Sprache::text(u"Gilt für das ganze Fenster und alle Profile, sofort und ohne Neustart."_s)),
        {u"sprache"_s,
         fensterwahl(
             &Fenstersprache::auswahl, [sprache] { return sprache->kennung(); },
             [sprache](const QString &kennung) { sprache->waehlen(kennung); }),
         Sprache::text(u"Sprache"_s),
         Sprache::text(u"Sprache des Fensters."_s),
         namenszeichen,
         {},
         Sprache::text(u"Auch Dateidialoge, Zahlen und Daten richten sich danach."_s)},
        {u"schriftgroesse-wahl"_s,
         fensterwahl(&schriftgroessen, &naechsteSchriftgroesse,
                     [](const QString &punkte) { schriftgroesseWaehlen(punkte.toDouble()); }),
         Sprache::text(u"Schriftgröße"_s),
         Sprache::text(u"Grundgröße der Schrift in Punkt."_s),
         namenszeichen,
         {},
         Sprache::text(u"Überall auch mit Strg und Plus oder Minus."_s)},
        titel(Sprache::text(u"Eigene Sprachen"_s),
              Sprache::text(u"Im Ordner liegt die Vorlage _Vorlage.json mit allen Texten des Programms. Übersetze "
                            "sie und speichere sie unter einem anderen Namen, etwa fr.json: Dann steht die Sprache "
                            "oben zur Wahl."_s)),
        {.knopf = {u"eigeneSprachen"_s, Sprache::text(u"Ordner für eigene Sprachen öffnen"_s),
                   Sprache::text(u"Öffnet den Ordner in der Dateiverwaltung"_s),
                   [zustand] { zustand->einrichtung()->spracheVorbereiten(); }, Symbol::Ordner, false}},
    };
}
} // namespace

QList<Abschnittszeile> abschnittszeilen(Abschnitt abschnitt, Zustand *zustand, Fenstersprache *sprache)
{
    constexpr std::array tabellen = {programme,           herkunft, einrichtung::ziel, namen, eigentuemer,
                                     einrichtung::modell, gelernt,  oberflaeche};
    return tabellen.at(std::size_t(abschnitt))(zustand, sprache);
}
} // namespace quillmar::einrichtung
