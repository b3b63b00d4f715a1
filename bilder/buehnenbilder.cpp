#include "buehnenbild.h"

#include "hauptfenster.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr QSize klein(1100, 700);

/** Brings the document whose present name contains @p teil under review. */
void aufsuchen(Zustand &zustand, const QString &teil)
{
    zustand.setzeReiter(Reiter::pruefen);
    for (int n = 0; n < 100 && !(zustand.aktuelles() && zustand.aktuelles()->pfad.contains(teil)); ++n) {
        zustand.weiter(u"weiter"_s);
        laufenBis([&] { return !zustand.beschaeftigt(); });
    }
}

void uebernehmen(Zustand &zustand)
{
    zustand.uebernehmen();
    laufenBis([&] { return !zustand.beschaeftigt(); });
}

void pruefen(Zustand &zustand, Hauptfenster &) { aufsuchen(zustand, u"trom"_s); }

std::function<void(Zustand &, Hauptfenster &)> abschnitt(Abschnitt welcher)
{
    return [welcher](Zustand &zustand, Hauptfenster &) {
        zustand.setzeReiter(Reiter::einrichtung);
        zustand.setzeAbschnitt(welcher);
        laufenBis([&] { return zustand.einrichtung().programme && zustand.einrichtung().quelle; });
    };
}

/** The structure as it was before someone made one folder and removed another. */
void strukturWechsel(Zustand &zustand, Hauptfenster &fenster)
{
    Profil vorher = *zustand.aktiv();
    for (Ablageart &art : vorher.zweige.first().ablagen) {
        if (art.rubriken.size() > 1) {
            art.rubriken.removeFirst();
            art.rubriken << u"Zeitschriften"_s;
            break;
        }
    }
    zustand.profilAendern(vorher);
    zustand.strukturEinlesen();
    abschnitt(Abschnitt::ziel)(zustand, fenster);
}

/** A document with all the notes that can stand together. */
void hinweise(Zustand &zustand, Hauptfenster &fenster)
{
    zustand.feldSetzen(Feld::Gegenueber, {});
    zustand.feldSetzen(Feld::Titel,
                       u"Festsetzungsbescheid über die Erstattung von Grunderwerbsnebenkosten und Erschließung"_s);
    if (auto *feld = fenster.findChild<QLineEdit *>(u"titel"_s))
        feld->setFocus();
}
/** A running session of some length, with a step taken back and a file that somebody has put elsewhere. */
void protokoll(Zustand &zustand, Hauptfenster &)
{
    const auto fertig = [&] { return !zustand.beschaeftigt(); };
    if (!zustand.laufendesBuch() || Protokollbuch::lesen(zustand.laufendesBuch()->datei()).size() < 8) {
        zustand.zurueckgestellteVorlegen();
        laufenBis(fertig);
        for (int n = 0; n < 12 && zustand.aktuelles(); ++n)
            uebernehmen(zustand);
        zustand.rueckgaengig();
        laufenBis(fertig);
        const QList<Protokollzeile> zeilen = Protokollbuch::lesen(zustand.laufendesBuch()->datei());
        QFile::remove(zeilen.value(2).nach);
    }
    zustand.setzeReiter(Reiter::protokoll);
    if (zustand.protokollDatei() != zustand.laufendesBuch()->datei())
        zustand.protokollWaehlen(zustand.laufendesBuch()->datei());
}

void protokollfrage(Zustand &zustand, Hauptfenster &fenster)
{
    protokoll(zustand, fenster);
    ruhe();
    if (auto *knopf = fenster.findChild<QAbstractButton *>(u"sitzungZurueckdrehen"_s))
        knopf->click();
}

void info(Zustand &, Hauptfenster &fenster)
{
    if (auto *eintrag = fenster.findChild<QAction *>(u"info"_s))
        eintrag->trigger();
}
} // namespace

QList<Buehnenbild> buehnenbilder()
{
    return {
        {.name = u"ablauf"_s, .vorher = [](Zustand &zustand, Hauptfenster &) { zustand.setzeReiter(Reiter::ablauf); }},
        {.name = u"ablauf-dunkel"_s, .dunkel = true},
        {.name = u"ablauf-schrift18"_s, .groesse = klein, .punkte = 18},
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
                 for (int n = 0; n < 100 && !zustand.aehnliches(); ++n) {
                     zustand.weiter(u"weiter"_s);
                     laufenBis([&] { return !zustand.beschaeftigt(); });
                 }
                 zustand.setzePartnerZeigen(true);
             }},
        {.name = u"einrichtung-programme"_s, .vorher = abschnitt(Abschnitt::programme)},
        {.name = u"einrichtung-herkunft"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &fenster) {
                 Q_UNUSED(zustand.ausnahmeAufnehmen(u"Fotos"_s));
                 abschnitt(Abschnitt::herkunft)(zustand, fenster);
             }},
        {.name = u"einrichtung"_s, .vorher = strukturWechsel},
        {.name = u"einrichtung-namen"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &fenster) {
                 Profil profil = *zustand.aktiv();
                 profil.pfadVorlage += u"/{monat}"_s;
                 zustand.profilAendern(profil);
                 abschnitt(Abschnitt::namen)(zustand, fenster);
             }},
        {.name = u"einrichtung-eigentuemer"_s, .vorher = abschnitt(Abschnitt::eigentuemer)},
        {.name = u"einrichtung-modell"_s, .vorher = abschnitt(Abschnitt::modell)},
        {.name = u"einrichtung-gelernt"_s, .vorher = abschnitt(Abschnitt::gelernt)},
        {.name = u"einrichtung-sprache"_s, .vorher = abschnitt(Abschnitt::oberflaeche)},
        {.name = u"einrichtung-dunkel"_s, .vorher = abschnitt(Abschnitt::modell), .dunkel = true},
        {.name = u"einrichtung-klein-englisch"_s,
         .vorher = abschnitt(Abschnitt::namen),
         .groesse = klein,
         .punkte = 11,
         .sprache = u"en"_s},
        {.name = u"einrichtung-schrift18"_s,
         .vorher = abschnitt(Abschnitt::namen),
         .groesse = klein,
         .punkte = 18,
         .dunkel = true},
        {.name = u"einrichtung-schrift9"_s, .vorher = abschnitt(Abschnitt::ziel), .punkte = 9},
        {.name = u"pruefen-leer"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &) {
                 for (int n = 0; n < 100 && zustand.aktuelles(); ++n) {
                     zustand.zuruecklegen();
                     laufenBis([&] { return !zustand.beschaeftigt(); });
                 }
             }},
        {.name = u"protokoll"_s, .vorher = protokoll},
        {.name = u"protokoll-dunkel"_s, .vorher = protokoll, .dunkel = true},
        {.name = u"protokoll-schrift18"_s, .vorher = protokoll, .groesse = klein, .punkte = 18},
        {.name = u"protokoll-englisch"_s, .vorher = protokoll, .groesse = klein, .punkte = 9, .sprache = u"en"_s},
        {.name = u"protokoll-frage"_s, .vorher = protokollfrage, .dunkel = true},
        {.name = u"info"_s, .vorher = info, .fenster = u"info"_s},
        {.name = u"info-dunkel-englisch"_s,
         .vorher = info,
         .punkte = 13,
         .dunkel = true,
         .sprache = u"en"_s,
         .fenster = u"info"_s},
        {.name = u"erststart"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &) {
                 zustand.setzeReiter(Reiter::einrichtung);
                 zustand.profilEntfernen(zustand.aktiv()->id);
             }},
        {.name = u"einrichtung-neu"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &) {
                 zustand.neuesProfil();
                 zustand.setzeAbschnitt(Abschnitt::herkunft);
                 laufenBis([&] { return zustand.offen() && zustand.einrichtung().programme; });
             }},
    };
}
