#include "flachknopf.h"

#include "hauptknopf.h"
#include "stil.h"
#include "zeichen.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace quillmar::bedienteile
{
using Stil::abstand;

Flachknopf::Flachknopf(const QString &name, Symbol symbol, const QString &titel, const QString &hilfe, QWidget *eltern)
    : QToolButton(eltern)
{
    setObjectName(name);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setIcon(Zeichen::icon(symbol));
    setzeHilfe(titel, hilfe);
    setzeMitText(false);
    Stil::folgen(this, [this] {
        setIconSize({Stil::zeichengroesse(), Stil::zeichengroesse()});
        if (m_hoch)
            setFixedHeight(knopfhoehe());
    });
}

void Flachknopf::setzeHilfe(const QString &titel, const QString &hilfe)
{
    setText(titel);
    setAccessibleName(titel);
    setAccessibleDescription(hilfe);
    setToolTip(hilfe);
}

void Flachknopf::setzeMitText(bool mit)
{
    setToolButtonStyle(mit ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

void Flachknopf::setzeHoch()
{
    m_hoch = true;
    setFixedHeight(knopfhoehe());
}

QSize Flachknopf::sizeHint() const
{
    const int kante = iconSize().width();
    const int hoehe = m_hoch ? knopfhoehe() : kante + abstand(12);
    if (toolButtonStyle() == Qt::ToolButtonIconOnly)
        return {kante + abstand(8), hoehe};
    const int zeichen = icon().isNull() ? 0 : kante + abstand(6);
    return {zeichen + fontMetrics().horizontalAdvance(text()) + abstand(18), hoehe};
}

/** The platform's frame with our own distance between icon and text. */
void Flachknopf::paintEvent(QPaintEvent *)
{
    QStylePainter maler(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = {};
    maler.drawComplexControl(QStyle::CC_ToolButton, option);
    const bool mitText = toolButtonStyle() != Qt::ToolButtonIconOnly;
    const int kante = iconSize().width();
    const int x = mitText ? abstand(9) : (width() - kante) / 2;
    icon().paint(&maler, QRect(x, (height() - kante) / 2, kante, kante), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled, isChecked() ? QIcon::On : QIcon::Off);
    if (mitText)
        maler.drawItemText(rect().adjusted(icon().isNull() ? x : x + kante + abstand(6), 0, 0, 0),
                           Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(), QPalette::ButtonText);
}
} // namespace quillmar::bedienteile
