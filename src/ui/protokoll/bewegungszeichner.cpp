#include "bewegungszeichner.h"

#include "bewegungsmodell.h"
#include "stil.h"
#include "zeichen.h"

#include <QPainter>

namespace quillmar::protokoll
{
using Stil::abstand;

namespace
{
/** Text in one line, in the middle left out where it must be. */
void zeileMalen(QPainter &maler, const QRect &flaeche, const QString &text)
{
    const QString gezeigt = maler.fontMetrics().elidedText(text, Qt::ElideMiddle, flaeche.width());
    maler.drawText(flaeche, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, gezeigt);
}

/** The room for the word and its reason is taken from the paths, which keep half of the row. */
int wortMalen(QPainter &maler, const QRect &flaeche, const QString &wort, const QColor &farbe)
{
    if (wort.isEmpty())
        return 0;
    maler.setPen(farbe);
    const QString gezeigt = maler.fontMetrics().elidedText(wort, Qt::ElideRight, flaeche.width() / 2);
    maler.drawText(flaeche, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, gezeigt);
    return maler.fontMetrics().horizontalAdvance(gezeigt) + abstand(12);
}
} // namespace

void Bewegungszeichner::paint(QPainter *maler, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QPalette &palette = option.palette;
    const bool aktuell = option.state.testFlag(QStyle::State_HasFocus);
    const QColor grund = aktuell ? Stil::auswahlgrund(palette) : palette.color(QPalette::Window);
    maler->save();
    if (aktuell)
        maler->fillRect(option.rect, grund);
    const auto stand = Bewegungsstand(index.data(Bewegungsmodell::Stand).toInt());
    const int kante = Stil::zeichengroesse();
    const QRect mitte = option.rect.adjusted(0, abstand(4), -abstand(2), -abstand(4));
    const QColor neben = Stil::nebenfarbe(palette, grund);
    const bool bunt =
        stand == Bewegungsstand::AmZiel || stand == Bewegungsstand::Fehler || stand == Bewegungsstand::Uebersprungen;
    const QColor zeichenfarbe = stand == Bewegungsstand::Verschwunden ? neben : QColor();
    Zeichen::malen(*maler, QRect(mitte.x(), mitte.y(), kante, mitte.height()), standsymbol(stand), palette,
                   bunt ? QColor() : zeichenfarbe);
    maler->setFont(Stil::schrift(Stil::Schrift::Neben));
    QRect text = mitte.adjusted(kante + abstand(10), 0, 0, 0);
    const bool fehler = stand == Bewegungsstand::Fehler;
    text.setRight(text.right() - wortMalen(*maler, mitte, index.data(Bewegungsmodell::Wort).toString(),
                                           fehler ? Stil::farbe(Stil::Bedeutung::Fehler, palette) : neben));
    maler->setPen(neben);
    const int halb = text.height() / 2;
    zeileMalen(*maler, text.adjusted(0, 0, 0, -halb), index.data(Bewegungsmodell::Von).toString());
    maler->setPen(palette.color(QPalette::WindowText));
    maler->setFont(Stil::schrift(Stil::Schrift::Grund));
    zeileMalen(*maler, text.adjusted(0, halb, 0, 0), index.data(Bewegungsmodell::Nach).toString());
    maler->restore();
}

QSize Bewegungszeichner::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const int zeilenhoehe = QFontMetrics(Stil::schrift(Stil::Schrift::Grund)).height();
    return {option.rect.width(), 2 * zeilenhoehe + abstand(8)};
}
} // namespace quillmar::protokoll
