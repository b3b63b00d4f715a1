#include "ausgabe.h"
#include "einordner.h"
#include "kommandozeile.h"
#include "stapel.h"
#include "text.h"
#include "texte.h"
#include "transaktion.h"
#include "vorschlaege.h"

using namespace Qt::StringLiterals;

namespace quillmar::app
{
using Ausgabe::drucken;

namespace
{
/** Without a counterpart the proposal cannot be called certain. */
constexpr double konfidenzOhneGegenueber = 0.4;

struct Nachfragebilanz {
    qint64 ersetzt = 0;
    qint64 geleert = 0;
};

QList<Vorschlaege::Vorlage> eigeneAlsGegenueber(Datenbank &db, const Gegenpruefung &pruefung)
{
    QList<Vorschlaege::Vorlage> liste;
    Texte(db).jedesOffene([&](const Dokument &d, const QString &text) {
        if (pruefung.istEigen(d.angaben.gegenueber))
            liste << Vorschlaege::Vorlage{.dokument = d, .text = text};
    });
    return liste;
}

void einesNachfragen(Datenbank &db, const Gegenpruefung &pruefung, const Profil &profil,
                     const Vorschlaege::Vorlage &vorlage, Nachfragebilanz &bilanz)
{
    Vorschlaege vorschlaege(db);
    const qint64 id = vorlage.dokument.id;
    const QString &bisher = vorlage.dokument.angaben.gegenueber;
    if (!vorschlaege.istOffenMit(id, bisher))
        return;
    const auto name = nachfragen(pruefung, vorlage.text, profil, Ollama());
    // Whoever handled or corrected the document during the question knew better.
    Transaktion transaktion(db);
    if (!vorschlaege.istOffenMit(id, bisher))
        return;
    if (name)
        vorschlaege.setzeGegenueber(id, *name, std::nullopt);
    else
        vorschlaege.setzeGegenueber(id, {}, konfidenzOhneGegenueber);
    transaktion.abschliessen();
    ++(name ? bilanz.ersetzt : bilanz.geleert);
}

Nachfragebilanz alleNachfragen(Datenbank &db, const Gegenpruefung &pruefung, const Profil &profil,
                               const QList<Vorschlaege::Vorlage> &betroffene)
{
    Nachfragebilanz bilanz;
    for (qsizetype i = 0; i < betroffene.size(); ++i) {
        try {
            einesNachfragen(db, pruefung, profil, betroffene.at(i), bilanz);
        } catch (const Fehler &f) {
            Ausgabe::melden(f.text()); // an unanswered question changes nothing; the next run asks again
        }
        drucken(gefuellt(u"%@ von %@"_s, {QString::number(i + 1), QString::number(betroffene.size())}));
    }
    return bilanz;
}

struct Berichtigung {
    qint64 id = 0;
    QString alt;
    QString neu;
    double konfidenz = 0;
};

struct Richtungsbilanz {
    qint64 betrachtet = 0;
    qint64 rechnungen = 0;
    QList<Berichtigung> berichtigt;
};

Richtungsbilanz richtungenPruefen(Datenbank &db, const Profil &profil)
{
    Richtungsbilanz bilanz;
    const Rechnungsrichtung richtung(profil.eigeneAnschriften);
    Texte(db).jedesOffene([&](const Dokument &d, const QString &text) {
        const QString &alt = d.angaben.ort.rubrik;
        ++bilanz.betrachtet;
        bilanz.rechnungen += Rechnungsrichtung::istRechnungsrubrik(alt, profil) ? 1 : 0;
        if (const auto neu = richtung.berichtigt(alt, text, profil))
            bilanz.berichtigt << Berichtigung{.id = d.id, .alt = alt, .neu = *neu, .konfidenz = d.konfidenz};
    });
    return bilanz;
}

void richtungenSchreiben(Datenbank &db, const QList<Berichtigung> &liste)
{
    Stapel stapel(db);
    for (const Berichtigung &b : liste) {
        stapel.naechstes();
        Vorschlaege(db).rubrikBerichtigen(b.id, b.alt, b.neu, std::max(b.konfidenz, Einordner::mindestensNachRegel));
    }
    stapel.abschliessen();
}
} // namespace

void Kommandozeile::gegenueberBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen)
{
    if (profil.eigenkennungen().isEmpty())
        return drucken(u"Im Profil ist kein eigener Name hinterlegt."_s);
    const Gegenpruefung pruefung(profil);
    const auto betroffene = eigeneAlsGegenueber(db, pruefung);
    drucken(gefuellt(u"Betroffen: %@ Dokumente"_s, {QString::number(betroffene.size())}));
    if (nurZeigen)
        return drucken(u"Nur gezeigt. Mit --anwenden wird nachgefragt und geschrieben."_s);
    const Nachfragebilanz bilanz = alleNachfragen(db, pruefung, profil, betroffene);
    drucken(gefuellt(u"\nGegenueber berichtigt\n"
                     "  ersetzt  %@\n"
                     "  geleert  %@"_s,
                     {QString::number(bilanz.ersetzt), QString::number(bilanz.geleert)}));
}

void Kommandozeile::rechnungenBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen)
{
    if (Rechnungsrichtung(profil.eigeneAnschriften).istLeer())
        return drucken(u"Im Profil ist keine eigene Anschrift hinterlegt."_s);
    const Richtungsbilanz bilanz = richtungenPruefen(db, profil);
    drucken(gefuellt(u"Richtungsregel fuer Rechnungen\n"
                     "  betrachtete Dokumente  %@\n"
                     "  mit Rechnungsrubrik    %@\n"
                     "  berichtigt             %@"_s,
                     {QString::number(bilanz.betrachtet), QString::number(bilanz.rechnungen),
                      QString::number(bilanz.berichtigt.size())}));
    for (const Berichtigung &b : bilanz.berichtigt)
        drucken(gefuellt(u"    %@ nach %@"_s, {b.alt, b.neu}));
    if (nurZeigen)
        return drucken(u"Nur gezeigt. Mit --anwenden wird es geschrieben."_s);
    richtungenSchreiben(db, bilanz.berichtigt);
    drucken(u"Geschrieben."_s);
}
} // namespace quillmar::app
