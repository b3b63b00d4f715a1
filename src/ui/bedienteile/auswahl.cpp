#include "auswahl.h"

#include "zeichen.h"

#include <QActionGroup>
#include <QMenu>
#include <QSignalBlocker>
#include <QStandardItemModel>

namespace quillmar::bedienteile
{
namespace
{
QList<Wahleintrag> inhalt(const QComboBox *wahl)
{
    QList<Wahleintrag> eintraege;
    for (int i = 0; i < wahl->count(); ++i)
        eintraege << Wahleintrag{.wert = wahl->itemData(i).toString(),
                                 .anzeige = wahl->itemText(i),
                                 .mangel = wahl->itemData(i, Qt::ToolTipRole).toString()};
    return eintraege;
}

/** What cannot be chosen is there to be seen, with the reason. */
void fuellen(QComboBox *wahl, const QList<Wahleintrag> &eintraege)
{
    wahl->clear();
    for (const Wahleintrag &eintrag : eintraege) {
        wahl->addItem(eintrag.anzeige, eintrag.wert);
        if (eintrag.mangel.isEmpty())
            continue;
        wahl->setItemIcon(wahl->count() - 1, Zeichen::icon(Symbol::Warnung));
        wahl->setItemData(wahl->count() - 1, eintrag.mangel, Qt::ToolTipRole);
        if (const auto *liste = qobject_cast<QStandardItemModel *>(wahl->model()))
            liste->item(wahl->count() - 1)->setEnabled(false);
    }
}
} // namespace

QList<Wahleintrag> wahleintraege(const QStringList &werte)
{
    QList<Wahleintrag> eintraege;
    for (const QString &wert : werte)
        eintraege << Wahleintrag{.wert = wert, .anzeige = wert};
    return eintraege;
}

void wahlAuffrischen(QComboBox *wahl, const QList<Wahleintrag> &eintraege, const QString &wert)
{
    const QSignalBlocker still(wahl);
    if (inhalt(wahl) != eintraege)
        fuellen(wahl, eintraege);
    wahl->setCurrentIndex(wahl->findData(wert));
    if (wahl->isEditable())
        wahl->setEditText(wert);
}

void menueAuffrischen(QMenu *menue, const QList<Wahleintrag> &eintraege, const QString &wert, QObject *empfaenger,
                      const std::function<void(const QString &)> &waehlen)
{
    if (auto *bisher = menue->findChild<QActionGroup *>()) {
        qDeleteAll(bisher->actions());
        delete bisher;
    }
    auto *gruppe = new QActionGroup(menue);
    for (const Wahleintrag &eintrag : eintraege) {
        QString zeile = eintrag.anzeige;
        QAction *aktion = menue->addAction(zeile.replace(u'&', QStringLiteral("&&"))); // no mnemonic
        aktion->setObjectName(menue->objectName() + u'-' + eintrag.wert);
        aktion->setEnabled(eintrag.mangel.isEmpty());
        aktion->setCheckable(true);
        aktion->setChecked(eintrag.wert == wert);
        gruppe->addAction(aktion);
        QObject::connect(
            aktion, &QAction::triggered, empfaenger, [waehlen, neu = eintrag.wert] { waehlen(neu); },
            Qt::QueuedConnection);
    }
}
} // namespace quillmar::bedienteile
