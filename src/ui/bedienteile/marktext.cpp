#include "marktext.h"

#include "stil.h"
#include "umbruchtext.h"
#include "zeichen.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::Schrift;

Marktext::Marktext(QWidget *eltern) : QWidget(eltern), m_text(new Umbruchtext(this))
{
    auto *reihe = new QHBoxLayout(this);
    reihe->addWidget(m_text, 1, Qt::AlignVCenter);
    QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
    Stil::folgen(this, [this] { kleiden(); });
}

void Marktext::kleiden()
{
    const bool schlicht = m_symbol == Symbol::Keines;
    m_text->setFont(Stil::schrift(schlicht ? Schrift::Neben : Schrift::Grund));
    Stil::setzeTextfarbe(m_text, schlicht ? Stil::nebenfarbe(palette()) : palette().color(QPalette::WindowText));
    layout()->setContentsMargins(schlicht ? 0 : Stil::zeichengroesse() + abstand(6), 0, 0, 0);
}

void Marktext::setzen(Symbol symbol, const QString &text)
{
    if (symbol == m_symbol && text == m_text->ganzerText())
        return;
    m_symbol = symbol;
    m_text->setzeText(text);
    kleiden();
    updateGeometry();
    update();
}

QString Marktext::text() const { return m_text->ganzerText(); }

void Marktext::paintEvent(QPaintEvent *)
{
    if (m_symbol == Symbol::Keines || m_text->ganzerText().isEmpty())
        return;
    QPainter maler(this);
    const int kante = Stil::zeichengroesse();
    // Beside the first line.
    const int y = m_text->y() + (fontMetrics().height() - kante) / 2;
    Zeichen::malen(maler, QRect(0, std::max(0, y), kante, kante), m_symbol, palette());
}
} // namespace quillmar::bedienteile
