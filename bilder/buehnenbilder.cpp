#include "buehnenbild.h"

#include "hauptfenster.h"
#include "zustand.h"

#include <QAbstractButton>
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

/** A document with all the notes that can stand together. */
void hinweise(Zustand &zustand, Hauptfenster &fenster)
{
    zustand.feldSetzen(Feld::Gegenueber, {});
    zustand.feldSetzen(Feld::Titel,
                       u"Festsetzungsbescheid über die Erstattung von Grunderwerbsnebenkosten und Erschließung"_s);
    if (auto *feld = fenster.findChild<QLineEdit *>(u"titel"_s))
        feld->setFocus();
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
        {.name = u"pruefen-leer"_s,
         .vorher =
             [](Zustand &zustand, Hauptfenster &) {
                 for (int n = 0; n < 100 && zustand.aktuelles(); ++n) {
                     zustand.zuruecklegen();
                     laufenBis([&] { return !zustand.beschaeftigt(); });
                 }
             }},
    };
}
