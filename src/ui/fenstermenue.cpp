#include "fenstermenue.h"

#include "fenstersprache.h"
#include "handbuchfenster.h"
#include "schriftgroesse.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QActionGroup>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
Fenstermenue::Fenstermenue(Fenstersprache *sprache, QWidget *eltern) : QMenu(eltern), m_sprache(sprache)
{
    setObjectName(u"menue"_s);
    schriftBauen();
    sprachenBauen();
    addSeparator();
    handbuchBauen(eltern->window());
    QAction *info = addAction(Sprache::text(u"Info"_s));
    info->setObjectName(u"info"_s);
    connect(info, &QAction::triggered, this, &Fenstermenue::infoGewuenscht);
    QAction *beenden = addAction(Sprache::text(u"Beenden"_s));
    beenden->setObjectName(u"beenden"_s);
    beenden->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(beenden, &QAction::triggered, eltern->window(), &QWidget::close);
}

void Fenstermenue::handbuchBauen(QWidget *fenster)
{
    QAction *handbuch = addAction(Sprache::text(u"Handbuch"_s));
    handbuch->setObjectName(u"handbuch"_s);
    handbuch->setShortcut(QKeySequence(Qt::Key_F1));
    connect(handbuch, &QAction::triggered, this, [this, fenster] {
        if (!m_handbuch)
            m_handbuch = new Handbuchfenster(fenster);
        m_handbuch->zeigen();
    });
}

void Fenstermenue::schriftBauen()
{
    QMenu *schrift = addMenu(Sprache::text(u"Schriftgröße"_s));
    schrift->setObjectName(u"schriftgroesse"_s);
    QAction *groesser = schrift->addAction(Sprache::text(u"Größer"_s));
    groesser->setObjectName(u"schriftGroesser"_s);
    groesser->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    QAction *kleiner = schrift->addAction(Sprache::text(u"Kleiner"_s));
    kleiner->setObjectName(u"schriftKleiner"_s);
    kleiner->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Minus));
    connect(groesser, &QAction::triggered, this, [] { schriftgroesseWaehlen(std::floor(Stil::schriftgroesse()) + 1); });
    connect(kleiner, &QAction::triggered, this, [] { schriftgroesseWaehlen(std::ceil(Stil::schriftgroesse()) - 1); });
    schrift->addSeparator();
    punkteBauen(schrift);
}

/** One entry for each size that can be chosen. */
void Fenstermenue::punkteBauen(QMenu *schrift)
{
    auto *gruppe = new QActionGroup(this);
    for (int punkte = int(Stil::kleinsteSchrift); punkte <= int(Stil::groessteSchrift); ++punkte) {
        QAction *wahl = schrift->addAction(gefuellt(Sprache::text(u"%@ Punkt"_s), {QString::number(punkte)}));
        wahl->setCheckable(true);
        wahl->setData(punkte);
        gruppe->addAction(wahl);
        connect(wahl, &QAction::triggered, this, [punkte] { schriftgroesseWaehlen(punkte); });
    }
    connect(schrift, &QMenu::aboutToShow, gruppe, [gruppe] {
        for (QAction *wahl : gruppe->actions())
            wahl->setChecked(qFuzzyCompare(wahl->data().toDouble(), Stil::schriftgroesse()));
    });
}

void Fenstermenue::sprachenBauen()
{
    QMenu *sprachen = addMenu(Sprache::text(u"Sprache"_s));
    sprachen->setObjectName(u"sprache"_s);
    m_sprachen = sprachen;
    connect(sprachen, &QMenu::aboutToShow, this, &Fenstermenue::sprachenZeigen);
    sprachenZeigen();
}

/** What lies in the folders now; a file that cannot be chosen says why. */
void Fenstermenue::sprachenZeigen()
{
    m_sprachen->clear();
    auto *gruppe = new QActionGroup(m_sprachen);
    const auto dazu = [&](const QString &kennung, const QString &name, const QString &mangel) {
        // What a file is called is no mnemonic.
        QString zeile = name;
        zeile.replace(u'&', u"&&"_s);
        QAction *wahl = m_sprachen->addAction(mangel.isEmpty() ? zeile : zeile + u" – "_s + mangel);
        wahl->setObjectName(u"sprache-"_s + kennung);
        wahl->setEnabled(mangel.isEmpty());
        wahl->setCheckable(true);
        wahl->setChecked(m_sprache->kennung() == kennung);
        gruppe->addAction(wahl);
        // Later: the menu goes down with the window's whole content.
        connect(
            wahl, &QAction::triggered, m_sprache, [sprache = m_sprache, kennung] { sprache->waehlen(kennung); },
            Qt::QueuedConnection);
    };
    dazu({}, Sprache::text(u"Wie das System"_s), {});
    for (const Sprachsatz &satz : Fenstersprache::angebot())
        dazu(satz.kennung, satz.name, Sprache::text(/* QUILLMAR_TEXT */ satz.mangel));
}
} // namespace quillmar::ui
