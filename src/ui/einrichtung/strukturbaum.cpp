#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "sprache.h"
#include "stil.h"
#include "zustand.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Wechsel = Strukturzeile::Wechsel;

namespace
{
constexpr int sichtbareZeilen = 8;

/** Name, year folders of a filing kind, what changed at the last reading. */
QList<QStandardItem *> eintraege(const Strukturzeile &zeile)
{
    QList<QStandardItem *> reihe = {new QStandardItem(zeile.name), nullptr, nullptr};
    if (zeile.ebene == 1)
        reihe[1] = new QStandardItem(zeile.mitJahr ? Sprache::text(u"mit Jahren"_s) : Sprache::text(u"ohne Jahre"_s));
    if (zeile.wechsel == Wechsel::Neu)
        reihe[2] = new QStandardItem(Zeichen::icon(Symbol::Gut), Sprache::text(u"neu"_s));
    else if (zeile.wechsel == Wechsel::Entfallen)
        reihe[2] = new QStandardItem(Zeichen::icon(Symbol::Warnung), Sprache::text(u"entfallen"_s));
    return reihe;
}

QStandardItemModel *modellVon(const QList<Strukturzeile> &zeilen, QObject *vater)
{
    auto *modell = new QStandardItemModel(vater);
    modell->setHorizontalHeaderLabels({Sprache::text(u"Zweig, Ablage, Rubrik"_s), Sprache::text(u"Jahresordner"_s),
                                       Sprache::text(u"Seit dem letzten Einlesen"_s)});
    QList<QStandardItem *> ueber = {modell->invisibleRootItem()}; // the newest of each level, from the root down
    for (const Strukturzeile &zeile : zeilen) {
        ueber.resize(zeile.ebene + 1);
        const QList<QStandardItem *> reihe = eintraege(zeile);
        ueber.last()->appendRow(reihe);
        ueber << reihe.first();
    }
    return modell;
}
} // namespace

Teile strukturbaum(Abschnittsseite &seite, const Abschnittszeile &)
{
    auto *baum = new QTreeView(&seite);
    baum->setObjectName(u"struktur"_s);
    baum->setAccessibleName(Sprache::text(u"Struktur der Ablage"_s));
    baum->setUniformRowHeights(true);
    baum->setTabKeyNavigation(false);
    baum->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const auto zeigen = [baum, &seite] {
        const QAbstractItemModel *bisher = baum->model();
        baum->setModel(modellVon(seite.zustand()->einrichtung()->stand().struktur, baum));
        delete bisher;
        baum->header()->setStretchLastSection(false);
        baum->header()->setSectionsMovable(false);
        baum->header()->setHighlightSections(false);
        baum->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        baum->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        baum->expandAll();
    };
    QObject::connect(seite.zustand()->einrichtung(), &Einrichtung::strukturGeaendert, baum, zeigen);
    zeigen();
    Stil::folgen(baum, [baum] {
        baum->setMinimumHeight(sichtbareZeilen *
                               (QFontMetrics(Stil::schrift(Stil::Schrift::Grund)).height() + Stil::mass(4)));
    });
    seite.ueberAlles(baum);
    return {};
}
} // namespace quillmar::einrichtung
