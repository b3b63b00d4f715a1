#include "knopf.h"

#include "hauptknopf.h"
#include "stil.h"

using Stil::abstand;

Knopf::Knopf(const QString &name, const QString &text, QWidget *eltern, Hoehe hoehe)
    : QPushButton(text, eltern), m_hoehe(hoehe)
{
    setObjectName(name);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Stil::folgen(this, [this] {
        setIconSize({Stil::zeichengroesse(), Stil::zeichengroesse()});
        updateGeometry();
    });
}

QSize Knopf::sizeHint() const
{
    const int zeichen = icon().isNull() ? 0 : iconSize().width() + abstand(6);
    return {fontMetrics().horizontalAdvance(text()) + zeichen + 2 * abstand(12),
            m_hoehe == Hoehe::Haupt ? knopfhoehe() : abstand(30)};
}
