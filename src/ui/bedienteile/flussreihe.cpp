#include "flussreihe.h"

namespace quillmar::bedienteile
{
Flussreihe::~Flussreihe() { qDeleteAll(m_teile); }

QLayoutItem *Flussreihe::takeAt(int stelle)
{
    return stelle >= 0 && stelle < m_teile.size() ? m_teile.takeAt(stelle) : nullptr;
}

/** Returns the height that the lines need. */
int Flussreihe::legen(const QRect &flaeche, bool setzen) const
{
    int x = flaeche.x();
    int y = flaeche.y();
    int hoehe = 0;
    for (QLayoutItem *teil : m_teile) {
        if (teil->isEmpty())
            continue;
        const QSize groesse = teil->sizeHint();
        if (x > flaeche.x() && x + groesse.width() > flaeche.right() + 1) {
            x = flaeche.x();
            y += hoehe + spacing();
            hoehe = 0;
        }
        if (setzen)
            teil->setGeometry(QRect(QPoint(x, y), groesse));
        x += groesse.width() + spacing();
        hoehe = std::max(hoehe, groesse.height());
    }
    return y + hoehe - flaeche.y();
}

void Flussreihe::setGeometry(const QRect &flaeche)
{
    QLayout::setGeometry(flaeche);
    legen(flaeche, true);
}

QSize Flussreihe::sizeHint() const
{
    int breite = 0;
    for (const QLayoutItem *teil : m_teile)
        breite += teil->sizeHint().width() + spacing();
    return {breite, minimumSize().height()};
}

QSize Flussreihe::minimumSize() const
{
    QSize groesse;
    for (const QLayoutItem *teil : m_teile)
        groesse = groesse.expandedTo(teil->sizeHint());
    return groesse;
}
} // namespace quillmar::bedienteile
