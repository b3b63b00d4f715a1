#include "hinweisfeld.h"

#include "knopf.h"
#include "stil.h"
#include "umbruchtext.h"
#include "zeichen.h"

#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;

namespace
{
constexpr int leiste = 3;
}

Hinweisfeld::Hinweisfeld(bool warnung, Symbol symbol, const QString &text, const QString &knopf, QWidget *eltern)
    : QWidget(eltern), m_warnung(warnung), m_symbol(symbol), m_text(new Umbruchtext(this))
{
    m_text->setzeText(text);
    auto *zeile = new QHBoxLayout(this);
    zeile->addWidget(m_text, 1, Qt::AlignVCenter);
    if (!knopf.isEmpty()) {
        m_knopf = new Knopf({}, knopf, this);
        zeile->addWidget(m_knopf, 0, Qt::AlignVCenter);
        connect(m_knopf, &QPushButton::clicked, this, &Hinweisfeld::gedrueckt);
    }
    QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
    Stil::folgen(this, [this, zeile] {
        zeile->setContentsMargins(leiste + abstand(4) + Stil::zeichengroesse() + abstand(8), abstand(5), abstand(4),
                                  abstand(5));
        zeile->setSpacing(abstand(8));
    });
}

void Hinweisfeld::setzeText(const QString &text) { m_text->setzeText(text); }

void Hinweisfeld::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const QColor farbe = m_warnung ? Stil::farbe(Stil::Bedeutung::Warnung, palette()) : Stil::akzentmarke(palette());
    if (m_warnung)
        maler.fillRect(rect(), Stil::toenung(farbe, palette()));
    maler.fillRect(QRect(0, 0, leiste, height()), farbe);
    const int kante = Stil::zeichengroesse();
    Zeichen::malen(maler, QRect(leiste + abstand(4), (height() - kante) / 2, kante, kante), m_symbol, palette());
}
} // namespace quillmar::bedienteile
