#include "leeransicht.h"

#include "bau.h"
#include "farben.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr int kante = 56;

QLabel *mittig(Schrift art, const QString &name)
{
    QLabel *text = schild({}, art, name);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    return text;
}
} // namespace

Leeransicht::Leeransicht(QWidget *eltern, const QString &knopfname, Knopfart knopfart)
    : QWidget(eltern), m_bild(mittig(Schrift::Grund, {})), m_titel(mittig(Schrift::Seitentitel, u"leertitel"_s)),
      m_zeile(mittig(Schrift::Neben, u"leerzeile"_s)), m_knopf(bedienteile::knopf(knopfname, {}, {}, knopfart)),
      m_zusatz(mittig(Schrift::Neben, u"leerzusatz"_s))
{
    // A third down.
    fuellen(this,
            spalte({Teil::rest(1), m_bild, m_titel, m_zeile, {m_knopf, 0, Qt::AlignHCenter}, m_zusatz, Teil::rest(2)}),
            Abstand::Rand, Abstand::Rand);
    connect(m_knopf, &QPushButton::clicked, this, &Leeransicht::gedrueckt);
}

void Leeransicht::setzen(Symbol symbol, const Leerlage &lage)
{
    if (symbol == m_symbol && lage == m_lage)
        return;
    m_symbol = symbol;
    m_lage = lage;
    m_titel->setText(lage.titel);
    m_zeile->setText(lage.zeile);
    m_zeile->setVisible(!lage.zeile.isEmpty());
    benennen(m_knopf, lage.knopf, {});
    m_knopf->setVisible(!lage.knopf.isEmpty());
    m_zusatz->setText(lage.zusatz.join(u'\n'));
    m_zusatz->setVisible(!lage.zusatz.isEmpty());
    setAccessibleName(lage.titel);
    setAccessibleDescription(lage.zeile);
    bildZeigen();
}

void Leeransicht::bildZeigen()
{
    const QIcon icon = Zeichen::icon(m_symbol, Farben::nebenfarbe(palette()));
    m_bild->setPixmap(icon.pixmap(QSize(Stil::mass(kante), Stil::mass(kante)), devicePixelRatioF()));
}

void Leeransicht::changeEvent(QEvent *ereignis)
{
    QWidget::changeEvent(ereignis);
    if (ereignis->type() == QEvent::FontChange || ereignis->type() == QEvent::PaletteChange)
        bildZeigen();
}
} // namespace quillmar::bedienteile
