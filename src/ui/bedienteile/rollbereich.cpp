#include "rollbereich.h"

#include <QScrollArea>

namespace quillmar::bedienteile
{
QScrollArea *rollbereich(QWidget *inhalt, QWidget *eltern)
{
    auto *rollen = new QScrollArea(eltern);
    rollen->setFrameShape(QFrame::NoFrame);
    rollen->setWidgetResizable(true);
    rollen->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rollen->setFocusPolicy(Qt::NoFocus);
    rollen->setWidget(inhalt);
    rollen->viewport()->setAutoFillBackground(false);
    inhalt->setAutoFillBackground(false);
    return rollen;
}
} // namespace quillmar::bedienteile
