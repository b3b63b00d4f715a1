#include "abschnitte.h"
#include "abschnittsseite.h"
#include "bau.h"
#include "einrichtung.h"
#include "hinweisfeld.h"
#include "liste.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
/** One of the two lists: what it is called, its rows, and what forgetting one of them does. */
struct Lernliste {
    QString name;
    QString beschriftung;
    Befundregel befund;
    QList<Listenzeile> (*zeilen)(const Lernstand &);
    void (Einrichtung::*vergessen)(const QString &);
};

QString bestaetigt(qint64 anzahl)
{
    return gefuellt(Sprache::text(anzahl, u"einmal bestätigt"_s, u"%@-mal bestätigt"_s), {QString::number(anzahl)});
}

QList<Listenzeile> zuordnungen(const Lernstand &stand)
{
    QList<Listenzeile> zeilen;
    for (const Eintrag &e : stand.zuordnungen)
        zeilen << Listenzeile{
            .kennung = e.schluessel, .erste = e.anzeige, .zweite = e.ziel(), .wort = bestaetigt(e.anzahl)};
    return zeilen;
}

QList<Listenzeile> gleichungen(const Lernstand &stand)
{
    QList<Listenzeile> zeilen;
    for (const Gleichung &g : stand.gleichungen)
        zeilen << Listenzeile{.kennung = g.von,
                              .erste = g.von,
                              .zweite = gefuellt(Sprache::text(u"wird zu %@"_s), {g.nach}),
                              .wort = bestaetigt(g.anzahl)};
    return zeilen;
}

/** The row that was forgotten gives its place to the next, so that one can go on. */
void zeigen(Liste *ansicht, Listenmodell *modell, const QList<Listenzeile> &zeilen)
{
    const int zeile = ansicht->currentIndex().row();
    modell->setzen(zeilen);
    if (zeile >= 0 && !zeilen.isEmpty())
        ansicht->setCurrentIndex(modell->index(std::min(zeile, int(zeilen.size()) - 1)));
    ansicht->setVisible(!zeilen.isEmpty());
}

void listeBauen(const Lernliste &liste, Abschnittsseite &seite)
{
    auto *ansicht = new Liste(liste.name, liste.beschriftung, &seite);
    auto *modell = new Listenmodell(ansicht);
    ansicht->setModel(modell);
    Einrichtung *einrichtung = seite.zustand()->einrichtung();
    seite.folgen([=, zeilen = liste.zeilen](const Einrichtungslage &lage) {
        zeigen(ansicht, modell, zeilen(lage.stand.gelerntes));
    });
    seite.zeile({.name = liste.name,
                 .feld = Feld::Titel{},
                 .beschriftung = liste.beschriftung,
                 .befund = liste.befund,
                 .knopf = {.name = liste.name + u"-vergessen"_s,
                           .text = Sprache::text(u"Vergessen"_s),
                           .hilfe = Sprache::text(u"Vergisst die gewählte Zeile"_s),
                           .symbol = Symbol::Keines,
                           .gesprochen = liste.beschriftung + u": "_s + Sprache::text(u"Vergessen"_s),
                           .tun = [=, tun = liste.vergessen] { (einrichtung->*tun)(ansicht->kennung().toString()); },
                           .geht = [ansicht](const Einrichtungslage &) { return ansicht->currentIndex().isValid(); },
                           .da = [modell](const Einrichtungslage &) { return modell->rowCount() > 0; },
                           .flach = false}});
    seite.ueberAlles(ansicht);
    QObject::connect(ansicht->selectionModel(), &QItemSelectionModel::currentChanged, &seite,
                     &Abschnittsseite::auffrischen, Qt::QueuedConnection);
}

/** The question takes the place of its button. */
void allesBauen(Abschnittsseite &seite)
{
    auto *frage =
        new Rueckfrage({{.name = u"allesVergessenJa"_s, .text = Sprache::text(u"Alles vergessen"_s)}}, &seite);
    const auto fragen = [&seite, frage] {
        const Lernstand &stand = seite.zustand()->einrichtung()->stand().gelerntes;
        frage->fragen(gefuellt(Sprache::text(u"Alles Gelernte verwerfen? Zuordnungen: %@, Namensgleichungen: %@. "
                                             "Was schon abgelegt ist, bleibt, wo es ist."_s),
                               {QString::number(stand.zuordnungen.size()), QString::number(stand.gleichungen.size())}));
        seite.auffrischen();
    };
    QAbstractButton *alles = seite.knopf(
        {.name = u"allesVergessen"_s,
         .text = Sprache::text(u"Alles vergessen …"_s),
         .hilfe = Sprache::text(u"Verwirft alle Zuordnungen und Namensgleichungen. Es wird vorher gefragt."_s),
         .symbol = Symbol::Keines,
         .tun = fragen,
         .da =
             [frage](const Einrichtungslage &lage) { return frage->isHidden() && lage.stand.gelerntes != Lernstand(); },
         .flach = false});
    QObject::connect(frage, &Rueckfrage::abgebrochen, &seite, [&seite, alles] {
        seite.auffrischen();
        alles->setFocus();
    });
    QObject::connect(frage, &Rueckfrage::bestaetigt, &seite, [&seite] {
        seite.auffrischen();
        seite.zustand()->einrichtung()->allesVergessen();
    });
    seite.ueberAlles(traeger(reihe({{alles, 0, Qt::AlignLeft}, {frage, 1}}), &seite));
}
} // namespace

Teile gelerntes(Abschnittsseite &seite, const Abschnittszeile &)
{
    listeBauen({u"gelernt"_s, Sprache::text(u"Zuordnungen"_s), Befunde::zuordnungen, zuordnungen,
                &Einrichtung::gelerntVergessen},
               seite);
    listeBauen({u"namen"_s, Sprache::text(u"Namensgleichungen"_s), Befunde::gleichungen, gleichungen,
                &Einrichtung::gleichungVergessen},
               seite);
    allesBauen(seite);
    return {};
}
} // namespace quillmar::einrichtung
