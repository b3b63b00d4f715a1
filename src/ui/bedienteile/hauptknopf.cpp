#include "hauptknopf.h"

#include "stil.h"

#include <QPainter>

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int aufgehellt = 108; // percent, under the mouse
constexpr int abgedunkelt = 115;
} // namespace

int knopfhoehe() { return abstand(36); }

Hauptknopf::Hauptknopf(const QString &text, QWidget *eltern) : QPushButton(text, eltern)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
    Stil::folgen(this, [this] {
        setFont(Stil::schrift(Schrift::Halbfett));
        updateGeometry();
    });
}

QSize Hauptknopf::sizeHint() const { return {fontMetrics().horizontalAdvance(text()) + 2 * abstand(20), knopfhoehe()}; }

QSize Hauptknopf::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * abstand(6), knopfhoehe()};
}

QColor Hauptknopf::grundfarbe() const
{
    const QColor akzent = Stil::akzent(palette());
    if (!isEnabled())
        return Stil::rille(palette());
    if (isDown())
        return akzent.darker(abgedunkelt);
    if (!underMouse())
        return akzent;
    const bool helleSchrift = Stil::aufAkzent(palette()).lightness() > 127;
    return helleSchrift ? akzent.darker(aufgehellt) : akzent.lighter(aufgehellt);
}

void Hauptknopf::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.setRenderHint(QPainter::Antialiasing);
    const QColor grund = grundfarbe();
    const QColor schrift = isEnabled() ? Stil::aufAkzent(palette()) : Stil::nebenfarbe(palette(), grund);
    maler.setPen(Qt::NoPen);
    maler.setBrush(grund);
    maler.drawRoundedRect(rect(), 3, 3);
    if (hasFocus()) {
        maler.setBrush(Qt::NoBrush);
        maler.setPen(QPen(schrift, 2));
        maler.drawRoundedRect(rect().adjusted(3, 3, -3, -3), 2, 2);
    }
    maler.setPen(schrift);
    maler.setFont(font());
    maler.drawText(rect(), Qt::AlignCenter, text());
}
} // namespace quillmar::bedienteile
