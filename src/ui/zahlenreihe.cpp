#include "zahlenreihe.h"

#include "stil.h"
#include "zeichen.h"

#include <QLocale>
#include <QPainter>

using namespace Qt::StringLiterals;
using Stil::abstand;
using Stil::Schrift;

Zahlenreihe::Zahlenreihe(QWidget *eltern) : QWidget(eltern)
{
    setObjectName(u"zahlen"_s);
    Stil::folgen(this, [this] { updateGeometry(); });
}

void Zahlenreihe::zeigen(const QList<Zahl> &zahlen)
{
    m_zahlen = zahlen;
    QStringList teile;
    for (const Zahl &zahl : zahlen)
        teile << QString::number(zahl.wert) + u' ' + zahl.was;
    setAccessibleName(teile.join(u", "_s));
    updateGeometry();
    update();
}

QSize Zahlenreihe::sizeHint() const
{
    return {abstand(600), QFontMetrics(Stil::schrift(Schrift::Zahl)).lineSpacing() +
                              QFontMetrics(Stil::schrift(Schrift::Neben)).lineSpacing()};
}

void Zahlenreihe::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const QFontMetrics gross(Stil::schrift(Schrift::Zahl));
    const QFontMetrics klein(Stil::schrift(Schrift::Neben));
    int summe = 0;
    for (const Zahl &zahl : m_zahlen)
        summe += klein.horizontalAdvance(zahl.was);
    const int frei = (width() - summe) / std::max<int>(1, int(m_zahlen.size()));
    int x = 0;
    for (const Zahl &zahl : m_zahlen) {
        const QString ziffern = QLocale().toString(zahl.wert);
        maler.setFont(Stil::schrift(Schrift::Zahl));
        maler.setPen(zahl.betont ? Stil::akzentmarke(palette()) : palette().color(QPalette::WindowText));
        maler.drawText(x, gross.ascent(), ziffern);
        if (zahl.warnung) {
            const int kante = Stil::zeichengroesse();
            Zeichen::malen(
                maler,
                QRect(x + gross.horizontalAdvance(ziffern) + abstand(6), (gross.height() - kante) / 2, kante, kante),
                u"exclamationmark.triangle"_s, palette());
        }
        maler.setFont(Stil::schrift(Schrift::Neben));
        maler.setPen(Stil::nebenfarbe(palette()));
        maler.drawText(x, gross.lineSpacing() + klein.ascent(), zahl.was);
        x += klein.horizontalAdvance(zahl.was) + std::clamp(frei, abstand(10), abstand(33));
    }
}
