#include "hinweisfeld.h"

#include "bau.h"
#include "nachgeben.h"
#include "textschild.h"

#include <QPainter>
#include <QPushButton>
#include <algorithm>

namespace quillmar::bedienteile
{
namespace
{
constexpr int leiste = 3;
}

Hinweisfeld::Hinweisfeld(Symbol symbol, const QString &text, const QList<Antwort> &antworten, QWidget *eltern)
    : QWidget(eltern), m_symbol(symbol), m_text(new Textschild)
{
    m_text->setzen(symbol, text);
    Kette *knoepfe = reihe({});
    for (const Antwort &antwort : antworten) {
        m_knoepfe << bedienteile::knopf(antwort.name, antwort.text, antwort.hilfe);
        knoepfe->addWidget(m_knoepfe.last());
        connect(m_knoepfe.last(), &QPushButton::clicked, this,
                [this, stelle = int(m_knoepfe.size()) - 1] { Q_EMIT gedrueckt(stelle); });
    }
    Kette *alles = reihe({{m_text, 1}, {knoepfe, 0}});
    alles->setAlignment(m_text, Qt::Alignment());
    fuellen(this, alles, Stil::Abstand::Nah, Stil::Abstand::Eng);
    QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
    if (m_knoepfe.size() < 2)
        return;
    // A question in one line where there is room for it beside its answers.
    new Nachgeben(this, 1, [alles, knoepfe](int stufe) {
        alles->setDirection(stufe == 0 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        alles->setAlignment(knoepfe, stufe == 0 ? Qt::Alignment() : Qt::AlignLeft);
    });
}

void Hinweisfeld::setzeText(const QString &text)
{
    m_text->setzen(m_symbol, text);
    for (QPushButton *knopf : std::as_const(m_knoepfe)) {
        if (knopf->toolTip().isEmpty())
            knopf->setAccessibleDescription(text);
    }
}

bool Hinweisfeld::hatFokus() const
{
    return std::any_of(m_knoepfe.begin(), m_knoepfe.end(), [](const QPushButton *knopf) { return knopf->hasFocus(); });
}

void Hinweisfeld::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const bool warnung = m_symbol == Symbol::Warnung;
    const QColor farbe = warnung ? Stil::farbe(Stil::Bedeutung::Warnung, palette()) : Stil::akzentmarke(palette());
    if (warnung)
        maler.fillRect(rect(), Stil::toenung(farbe, palette()));
    maler.fillRect(QRect(0, 0, leiste, height()), farbe);
}
} // namespace quillmar::bedienteile
