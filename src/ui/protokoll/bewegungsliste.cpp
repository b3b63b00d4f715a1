#include "bewegungsliste.h"

#include "bewegungsmodell.h"
#include "bewegungszeichner.h"
#include "dateiverwaltung.h"
#include "sprache.h"
#include "stil.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
Bewegungsliste::Bewegungsliste(QWidget *eltern) : QListView(eltern), m_modell(new Bewegungsmodell(this))
{
    setObjectName(u"bewegungen"_s);
    setAccessibleName(Sprache::text(u"Bewegungen"_s));
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    viewport()->setAutoFillBackground(false);
    setItemDelegate(new Bewegungszeichner(this));
    setModel(m_modell);
    connect(this, &QListView::activated, this, &Bewegungsliste::zeigen);
    // The height of the rows is asked for once only.
    Stil::folgen(this, [this] { scheduleDelayedItemsLayout(); });
}

/** Whatever brought the rows into view, scrolling, sizing or another session: now their marks are wanted. */
void Bewegungsliste::paintEvent(QPaintEvent *ereignis)
{
    QListView::paintEvent(ereignis);
    const QModelIndex erste = indexAt({1, 1});
    if (!erste.isValid())
        return;
    const int hoehe = std::max(1, sizeHintForRow(0));
    m_modell->ansehen(erste.row(), erste.row() + viewport()->height() / hoehe + 1);
}

void Bewegungsliste::focusInEvent(QFocusEvent *ereignis)
{
    QListView::focusInEvent(ereignis);
    if (!currentIndex().isValid())
        setCurrentIndex(indexAt({1, 1}));
}

void Bewegungsliste::zeigen(const QModelIndex &index) const
{
    const Protokollzeile &zeile = m_modell->zeile(index.row());
    const auto stand = Bewegungsstand(index.data(Bewegungsmodell::Stand).toInt());
    Dateiverwaltung::zeigen(stand == Bewegungsstand::Zurueck ? zeile.von : zeile.nach);
}
} // namespace quillmar::protokoll
