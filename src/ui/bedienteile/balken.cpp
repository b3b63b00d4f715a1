#include "balken.h"

#include "stil.h"

#include <QPainter>
#include <algorithm>

namespace quillmar::bedienteile
{
namespace
{
constexpr int dicke = 6;
}

Balken::Balken(int breite, QWidget *eltern) : QWidget(eltern), m_breite(breite)
{
    setSizePolicy(breite > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    Stil::folgen(this, [this] { updateGeometry(); });
}

void Balken::setzeAnteil(double anteil)
{
    const double neu = std::clamp(anteil, 0.0, 1.0);
    if (neu == m_anteil)
        return;
    m_anteil = neu;
    update();
}

QSize Balken::sizeHint() const { return {Stil::abstand(m_breite > 0 ? m_breite : 40), Stil::abstand(dicke)}; }

void Balken::malen(QPainter &maler, const QRectF &flaeche, double anteil, const QPalette &palette)
{
    const double rund = flaeche.height() / 2;
    maler.save();
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setPen(Qt::NoPen);
    maler.setBrush(Stil::rille(palette));
    maler.drawRoundedRect(flaeche, rund, rund);
    const double gefuellt = flaeche.width() * anteil;
    if (gefuellt > 0) {
        maler.setBrush(Stil::akzentmarke(palette));
        maler.drawRoundedRect(QRectF(flaeche.topLeft(), QSizeF(std::max(gefuellt, flaeche.height()), flaeche.height())),
                              rund, rund);
    }
    maler.restore();
}

void Balken::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    malen(maler, rect(), m_anteil, palette());
}
} // namespace quillmar::bedienteile
