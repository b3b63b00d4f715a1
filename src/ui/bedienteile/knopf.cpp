#include "knopf.h"

#include "hauptknopf.h"
#include "stil.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace quillmar::bedienteile
{
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

/** The platform's button with our own distance between icon and text, which grows with the font. */
void Knopf::paintEvent(QPaintEvent *)
{
    QStylePainter maler(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = {};
    maler.drawControl(QStyle::CE_PushButton, option);
    const int kante = icon().isNull() ? 0 : iconSize().width() + abstand(6);
    const int wortbreite = fontMetrics().horizontalAdvance(text());
    QRect rest = rect();
    rest.setLeft(std::max(abstand(4), (width() - kante - wortbreite) / 2));
    icon().paint(&maler, QRect(QPoint(rest.left(), (height() - iconSize().height()) / 2), iconSize()), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    rest.setLeft(rest.left() + kante);
    maler.drawItemText(rest, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(), QPalette::ButtonText);
}
} // namespace quillmar::bedienteile
