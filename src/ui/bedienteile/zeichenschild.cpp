#include "zeichenschild.h"

#include "stil.h"
#include "zeichen.h"

#include <QLabel>

namespace quillmar::bedienteile
{
QLabel *zeichenschild(Symbol symbol, QWidget *eltern)
{
    auto *schild = new QLabel(eltern);
    Stil::folgen(schild, [schild, symbol] {
        schild->setPixmap(Zeichen::icon(symbol).pixmap(Stil::zeichengroesse(), Stil::zeichengroesse()));
    });
    return schild;
}
} // namespace quillmar::bedienteile
