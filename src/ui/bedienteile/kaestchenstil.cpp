#include "kaestchenstil.h"

#include "stil.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr auto eigener = "fusion"_L1;
constexpr int kante = 14;
} // namespace

Kaestchenstil::Kaestchenstil() : QProxyStyle(eigener) {}

void Kaestchenstil::anwenden()
{
    if (QApplication::style()->name() == eigener)
        QApplication::setStyle(new Kaestchenstil);
}

int Kaestchenstil::pixelMetric(PixelMetric mass, const QStyleOption *option, const QWidget *widget) const
{
    switch (mass) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return Stil::abstand(kante);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return Stil::abstand(6);
    default:
        return QProxyStyle::pixelMetric(mass, option, widget);
    }
}

void Kaestchenstil::drawPrimitive(PrimitiveElement teil, const QStyleOption *option, QPainter *maler,
                                  const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(teil, option, maler, widget);
    const bool kaestchen = teil == PE_IndicatorCheckBox;
    if ((!kaestchen && teil != PE_IndicatorRadioButton) || !Stil::istDunkel(option->palette))
        return;
    maler->save();
    maler->setRenderHint(QPainter::Antialiasing);
    maler->setPen(QPen(Stil::griff(option->palette), 1));
    maler->setBrush(Qt::NoBrush);
    const QRectF rand = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (kaestchen)
        maler->drawRoundedRect(rand, 2, 2);
    else
        maler->drawEllipse(rand);
    maler->restore();
}
} // namespace quillmar::bedienteile
