#include "fenstermenue.h"

#include "fenstersprache.h"
#include "handbuchfenster.h"
#include "kleiderordnung.h"
#include "sprache.h"
#include "stil.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
Fenstermenue::Fenstermenue(Fenstersprache *sprache, QWidget *eltern) : QMenu(eltern)
{
    setObjectName(u"menue"_s);
    schriftBauen();
    sprachenBauen(sprache);
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
    const auto zeigen = [this, schrift] {
        menueAuffrischen(schrift, schriftgroessen(), naechsteSchriftgroesse(), this,
                         [](const QString &punkte) { schriftgroesseWaehlen(punkte.toDouble()); });
    };
    connect(schrift, &QMenu::aboutToShow, this, zeigen);
    zeigen();
}

void Fenstermenue::sprachenBauen(Fenstersprache *sprache)
{
    QMenu *sprachen = addMenu(Sprache::text(u"Sprache"_s));
    sprachen->setObjectName(u"sprache"_s);
    const auto zeigen = [sprachen, sprache] {
        menueAuffrischen(sprachen, Fenstersprache::auswahl(), sprache->kennung(), sprache,
                         [sprache](const QString &kennung) { sprache->waehlen(kennung); });
    };
    connect(sprachen, &QMenu::aboutToShow, this, zeigen);
    zeigen();
}
} // namespace quillmar::ui
