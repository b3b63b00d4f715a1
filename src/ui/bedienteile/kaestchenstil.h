#pragma once

#include "namensraeume.h"

#include <QProxyStyle>

namespace quillmar::bedienteile
{
/**
 * The toolkit's own style with boxes to tick that grow with the font, and whose edge is to be seen on a dark ground. A
 * desktop's style does both by itself.
 */
class Kaestchenstil : public QProxyStyle
{
    Q_OBJECT

public:
    /** Takes its place where the application has the toolkit's own style. */
    static void anwenden();

    [[nodiscard]] int pixelMetric(PixelMetric mass, const QStyleOption *option, const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement teil, const QStyleOption *option, QPainter *maler,
                       const QWidget *widget) const override;

private:
    Kaestchenstil();
};
} // namespace quillmar::bedienteile
