#include "elidiertext.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr int mindestens = 3; // characters that stay
}

Elidiertext::Elidiertext(Qt::TextElideMode wo, QWidget *eltern) : QLabel(eltern), m_wo(wo)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Elidiertext::setzeText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    einpassen();
}

void Elidiertext::setzeHilfe(const QString &hilfe)
{
    m_hilfe = hilfe;
    setAccessibleDescription(hilfe);
    einpassen();
}

QSize Elidiertext::sizeHint() const { return {fontMetrics().horizontalAdvance(m_text) + 2, fontMetrics().height()}; }

QSize Elidiertext::minimumSizeHint() const
{
    return {std::min(fontMetrics().averageCharWidth() * mindestens, sizeHint().width()), sizeHint().height()};
}

void Elidiertext::einpassen()
{
    QString einzeilig = m_text;
    einzeilig.replace(u'\n', u' ');
    const QString gezeigt = fontMetrics().elidedText(einzeilig, m_wo, width());
    setText(gezeigt);
    QStringList hilfe = {gezeigt == m_text ? QString() : m_text, m_hilfe};
    hilfe.removeAll(QString());
    setToolTip(hilfe.join(u'\n'));
}

void Elidiertext::resizeEvent(QResizeEvent *ereignis)
{
    QLabel::resizeEvent(ereignis);
    einpassen();
}

void Elidiertext::changeEvent(QEvent *ereignis)
{
    QLabel::changeEvent(ereignis);
    if (ereignis->type() == QEvent::FontChange)
        einpassen();
}
} // namespace quillmar::bedienteile
