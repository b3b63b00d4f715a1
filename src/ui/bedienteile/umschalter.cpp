#include "umschalter.h"

#include "bau.h"
#include "farben.h"
#include "knopfmaler.h"

#include <QButtonGroup>
#include <QPainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
Umschalter::Umschalter(const Wahl &links, const Wahl &rechts, QWidget *eltern)
    : QWidget(eltern), m_links(haelfte(links)), m_rechts(haelfte(rechts))
{
    fuellen(this, reihe({m_links, m_rechts}, Abstand::Keiner));
    layout()->setContentsMargins(2, 2, 2, 2);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *gruppe = new QButtonGroup(this);
    gruppe->addButton(m_links);
    gruppe->addButton(m_rechts);
    m_links->setChecked(true);
    connect(m_links, &QToolButton::clicked, this, [this] { Q_EMIT gewaehlt(false); });
    connect(m_rechts, &QToolButton::clicked, this, [this] { Q_EMIT gewaehlt(true); });
}

QToolButton *Umschalter::haelfte(const Wahl &wahl)
{
    QToolButton *neue = flachknopf(wahl.name, wahl.symbol, wahl.titel, wahl.titel + u". "_s + wahl.hilfe);
    setzeKnopfart(neue, Knopfart::Haelfte);
    setzeWaehlbar(neue);
    return neue;
}

void Umschalter::setzeRechts(bool rechts) { (rechts ? m_rechts : m_links)->setChecked(true); }

void Umschalter::setzeMitText(bool mit)
{
    bedienteile::setzeMitText(m_links, mit);
    bedienteile::setzeMitText(m_rechts, mit);
}

void Umschalter::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.setRenderHint(QPainter::Antialiasing);
    abgerundet(maler, rect(), Farben::toenung(palette().color(QPalette::WindowText), palette()), 4);
}
} // namespace quillmar::bedienteile
