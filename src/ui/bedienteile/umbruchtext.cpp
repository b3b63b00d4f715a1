#include "umbruchtext.h"

#include <QPainter>
#include <QTextLayout>
#include <cmath>

namespace quillmar::bedienteile
{
namespace
{
constexpr int mindestens = 12; // characters of width that it asks for

QTextOption umbruch()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}
} // namespace

Umbruchtext::Umbruchtext(QWidget *eltern) : QLabel(eltern)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true); // otherwise QLabel drops the height for width at every new text
    QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
}

void Umbruchtext::setzeText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_text.replace(u'\n', u' ');
    setText(m_text); // for the accessibility interface
    setAccessibleName(m_text);
    updateGeometry();
    update();
}

int Umbruchtext::zeilenLegen(QTextLayout &satz, int breite) const
{
    satz.setTextOption(umbruch());
    satz.beginLayout();
    qreal hoehe = 0;
    for (QTextLine zeile = satz.createLine(); zeile.isValid(); zeile = satz.createLine()) {
        zeile.setLineWidth(breite);
        zeile.setPosition({0, hoehe});
        hoehe += std::ceil(zeile.height());
    }
    satz.endLayout();
    return int(hoehe);
}

QSize Umbruchtext::sizeHint() const
{
    return {std::min(fontMetrics().horizontalAdvance(m_text) + 2, fontMetrics().averageCharWidth() * 60),
            fontMetrics().height()};
}

QSize Umbruchtext::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * mindestens, fontMetrics().height()};
}

int Umbruchtext::heightForWidth(int breite) const
{
    QTextLayout satz(m_text, font());
    return std::max(fontMetrics().height(), zeilenLegen(satz, breite));
}

void Umbruchtext::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.setPen(palette().color(foregroundRole()));
    QTextLayout satz(m_text, font());
    zeilenLegen(satz, width());
    satz.draw(&maler, {0, 0});
}
} // namespace quillmar::bedienteile
