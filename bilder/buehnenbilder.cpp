#include "buehnenbild.h"

#include "ausfuehrung.h"
#include "bremse.h"
#include "datenbank.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "hauptfenster.h"
#include "katalogpflege.h"
#include "modelldienst.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "programmordner.h"
#include "protokollbuch.h"
#include "pruefung.h"
#include "seitenbelege.h"
#include "sitzungen.h"
#include "vorschau.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QShortcut>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr QSize klein(1100, 700);

/** Brings the document whose present name contains @p teil under review. */
void aufsuchen(Zustand &zustand, const QString &teil)
{
    zustand.setzeReiter(Reiter::Pruefen);
    for (int n = 0;
         n < 100 && !(zustand.pruefung()->aktuelles() && zustand.pruefung()->aktuelles()->pfad.contains(teil)); ++n) {
        zustand.ausfuehrung()->weiter(Richtung::Weiter);
        laufenBis([&] { return !zustand.ausfuehrung()->beschaeftigt(); });
    }
}

void uebernehmen(Zustand &zustand)
{
    zustand.pruefung()->setzeUngesehen(false); // its card need not be in front
    zustand.ausfuehrung()->uebernehmen();
    laufenBis([&] { return !zustand.ausfuehrung()->beschaeftigt(); });
}

void pruefen(Zustand &zustand, Hauptfenster &) { aufsuchen(zustand, u"trom"_s); }

/** The model server runs or not, and the program has noticed. */
void serverDa(Zustand &zustand, bool da)
{
    qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(da ? bremse().serverPort() : 9));
    zustand.modelldienst()->modellPruefen();
    laufenBis([&] {
        const Modellstand::Art art = zustand.modelldienst()->modellstand().art;
        return art != Modellstand::Art::Unbekannt && (art == Modellstand::Art::ServerFehlt) != da;
    });
}

void druecken(const Hauptfenster &fenster, const QString &name)
{
    for (auto *knopf : fenster.findChildren<QAbstractButton *>(name)) {
        if (knopf->isVisible())
            return knopf->click();
    }
}

void ablauf(Zustand &zustand, Hauptfenster &)
{
    zustand.setzeReiter(Reiter::Ablauf);
    serverDa(zustand, true);
}

/** A start that finds no model server. */
void startfrage(Zustand &zustand, Hauptfenster &fenster)
{
    zustand.setzeReiter(Reiter::Ablauf);
    serverDa(zustand, false);
    ruhe();
    druecken(fenster, u"durchgangStarten"_s);
    laufenBis([&] { return zustand.modelldienst()->modellstand().art == Modellstand::Art::ServerFehlt; });
}

/** A run that has come to the model and stays there. */
void laufend(Zustand &zustand, Hauptfenster &fenster)
{
    constexpr int beantwortet = 17;
    ablauf(zustand, fenster);
    if (bremse().gehalten() > 0)
        return;
    bremse().halten(beantwortet);
    zustand.durchgang()->durchgangStarten();
    laufenBis([&] { return bremse().gehalten() > 0; });
    zustand.pruefung()->aktualisieren();
}

std::function<void(Zustand &, Hauptfenster &)> abschnitt(Abschnitt welcher)
{
    return [welcher](Zustand &zustand, Hauptfenster &) {
        serverDa(zustand, true);
        zustand.setzeReiter(Reiter::Einrichtung);
        zustand.einrichtung()->setzeAbschnitt(welcher);
        laufenBis([&] { return zustand.einrichtung()->stand().programme && zustand.einrichtung()->stand().quelle; });
        ruhe();
        zustand.einrichtung()->ablagelernen()->ablehnen(); // has a picture of its own
    };
}

/** The setup is complete, and the tree holds documents. */
void angebot(Zustand &zustand, Hauptfenster &)
{
    serverDa(zustand, true);
    zustand.setzeReiter(Reiter::Einrichtung);
    zustand.einrichtung()->setzeAbschnitt(Abschnitt::Modell);
    laufenBis([&] { return zustand.einrichtung()->ablagelernen()->angebot(); });
}

/** What the filing tree would teach. */
void ausAblage(Zustand &zustand, Hauptfenster &fenster)
{
    abschnitt(Abschnitt::Gelernt)(zustand, fenster);
    Ablagelernen *ablage = zustand.einrichtung()->ablagelernen();
    ablage->lesen();
    laufenBis([&] { return ablage->lage() == Ablagelernen::Lage::Auswahl; });
    if (auto *liste = fenster.findChild<QWidget *>(u"fund"_s))
        liste->setFocus(Qt::TabFocusReason);
}

/** The structure as it was before someone made one folder and removed another. */
void strukturWechsel(Zustand &zustand, Hauptfenster &fenster)
{
    Profil vorher = *zustand.profilwahl()->aktiv();
    for (Ablageart &art : vorher.zweige.first().ablagen) {
        if (art.rubriken.size() > 1) {
            art.rubriken.removeFirst();
            art.rubriken << u"Zeitschriften"_s;
            break;
        }
    }
    zustand.profilwahl()->setzeProfil(vorher);
    zustand.einrichtung()->strukturEinlesen();
    abschnitt(Abschnitt::Ziel)(zustand, fenster);
}

/** A model that is not there yet comes slowly. */
void modellKommt(Zustand &zustand, Hauptfenster &fenster)
{
    abschnitt(Abschnitt::Modell)(zustand, fenster);
    if (!zustand.modelldienst()->modellstand().laedtModell.isEmpty())
        return;
    Profil profil = *zustand.profilwahl()->aktiv();
    profil.modell = u"qwen3:4b"_s;
    zustand.profilwahl()->setzeProfil(profil);
    laufenBis([&] { return zustand.modelldienst()->modellstand().art == Modellstand::Art::ModellFehlt; });
    zustand.modelldienst()->modellLaden();
    laufenBis([&] { return zustand.modelldienst()->modellstand().geladen > 0; });
}

/** Nothing is where it should be. */
void maengel(Zustand &zustand, Abschnitt welcher)
{
    zustand.modelldienst()->modellLadenAbbrechen();
    laufenBis([&] { return zustand.modelldienst()->modellstand().laedtModell.isEmpty(); });
    Profil profil = *zustand.profilwahl()->aktiv();
    profil.ocrSprache = u"fra"_s;
    profil.pfadVorlage = u"{zweig}/{monat}"_s;
    profil.namensVorlage = u"{datum} {gegenueber"_s;
    profil.eigeneNamen.clear();
    if (!profil.zielWurzel.endsWith(u"/alt"_s))
        profil.zielWurzel += u"/alt"_s;
    zustand.profilwahl()->setzeProfil(profil);
    zustand.setzeReiter(Reiter::Einrichtung);
    zustand.einrichtung()->setzeAbschnitt(welcher);
    serverDa(zustand, false);
    zustand.einrichtung()->einrichtungPruefen();
}

/** The same section as it looks to others: dark and large, English and small. */
QList<Buehnenbild> varianten(const QString &name, const std::function<void(Zustand &, Hauptfenster &)> &vorher,
                             bool unanalysiert = false)
{
    return {{.name = name, .vorher = vorher, .unanalysiert = unanalysiert},
            {.name = name + u"-dunkel-schrift18"_s,
             .vorher = vorher,
             .groesse = klein,
             .punkte = 18,
             .dunkel = true,
             .unanalysiert = unanalysiert},
            {.name = name + u"-englisch-schrift9"_s,
             .vorher = vorher,
             .groesse = klein,
             .punkte = 9,
             .sprache = u"en"_s,
             .unanalysiert = unanalysiert},
            {.name = name + u"-dunkel-englisch"_s,
             .vorher = vorher,
             .dunkel = true,
             .sprache = u"en"_s,
             .unanalysiert = unanalysiert}};
}

/** A document with all the notes that can stand together. */
void hinweise(Zustand &zustand, Hauptfenster &fenster)
{
    aufsuchen(zustand, u"Preisliste"_s); // the one that names nobody else
    zustand.pruefung()->setzeFeld(
        Feld::Titel, u"Festsetzungsbescheid über die Erstattung von Grunderwerbsnebenkosten und Erschließung"_s);
    if (auto *feld = fenster.findChild<QLineEdit *>(u"titel"_s))
        feld->setFocus();
}

/** A letter whose words are known, with the focus in @p feld. */
QLineEdit *imFeld(Zustand &zustand, Hauptfenster &fenster, const QString &feld)
{
    pruefen(zustand, fenster);
    laufenBis([&] { return !zustand.seitenbelege()->liest(); });
    auto *eingabe = fenster.findChild<QLineEdit *>(feld);
    eingabe->setFocus(Qt::TabFocusReason);
    ruhe();
    return eingabe;
}

/** What the page offers for a date, gone through. */
void fundstellenDatum(Zustand &zustand, Hauptfenster &fenster)
{
    for (QShortcut *taste : imFeld(zustand, fenster, u"datum"_s)->findChildren<QShortcut *>()) {
        if (taste->key() == QKeySequence(Qt::CTRL | Qt::Key_Down))
            Q_EMIT taste->activated();
    }
}

/** A date, a counterpart and a number that stand nowhere. */
void fundstellenNotiz(Zustand &zustand, Hauptfenster &fenster)
{
    imFeld(zustand, fenster, u"titel"_s);
    zustand.pruefung()->setzeFeld(Feld::Datum, u"2024-02-13"_s);
    zustand.pruefung()->setzeFeld(Feld::Gegenueber, u"Muster Energie"_s);
    zustand.pruefung()->setzeFeld(Feld::Titel, u"Abrechnung Strom 4712"_s);
}

void fundstellenSuche(Zustand &zustand, Hauptfenster &fenster)
{
    imFeld(zustand, fenster, u"gegenueber"_s);
    fenster.findChild<Vorschau *>()->sucheZeigen();
    fenster.findChild<QLineEdit *>(u"suchfeld"_s)->setText(u"strom"_s);
}

/** A running session of some length, with a step taken back and a file that somebody has put elsewhere. */
void protokoll(Zustand &zustand, Hauptfenster &)
{
    const auto fertig = [&] { return !zustand.ausfuehrung()->beschaeftigt(); };
    if (!zustand.sitzungen()->laufendesBuch() ||
        Protokollbuch::lesen(zustand.sitzungen()->laufendesBuch()->datei()).size() < 8) {
        zustand.ausfuehrung()->zurueckgestellteVorlegen();
        laufenBis(fertig);
        for (int n = 0; n < 12 && zustand.pruefung()->aktuelles(); ++n)
            uebernehmen(zustand);
        zustand.ausfuehrung()->rueckgaengig();
        laufenBis(fertig);
        const QList<Protokollzeile> zeilen = Protokollbuch::lesen(zustand.sitzungen()->laufendesBuch()->datei());
        QFile::remove(zeilen.value(2).nach);
    }
    zustand.setzeReiter(Reiter::Protokoll);
    if (zustand.sitzungen()->protokollDatei() != zustand.sitzungen()->laufendesBuch()->datei())
        zustand.sitzungen()->protokollWaehlen(zustand.sitzungen()->laufendesBuch()->datei());
}

void protokollfrage(Zustand &zustand, Hauptfenster &fenster)
{
    protokoll(zustand, fenster);
    ruhe();
    druecken(fenster, u"sitzungZurueckdrehen"_s);
}

/** A long session of files that are elsewhere by now; taking it back lasts a while all the same. */
void rueckbau(Zustand &zustand, Hauptfenster &)
{
    constexpr int viele = 200'000;
    QFile datei(programmOrdner() + u"/Protokoll 2026-11-02 192014.jsonl"_s);
    if (zustand.sitzungen()->rueckbauLaeuft() || !datei.open(QIODevice::WriteOnly))
        return;
    const Profil &profil = *zustand.profilwahl()->aktiv();
    datei.write(Protokollkopf::fuer(profil).json() + '\n');
    for (int n = 0; n < viele; ++n)
        datei.write(Protokollzeile{.zeit = u"2026-11-02T18:20:14Z"_s,
                                   .aktion = u"einsortiert"_s,
                                   .dokument = 0,
                                   .von = profil.quelle + u"/Scan_%1.pdf"_s.arg(n),
                                   .nach = profil.zielWurzel + u"/Privat/Stammdaten/Brief %1.pdf"_s.arg(n),
                                   .altStatus = u"bereit"_s,
                                   .kopiert = false}
                        .json() +
                    '\n');
    datei.close();
    zustand.setzeReiter(Reiter::Protokoll);
    zustand.sitzungen()->protokollWaehlen(datei.fileName());
    laufenBis([&] { return zustand.sitzungen()->protokollZeilen().size() == viele; });
    zustand.sitzungen()->protokollZurueckdrehen();
    laufenBis([&] { return zustand.sitzungen()->rueckbauAnteil() > 0.2 || !zustand.sitzungen()->rueckbauLaeuft(); });
}

/** Back to the state in which the profile was shown at first. */
void genesen(Zustand &zustand)
{
    zustand.ausfuehrung()->anhalten();
    laufenBis([&] { return !zustand.ausfuehrung()->beschaeftigt(); });
}

void info(Zustand &, Hauptfenster &fenster)
{
    if (auto *eintrag = fenster.findChild<QAction *>(u"info"_s))
        eintrag->trigger();
}
void allesZuruecklegen(Zustand &zustand, Hauptfenster &)
{
    zustand.setzeReiter(Reiter::Pruefen);
    for (int n = 0; n < 100 && zustand.pruefung()->aktuelles(); ++n) {
        zustand.pruefung()->setzeUngesehen(false); // its page need not have been painted
        zustand.ausfuehrung()->zuruecklegen();
        laufenBis([&] { return !zustand.ausfuehrung()->beschaeftigt(); });
    }
}

void ausnahme(Zustand &zustand, Hauptfenster &fenster)
{
    if (!zustand.profilwahl()->aktiv()->ausnahmen.contains(u"Fotos"_s))
        Q_UNUSED(zustand.einrichtung()->ausnahmeAufnehmen(u"Fotos"_s));
    abschnitt(Abschnitt::Herkunft)(zustand, fenster);
}

void monatImOrdner(Zustand &zustand, Hauptfenster &fenster)
{
    Profil profil = *zustand.profilwahl()->aktiv();
    profil.pfadVorlage = u"{zweig}/{ablage}/{jahr}/{rubrik}/{monat}"_s;
    zustand.profilwahl()->setzeProfil(profil);
    abschnitt(Abschnitt::Namen)(zustand, fenster);
}

/** As it was before monatImOrdner(). */
void eigentuemer(Zustand &zustand, Hauptfenster &fenster)
{
    Profil profil = *zustand.profilwahl()->aktiv();
    profil.pfadVorlage = u"{zweig}/{ablage}/{jahr}/{rubrik}"_s;
    zustand.profilwahl()->setzeProfil(profil);
    abschnitt(Abschnitt::Eigentuemer)(zustand, fenster);
}

/** Something to be learned: a name corrected, and some documents taken over. */
void gelernt(Zustand &zustand, Hauptfenster &fenster)
{
    if (zustand.pruefung()->zaehlwerk().erledigt < 4) {
        aufsuchen(zustand, u"trom"_s);
        zustand.pruefung()->setzeFeld(Feld::Gegenueber, u"Elbtal Energie"_s);
        uebernehmen(zustand);
        for (int n = 0; n < 3; ++n)
            uebernehmen(zustand);
    }
    abschnitt(Abschnitt::Gelernt)(zustand, fenster);
}

void ausAblageGelernt(Zustand &zustand, Hauptfenster &fenster)
{
    const Einrichtung *einrichtung = zustand.einrichtung();
    if (!einrichtung->stand().gelerntes.ausAblage) {
        ausAblage(zustand, fenster);
        zustand.einrichtung()->ablagelernen()->uebernehmen();
        laufenBis([&] { return einrichtung->stand().gelerntes.ausAblage; });
    }
    abschnitt(Abschnitt::Gelernt)(zustand, fenster);
}

/** What comes behind it is to look as if the tree had told nothing. */
void oberflaeche(Zustand &zustand, Hauptfenster &fenster)
{
    const Einrichtung *einrichtung = zustand.einrichtung();
    zustand.einrichtung()->ablagelernen()->zuruecknehmen();
    laufenBis([&] { return !einrichtung->stand().gelerntes.ausAblage; });
    abschnitt(Abschnitt::Oberflaeche)(zustand, fenster);
}

/** An index of the catalogue's file loses its page, and the profile is opened anew. */
void beschaedigt(Zustand &zustand, Hauptfenster &)
{
    genesen(zustand);
    zustand.setzeReiter(Reiter::Einrichtung);
    zustand.einrichtung()->setzeAbschnitt(Abschnitt::Gelernt);
    if (zustand.katalogpflege()->stand().zugang == Zugang::Beschaedigt)
        return;
    laufenBis([&] { return !zustand.katalogpflege()->stand().sicherungen.isEmpty(); });
    Profilwahl *wahl = zustand.profilwahl();
    const QUuid profil = wahl->aktiv()->id;
    const QString katalog = wahl->katalogdatei();
    const qint64 seite = wahl->offenes()->db()->zahl(u"SELECT rootpage AS n FROM sqlite_master WHERE name='i_thash'"_s);
    wahl->neuesProfil();
    laufenBis([&] { return wahl->kannHandeln() && wahl->aktiv()->id != profil; });
    QFile datei(katalog);
    if (datei.open(QIODevice::ReadWrite) && datei.seek((seite - 1) * 4096))
        datei.write(QByteArray(4096, 0));
    datei.close();
    const QUuid leeres = wahl->aktiv()->id;
    wahl->aktivieren(profil);
    laufenBis([&] { return zustand.katalogpflege()->stand().zugang == Zugang::Beschaedigt; });
    wahl->profilEntfernen(leeres);
    zustand.einrichtung()->setzeAbschnitt(Abschnitt::Gelernt);
}

void erststart(Zustand &zustand, Hauptfenster &)
{
    genesen(zustand);
    zustand.setzeReiter(Reiter::Einrichtung);
    if (zustand.profilwahl()->aktiv())
        zustand.profilwahl()->profilEntfernen(zustand.profilwahl()->aktiv()->id);
}

void neuesProfil(Zustand &zustand, Hauptfenster &)
{
    if (!zustand.profilwahl()->aktiv())
        zustand.profilwahl()->neuesProfil();
    serverDa(zustand, true);
    zustand.einrichtung()->setzeAbschnitt(Abschnitt::Herkunft);
    laufenBis([&] { return zustand.profilwahl()->offen() && zustand.einrichtung()->stand().programme; });
}

QList<Buehnenbild> fundstellenbilder()
{
    QList<Buehnenbild> alle = varianten(u"fundstellen"_s, fundstellenDatum);
    alle += varianten(u"fundstellen-suche"_s, fundstellenSuche);
    alle += varianten(u"fundstellen-notiz"_s, fundstellenNotiz);
    return alle;
}

QList<Buehnenbild> pruefbilder()
{
    return {
        {.name = u"pruefen"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &fenster) {
                 aufsuchen(zustand, u"Telefon"_s);
                 uebernehmen(zustand);
                 pruefen(zustand, fenster);
             }},
        {.name = u"pruefen-dunkel"_s, .vorher = pruefen, .dunkel = true},
        {.name = u"pruefen-klein"_s, .vorher = pruefen, .groesse = klein},
        {.name = u"pruefen-klein-englisch"_s, .vorher = pruefen, .groesse = klein, .punkte = 11, .sprache = u"en"_s},
        {.name = u"pruefen-schrift18"_s, .vorher = pruefen, .groesse = klein, .punkte = 18, .dunkel = true},
        {.name = u"pruefen-schrift9"_s, .vorher = pruefen, .punkte = 9},
        {.name = u"pruefen-hinweise"_s, .vorher = hinweise},
        {.name = u"pruefen-aehnlich"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &) {
                 zustand.setzeReiter(Reiter::Pruefen);
                 for (int n = 0; n < 100 && !zustand.pruefung()->aehnliches(); ++n) {
                     zustand.ausfuehrung()->weiter(Richtung::Weiter);
                     laufenBis([&] { return !zustand.ausfuehrung()->beschaeftigt(); });
                 }
                 zustand.pruefung()->setzePartnerZeigen(true);
             }},
    };
}

QList<Buehnenbild> einrichtungsbilder()
{
    QList<Buehnenbild> alle = varianten(u"einrichtung-angebot"_s, angebot);
    alle += varianten(u"einrichtung-programme"_s, abschnitt(Abschnitt::Programme));
    alle += varianten(u"einrichtung-herkunft"_s, ausnahme);
    alle += varianten(u"einrichtung"_s, strukturWechsel);
    alle += varianten(u"einrichtung-namen"_s, monatImOrdner);
    alle += varianten(u"einrichtung-eigentuemer"_s, eigentuemer);
    alle += varianten(u"einrichtung-modell"_s, abschnitt(Abschnitt::Modell));
    alle += varianten(u"einrichtung-gelernt"_s, gelernt);
    alle += varianten(u"einrichtung-ausAblage"_s, ausAblage);
    alle += varianten(u"einrichtung-ausAblageGelernt"_s, ausAblageGelernt);
    alle += varianten(u"einrichtung-sprache"_s, oberflaeche);
    return alle;
}

QList<Buehnenbild> infobilder()
{
    QList<Buehnenbild> alle = varianten(u"info"_s, info);
    for (Buehnenbild &bild : alle)
        bild.fenster = u"info"_s;
    return alle;
}

/** The profile is spoilt from here on. */
QList<Buehnenbild> maengelbilder()
{
    QList<Buehnenbild> alle = varianten(u"einrichtung-laden"_s, modellKommt);
    const QList<QPair<QString, Abschnitt>> welche = {{u"programme"_s, Abschnitt::Programme},
                                                     {u"ziel"_s, Abschnitt::Ziel},
                                                     {u"namen"_s, Abschnitt::Namen},
                                                     {u"modell"_s, Abschnitt::Modell}};
    for (const auto &[name, abschnitt] : welche)
        alle += varianten(u"maengel-"_s + name, [abschnitt](Zustand &zustand, Hauptfenster &) {
            genesen(zustand);
            maengel(zustand, abschnitt);
        });
    return alle;
}
} // namespace

void ablageFuellen(const Profil &profil)
{
    struct Abgelegte {
        QString gegenueber;
        int rubrik; // among those of the structure
        int anzahl;
    };
    QStringList orte;
    for (const Zweig &zweig : profil.zweige) {
        for (const Ablageart &art : zweig.ablagen) {
            for (const QString &rubrik : art.rubriken)
                orte << zweig.name + u'/' + art.name + (art.mitJahr ? u"/2024/"_s : u"/"_s) + rubrik;
        }
    }
    const QList<Abgelegte> alle = {
        {u"Elbtal Energie"_s, 0, 36},  {u"Elbtal Energie"_s, 1, 12},         {u"Sparkasse Elbtal"_s, 2, 24},
        {u"Sparkasse Elbtal"_s, 5, 7}, {u"Nordlicht Versicherung"_s, 3, 18}, {u"Telefon Mitte"_s, 1, 11},
        {u"Finanzamt Meißen"_s, 4, 9}, {u"Stadtbücherei"_s, 2, 4},           {u"4711"_s, 0, 3},
        {u"Bäckerei Kern"_s, 3, 1}};
    for (const Abgelegte &a : alle) {
        const QString ordner = profil.zielWurzel + u'/' + orte.value(a.rubrik, orte.value(0));
        QDir().mkpath(ordner);
        for (int n = 1; n <= a.anzahl; ++n) {
            QFile datei(
                ordner +
                u"/2024-%1-15 %2 - Schreiben %3.pdf"_s.arg(n % 12 + 1, 2, 10, QChar(u'0')).arg(a.gegenueber).arg(n));
            datei.open(QIODevice::WriteOnly);
        }
    }
    for (const QString &name : {u"Scan_0017.pdf"_s, u"Scan_0018.pdf"_s, u"Garantie Waschmaschine.pdf"_s})
        QFile(profil.zielWurzel + u'/' + orte.value(0) + u'/' + name).open(QIODevice::WriteOnly);
}

QList<Buehnenbild> buehnenbilder()
{
    QList<Buehnenbild> alle = varianten(u"ablauf-bereit"_s, ablauf, true);
    alle += varianten(u"ablauf-frage"_s, startfrage, true);
    alle += varianten(u"ablauf-laeuft"_s, laufend, true);
    alle += varianten(u"ablauf"_s, ablauf);
    alle += pruefbilder();
    alle += fundstellenbilder();
    alle += einrichtungsbilder();
    alle += QList<Buehnenbild>{{.name = u"pruefen-leer"_s, .vorher = allesZuruecklegen}};
    alle += varianten(u"protokoll"_s, protokoll);
    alle += varianten(u"protokoll-frage"_s, protokollfrage);
    alle += varianten(u"protokoll-rueckbau"_s, rueckbau);
    alle += infobilder();
    alle += maengelbilder();
    alle += varianten(u"katalog-beschaedigt"_s, beschaedigt);
    alle += varianten(u"erststart"_s, erststart);
    alle += varianten(u"einrichtung-neu"_s, neuesProfil);
    return alle;
}
