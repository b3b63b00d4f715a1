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
namespace
{
/** An entry at the end of @p menue; @p tasten work while it is closed too. */
QAction *eintrag(QMenu *menue, const QString &name, const QString &text, const QList<QKeySequence> &tasten = {})
{
    QAction *neuer = menue->addAction(text);
    neuer->setObjectName(name);
    neuer->setShortcuts(tasten);
    return neuer;
}
} // namespace

Fenstermenue::Fenstermenue(Fenstersprache *sprache, QWidget *eltern) : QMenu(eltern)
{
    setObjectName(u"menue"_s);
    schriftBauen();
    sprachenBauen(sprache);
    addSeparator();
    handbuchBauen(eltern->window());
    const QAction *info = eintrag(this, u"info"_s, Sprache::text(u"Info"_s));
    connect(info, &QAction::triggered, this, &Fenstermenue::infoGewuenscht);
    const QAction *beenden = eintrag(this, u"beenden"_s, Sprache::text(u"Beenden"_s), {Qt::CTRL | Qt::Key_Q});
    connect(beenden, &QAction::triggered, eltern->window(), &QWidget::close);
}

void Fenstermenue::handbuchBauen(QWidget *fenster)
{
    const QAction *handbuch = eintrag(this, u"handbuch"_s, Sprache::text(u"Handbuch"_s), {Qt::Key_F1});
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
    const QAction *groesser = eintrag(schrift, u"schriftGroesser"_s, Sprache::text(u"Größer"_s),
                                      {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    const QAction *kleiner =
        eintrag(schrift, u"schriftKleiner"_s, Sprache::text(u"Kleiner"_s), {Qt::CTRL | Qt::Key_Minus});
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
