#include "abschnittsseite.h"

#include "ablagefeld.h"
#include "bau.h"
#include "einrichtung.h"
#include "hinweisfeld.h"
#include "liste.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Wechsel = Strukturzeile::Wechsel;

namespace
{
constexpr int sichtbareRegeln = 6;

/** At most @p hoechstens rows are seen at once; 0: as many as there is room for. */
Liste *listeBauen(const QString &name, const QString &ansage, int hoechstens, QWidget *eltern)
{
    auto *liste = new Liste(name, ansage, eltern);
    if (hoechstens > 0)
        liste->setzeHoechstens(hoechstens);
    liste->setModel(new Listenmodell(liste));
    return liste;
}

/** Shows what @p bilden makes of @p neu, unless it is @p gezeigt: there may be many, and it is asked often. */
template <typename Quelle, typename Bilden>
void zeigen(Liste *liste, Quelle &gezeigt, const Quelle &neu, Bilden bilden)
{
    if (gezeigt == neu)
        return;
    gezeigt = neu;
    static_cast<Listenmodell *>(liste->model())->setzen(bilden(neu));
}

QList<Listenzeile> regelzeilen(const QStringList &regeln)
{
    QList<Listenzeile> zeilen;
    for (const QString &regel : regeln)
        zeilen << Listenzeile{.kennung = regel, .erste = regel};
    return zeilen;
}

/** The field for a new exclusion; what was typed for one profile is not meant for another. */
void eingabeBauen(Abschnittsseite &seite)
{
    auto *neue = new QLineEdit(&seite);
    neue->setObjectName(u"neueAusnahme"_s);
    neue->setPlaceholderText(Sprache::text(u"etwa Fotos oder privat/2019"_s));
    QPushButton *dazu = knopf(u"ausnahmeHinzufuegen"_s, Sprache::text(u"Hinzufügen"_s));
    QPushButton *ordner = knopf(u"ausnahmeWaehlen"_s, Sprache::text(u"Ordner wählen …"_s));
    auto mangel = std::make_shared<QString>();
    const auto beschweren = [&seite, mangel](const QString &satz) {
        *mangel = satz;
        seite.auffrischen();
    };
    const auto aufnehmen = [&seite, neue, beschweren] {
        const QString satz = seite.zustand()->einrichtung()->ausnahmeAufnehmen(neue->text());
        if (satz.isEmpty())
            neue->clear();
        beschweren(satz);
    };
    QObject::connect(dazu, &QPushButton::clicked, neue, aufnehmen);
    QObject::connect(neue, &QLineEdit::returnPressed, neue, aufnehmen);
    QObject::connect(neue, &QLineEdit::textEdited, neue, [beschweren] { beschweren({}); });
    QObject::connect(ordner, &QPushButton::clicked, neue,
                     [&seite, beschweren] { beschweren(seite.zustand()->einrichtung()->ausnahmeWaehlen()); });
    seite.folgen([neue, mangel, profil = QUuid()](const Einrichtungslage &lage) mutable {
        if (std::exchange(profil, lage.profil.id) == lage.profil.id)
            return;
        neue->clear();
        mangel->clear();
    });
    seite.zeile({.name = u"ausnahme"_s,
                 .beschriftung = Sprache::text(u"Neue Ausnahme"_s),
                 .hilfe = Sprache::text(
                     u"Ein Name trifft jeden Ordner, der so heißt, und jede Datei, deren Name ihn enthält. Mit "
                     "Schrägstrich trifft er genau diese Folge von Ordnern, mit ./ davor einen Ordner direkt in der "
                     "Herkunft."_s),
                 .befund =
                     [mangel](const Einrichtungslage &) {
                         return Befund{.marke = mangel->isEmpty() ? Befund::Marke::Keine : Befund::Marke::Warnung,
                                       .satz = *mangel};
                     },
                 .erklaerung = Sprache::text(u"Ein bloßer Name gilt überall, ein Pfad nur dort."_s)},
                {.feld = neue, .ganz = reihe({{neue, 1}, dazu, ordner})});
}

constexpr int sichtbareZeilen = 8;

QString jahresordner(const Strukturzeile &zeile)
{
    if (zeile.ebene != 1)
        return {};
    return zeile.mitJahr ? Sprache::text(u"mit Jahren"_s) : Sprache::text(u"ohne Jahre"_s);
}

/** Name, year folders of a filing kind, what changed at the last reading. */
QTreeWidgetItem *eintrag(const Strukturzeile &zeile)
{
    auto *neuer = new QTreeWidgetItem({zeile.name, jahresordner(zeile)});
    if (zeile.wechsel == Wechsel::Gleich)
        return neuer;
    const bool neu = zeile.wechsel == Wechsel::Neu;
    neuer->setText(2, neu ? Sprache::text(u"neu"_s) : Sprache::text(u"entfallen"_s));
    neuer->setIcon(2, Zeichen::icon(neu ? Symbol::Gut : Symbol::Warnung));
    return neuer;
}

void zeigen(QTreeWidget *baum, const QList<Strukturzeile> &zeilen)
{
    QList<QTreeWidgetItem *> wurzeln;
    QList<QTreeWidgetItem *> ueber; // the newest of each level
    for (const Strukturzeile &zeile : zeilen) {
        ueber.resize(zeile.ebene);
        QTreeWidgetItem *neuer = eintrag(zeile);
        ueber.isEmpty() ? wurzeln.append(neuer) : ueber.last()->addChild(neuer);
        ueber << neuer;
    }
    baum->clear();
    baum->addTopLevelItems(wurzeln);
    baum->expandAll();
}

/** The name has what the other columns leave. */
void kopfzeileRichten(QTreeView *baum)
{
    QHeaderView *kopf = baum->header();
    kopf->setStretchLastSection(false);
    kopf->setSectionsMovable(false);
    kopf->setHighlightSections(false);
    kopf->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int spalte : {1, 2})
        kopf->resizeSection(spalte, kopf->sectionSizeHint(spalte) + Stil::mass(20));
}

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

QString belegt(const Lernort &ort)
{
    const QString imBaum =
        gefuellt(Sprache::text(ort.baum, u"%@ Dokument in der Ablage"_s, u"%@ Dokumente in der Ablage"_s),
                 {QString::number(ort.baum)});
    if (ort.anzahl == 0)
        return imBaum;
    return ort.baum == 0 ? bestaetigt(ort.anzahl) : bestaetigt(ort.anzahl) + u", "_s + imBaum;
}

QList<Listenzeile> zuordnungen(const Lernstand &stand)
{
    QList<Listenzeile> zeilen;
    for (const Lernort &ort : stand.orte)
        zeilen << Listenzeile{.kennung = ort.kennung, .erste = ort.gegenueber, .zweite = ort.ziel, .wort = belegt(ort)};
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

void listeBauen(const Lernliste &vorgabe, Abschnittsseite &seite)
{
    Liste *liste = listeBauen(vorgabe.name, vorgabe.beschriftung, sichtbareZeilen, &seite);
    Einrichtung *einrichtung = seite.zustand()->einrichtung();
    seite.folgen([liste, zeilen = vorgabe.zeilen, stand = Lernstand()](const Einrichtungslage &lage) mutable {
        zeigen(liste, stand, lage.stand.gelerntes, zeilen);
        liste->setVisible(liste->model()->rowCount() > 0);
    });
    seite.zeile(
        {.name = vorgabe.name,
         .feld = Feld::Titel{},
         .beschriftung = vorgabe.beschriftung,
         .befund = vorgabe.befund,
         .knopf = {vorgabe.name + u"-vergessen"_s, Sprache::text(u"Vergessen"_s),
                   Sprache::text(u"Vergisst die gewählte Zeile"_s),
                   [=, tun = vorgabe.vergessen] { (einrichtung->*tun)(liste->kennung().toString()); }, Symbol::Keines,
                   false, [liste](const Einrichtungslage &) { return liste->currentIndex().isValid(); },
                   [liste](const Einrichtungslage &) { return liste->model()->rowCount() > 0; },
                   vorgabe.beschriftung + u": "_s + Sprache::text(u"Vergessen"_s)}});
    seite.ueberAlles(liste);
    QObject::connect(liste->selectionModel(), &QItemSelectionModel::currentChanged, &seite,
                     &Abschnittsseite::auffrischen, Qt::QueuedConnection);
}

/** The question takes the place of its button. */
void allesBauen(Abschnittsseite &seite)
{
    auto *frage = new Rueckfrage({{.name = u"allesVergessenJa"_s, .text = Sprache::text(u"Alles vergessen"_s)}});
    const auto fragen = [&seite, frage] {
        const Lernstand &stand = seite.zustand()->einrichtung()->stand().gelerntes;
        frage->fragen(gefuellt(Sprache::text(u"Alles Gelernte verwerfen? Zuordnungen: %@, Namensgleichungen: %@. "
                                             "Was schon abgelegt ist, bleibt, wo es ist."_s),
                               {QString::number(stand.zuordnungen.size()), QString::number(stand.gleichungen.size())}));
        seite.auffrischen();
    };
    QAbstractButton *alles = seite.knopf(
        {u"allesVergessen"_s,
         Sprache::text(u"Alles vergessen …"_s),
         Sprache::text(u"Verwirft alle Zuordnungen und Namensgleichungen. Es wird vorher gefragt."_s),
         fragen,
         Symbol::Keines,
         false,
         {},
         [frage](const Einrichtungslage &lage) { return frage->isHidden() && lage.stand.gelerntes != Lernstand(); }});
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

Teile ausnahmen(Abschnittsseite &seite, const Abschnittszeile &)
{
    eingabeBauen(seite);
    Liste *liste = listeBauen(u"ausnahmen"_s, Sprache::text(u"Ausgenommen"_s), sichtbareRegeln, &seite);
    QPushButton *weg = knopf(u"ausnahmeEntfernen"_s, Sprache::text(u"Entfernen"_s),
                             Sprache::text(u"Nimmt die gewählte Ausnahme heraus. Taste: Entf"_s));
    const auto entfernen = [&seite, liste] {
        if (liste->currentIndex().isValid())
            seite.zustand()->einrichtung()->ausnahmeEntfernen(liste->kennung().toString());
    };
    QObject::connect(weg, &QPushButton::clicked, liste, entfernen);
    QObject::connect(new QShortcut(QKeySequence::Delete, liste, nullptr, nullptr, Qt::WidgetShortcut),
                     &QShortcut::activated, liste, entfernen);
    const auto waehlbar = [liste, weg] { weg->setEnabled(liste->currentIndex().isValid()); };
    QObject::connect(liste->selectionModel(), &QItemSelectionModel::currentChanged, weg, waehlbar);
    seite.zeile({.name = u"ausnahmen"_s, .beschriftung = Sprache::text(u"Ausgenommen"_s)},
                {.feld = liste, .ganz = reihe({{liste, 1}, {weg, 0, Qt::AlignTop}})});
    seite.folgen([&seite, liste, weg, waehlbar, regeln = QStringList()](const Einrichtungslage &lage) mutable {
        zeigen(liste, regeln, lage.profil.ausnahmen, regelzeilen);
        waehlbar();
        static_cast<QFormLayout *>(seite.layout())->setRowVisible(weg->parentWidget(), !regeln.isEmpty());
    });
    return {};
}

Teile ausgelassene(Abschnittsseite &seite, const Abschnittszeile &)
{
    Liste *liste =
        listeBauen(u"ausgelassene"_s, Sprache::text(u"Durch Ausnahmen ausgelassen"_s), sichtbareRegeln, &seite);
    seite.folgen([liste, dateien = QStringList()](const Einrichtungslage &lage) mutable {
        const auto &quelle = lage.stand.quelle;
        if (!quelle && lage.stand.zaehlt)
            return; // while the folder is counted anew the last list stays
        zeigen(liste, dateien, quelle ? quelle->ausgenommene : QStringList(), regelzeilen);
        liste->setVisible(liste->model()->rowCount() > 0);
    });
    return {.feld = liste};
}

Teile strukturbaum(Abschnittsseite &seite, const Abschnittszeile &)
{
    auto *baum = new QTreeWidget(&seite);
    bezeichnen(baum, u"struktur"_s, Sprache::text(u"Struktur der Ablage"_s));
    baum->setHeaderLabels({Sprache::text(u"Zweig, Ablage, Rubrik"_s), Sprache::text(u"Jahresordner"_s),
                           Sprache::text(u"Seit dem letzten Einlesen"_s)});
    baum->setUniformRowHeights(true);
    baum->setTabKeyNavigation(false);
    const Einrichtung *einrichtung = seite.zustand()->einrichtung();
    const auto lesen = [baum, einrichtung] { zeigen(baum, einrichtung->stand().struktur); };
    QObject::connect(einrichtung, &Einrichtung::strukturGeaendert, baum, lesen);
    lesen();
    Stil::folgen(baum, [baum] {
        baum->setMinimumHeight(sichtbareZeilen *
                               (QFontMetrics(Stil::schrift(Schrift::Grund)).height() + Stil::mass(4)));
        kopfzeileRichten(baum);
    });
    seite.ueberAlles(baum);
    return {};
}

/** The copies of the catalogue; one of them may take its place, which is asked before. */
Teile sicherungen(Abschnittsseite &seite, const Abschnittszeile &)
{
    auto *wahl = new QComboBox(&seite);
    QPushButton *einsetzen =
        knopf(u"sicherungEinsetzen"_s, Sprache::text(u"Sicherung einsetzen …"_s),
              Sprache::text(u"Setzt die gewählte Sicherung an die Stelle des Katalogs. Es wird vorher gefragt."_s));
    auto *frage = new Rueckfrage({{.name = u"sicherungEinsetzenJa"_s, .text = Sprache::text(u"Einsetzen"_s)}});
    Profilwahl *profilwahl = seite.zustand()->profilwahl();
    QObject::connect(einsetzen, &QPushButton::clicked, frage, [frage, wahl] {
        frage->fragen(gefuellt(Sprache::text(u"Die Sicherung vom %@ einsetzen? Was seither einsortiert wurde, wird aus "
                                             "den Protokollen nachgetragen. Vorschläge, Entwürfe und Gelerntes seither "
                                             "gehen verloren. Der jetzige Katalog bleibt daneben liegen."_s),
                               {wahl->currentText()}));
    });
    QObject::connect(frage, &Rueckfrage::bestaetigt, profilwahl,
                     [profilwahl, wahl] { profilwahl->sicherungEinsetzen(wahl->currentData().toString()); });
    seite.zeile({.name = u"sicherung"_s,
                 .beschriftung = Sprache::text(u"Sicherung"_s),
                 .hilfe = Sprache::text(u"Kopien des Katalogs, die letzte zuerst."_s),
                 .befund = Befunde::sicherung},
                {.feld = wahl, .ganz = reihe({{wahl, 1}, einsetzen})});
    seite.ueberAlles(frage);
    seite.folgen([wahl, einsetzen, frage, gezeigt = QList<Sicherung>()](const Einrichtungslage &lage) mutable {
        const QList<Sicherung> &neue = lage.stand.katalog.sicherungen;
        if (std::exchange(gezeigt, neue) == neue && wahl->count() == neue.size())
            return;
        frage->schliessen(); // the one that was asked about may be another now
        wahl->clear();
        for (const Sicherung &sicherung : neue)
            wahl->addItem(zeitpunkt(sicherung), sicherung.datei);
        wahl->setEnabled(!neue.isEmpty());
        einsetzen->setEnabled(!neue.isEmpty());
    });
    return {};
}

Teile ausAblage(Abschnittsseite &seite, const Abschnittszeile &)
{
    auto *feld = new Ablagefeld(seite.zustand(), &seite);
    seite.folgen([feld](const Einrichtungslage &) { feld->zeigen(); });
    seite.ueberAlles(feld);
    return {};
}

Teile gelerntes(Abschnittsseite &seite, const Abschnittszeile &)
{
    listeBauen(
        {u"gelernt"_s, Sprache::text(u"Zuordnungen"_s), Befunde::zuordnungen, zuordnungen, &Einrichtung::ortVergessen},
        seite);
    listeBauen({u"namen"_s, Sprache::text(u"Namensgleichungen"_s), Befunde::gleichungen, gleichungen,
                &Einrichtung::gleichungVergessen},
               seite);
    allesBauen(seite);
    return {};
}
} // namespace quillmar::einrichtung
