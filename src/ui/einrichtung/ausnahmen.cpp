#include "abschnitte.h"
#include "abschnittsseite.h"
#include "bau.h"
#include "einrichtung.h"
#include "liste.h"
#include "sprache.h"
#include "zustand.h"

#include <QLineEdit>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
constexpr int sichtbareRegeln = 6;

Liste *regelliste(const QString &name, const QString &ansage, QWidget *eltern)
{
    auto *liste = new Liste(name, ansage, eltern);
    liste->setzeHoechstens(sichtbareRegeln);
    liste->setModel(new Listenmodell(liste));
    return liste;
}

void zeigen(Liste *liste, const QStringList &regeln)
{
    QList<Listenzeile> zeilen;
    for (const QString &regel : regeln)
        zeilen << Listenzeile{.kennung = regel, .erste = regel};
    static_cast<Listenmodell *>(liste->model())->setzen(zeilen);
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
} // namespace

Teile ausnahmen(Abschnittsseite &seite, const Abschnittszeile &)
{
    eingabeBauen(seite);
    Liste *liste = regelliste(u"ausnahmen"_s, Sprache::text(u"Ausgenommen"_s), &seite);
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
    seite.folgen([liste, waehlbar](const Einrichtungslage &lage) {
        zeigen(liste, lage.profil.ausnahmen);
        waehlbar();
    });
    seite.zeile({.name = u"ausnahmen"_s, .beschriftung = Sprache::text(u"Ausgenommen"_s)},
                {.feld = liste, .ganz = reihe({{liste, 1}, {weg, 0, Qt::AlignTop}})});
    return {};
}

Teile ausgelassene(Abschnittsseite &seite, const Abschnittszeile &)
{
    Liste *liste = regelliste(u"ausgelassene"_s, Sprache::text(u"Durch Ausnahmen ausgelassen"_s), &seite);
    seite.folgen([liste](const Einrichtungslage &lage) {
        const auto &quelle = lage.stand.quelle;
        if (!quelle && lage.stand.zaehlt)
            return; // while the folder is counted anew the last list stays
        zeigen(liste, quelle ? quelle->ausgenommene : QStringList());
        liste->setVisible(liste->model()->rowCount() > 0);
    });
    return {.feld = liste};
}
} // namespace quillmar::einrichtung
