#include "textschild.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr int mindestensImUmbruch = 12; // characters of width that it asks for
constexpr int mindestensInEinerZeile = 3;
constexpr int liebsteBreite = 60;

QTextOption umbruch()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}
} // namespace

Textschild::Textschild(Art art, Schrift schrift, const QString &name) : m_art(art)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    if (art == Art::Umbruch) {
        setWordWrap(true); // otherwise QLabel drops the height for width at every new text
        QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
        regel.setHeightForWidth(true);
        setSizePolicy(regel);
    } else {
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }
    Stil::ankleiden(this, schrift);
}

void Textschild::setzen(Symbol symbol, const QString &text)
{
    if (symbol == m_symbol && text == m_text)
        return;
    m_symbol = symbol;
    m_text = text;
    if (m_art == Art::Umbruch)
        m_text.replace(u'\n', u' ');
    setContentsMargins(einzug(), 0, 0, 0);
    setAccessibleName(m_text);
    updateGeometry();
    einpassen();
    update();
}

void Textschild::befund(Symbol symbol, const QString &text)
{
    Stil::ankleiden(this, symbol == Symbol::Keines ? Schrift::Neben : Schrift::Grund);
    setzen(symbol, text);
}

void Textschild::setzeHilfe(const QString &hilfe)
{
    m_hilfe = hilfe;
    setAccessibleDescription(hilfe);
    einpassen();
}

int Textschild::einzug() const
{
    return m_symbol == Symbol::Keines || m_text.isEmpty() ? 0 : Stil::zeichengroesse() + Stil::mass(6);
}

/** What is shown of the text, and the tool tip where that is not all. */
void Textschild::einpassen()
{
    QString gezeigt = m_text;
    if (m_art != Art::Umbruch) {
        gezeigt.replace(u'\n', u' ');
        gezeigt = fontMetrics().elidedText(gezeigt, m_art == Art::KurzMitte ? Qt::ElideMiddle : Qt::ElideRight,
                                           width() - einzug());
    }
    setText(gezeigt);
    QStringList hilfe = {gezeigt == m_text || m_hilfe == m_text ? QString() : m_text, m_hilfe};
    hilfe.removeAll(QString());
    if (m_art != Art::Umbruch || !hilfe.isEmpty())
        setToolTip(hilfe.join(u'\n'));
}

int Textschild::zeilenLegen(QTextLayout &satz, int breite) const
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

QSize Textschild::sizeHint() const
{
    const int lang = fontMetrics().horizontalAdvance(m_text) + 2;
    const int breite = m_art == Art::Umbruch ? std::min(lang, fontMetrics().averageCharWidth() * liebsteBreite) : lang;
    return {breite + einzug(), fontMetrics().height()};
}

QSize Textschild::minimumSizeHint() const
{
    const int zeichen = m_art == Art::Umbruch ? mindestensImUmbruch : mindestensInEinerZeile;
    const int breite = fontMetrics().averageCharWidth() * zeichen + einzug();
    return {m_art == Art::Umbruch ? breite : std::min(breite, sizeHint().width()), fontMetrics().height()};
}

int Textschild::heightForWidth(int breite) const
{
    if (m_art != Art::Umbruch)
        return fontMetrics().height();
    QTextLayout satz(m_text, font());
    return std::max(fontMetrics().height(), zeilenLegen(satz, breite - einzug()));
}

void Textschild::paintEvent(QPaintEvent *ereignis)
{
    if (m_art != Art::Umbruch)
        QLabel::paintEvent(ereignis);
    QPainter maler(this);
    QTextLayout satz(m_text, font());
    const int oben = m_art == Art::Umbruch ? std::max(0, (height() - zeilenLegen(satz, width() - einzug())) / 2) : 0;
    if (einzug() > 0) {
        // Beside the first line.
        const int kante = Stil::zeichengroesse();
        const int zeile = m_art == Art::Umbruch ? fontMetrics().height() : height();
        Zeichen::malen(maler, QRect(0, std::max(0, oben + (zeile - kante) / 2), kante, kante), m_symbol, palette());
    }
    if (m_art != Art::Umbruch)
        return;
    maler.setPen(palette().color(foregroundRole()));
    satz.draw(&maler, QPointF(einzug(), oben));
}

void Textschild::resizeEvent(QResizeEvent *ereignis)
{
    QLabel::resizeEvent(ereignis);
    einpassen();
}

void Textschild::changeEvent(QEvent *ereignis)
{
    QLabel::changeEvent(ereignis);
    if (ereignis->type() == QEvent::FontChange) {
        setContentsMargins(einzug(), 0, 0, 0);
        einpassen();
    }
}
} // namespace quillmar::bedienteile
