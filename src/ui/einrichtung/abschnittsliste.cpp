#include "abschnittsliste.h"

#include "abschnittsseite.h"
#include "einrichtung.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int rolleZeile = Qt::UserRole;
constexpr int rolleSymbol = Qt::UserRole + 1;

QString spracheUndSchrift()
{
    const QString punkte = gefuellt(Sprache::text(u"%@ Punkt"_s), {QString::number(qRound(Stil::schriftgroesse()))});
    for (const Sprachsatz &satz : Sprache::verfuegbare()) {
        if (satz.kennung == Sprache::wirksameKennung())
            return satz.name + u", "_s + punkte;
    }
    return u"Deutsch, "_s + punkte;
}

class Zeilenmaler : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        const int text = QFontMetrics(Stil::schrift(Schrift::Halbfett)).height() +
                         QFontMetrics(Stil::schrift(Schrift::Neben)).height();
        return {abstand(100), text + abstand(12)};
    }

    void paint(QPainter *maler, const QStyleOptionViewItem &option, const QModelIndex &stelle) const override
    {
        const bool gewaehlt = option.state & QStyle::State_Selected;
        const QPalette &palette = option.palette;
        const QColor grund = gewaehlt ? Stil::auswahlgrund(palette) : palette.color(QPalette::Window);
        maler->save();
        maler->setRenderHint(QPainter::Antialiasing);
        if (gewaehlt)
            auswahlMalen(*maler, option, grund);
        const int kante = Stil::zeichengroesse();
        const QRect flaeche = option.rect;
        Zeichen::malen(*maler, QRect(flaeche.x() + abstand(10), flaeche.center().y() - kante / 2, kante, kante),
                       Symbol(stelle.data(rolleSymbol).toInt()), palette);
        texteMalen(*maler, flaeche.adjusted(abstand(20) + kante, abstand(6), -abstand(8), -abstand(6)), stelle,
                   {palette.color(QPalette::WindowText), Stil::nebenfarbe(palette, grund)}, gewaehlt);
        maler->restore();
    }

private:
    static void auswahlMalen(QPainter &maler, const QStyleOptionViewItem &option, const QColor &grund)
    {
        maler.setPen(Qt::NoPen);
        maler.setBrush(grund);
        maler.drawRoundedRect(option.rect, 3, 3);
        if (!(option.state & QStyle::State_HasFocus))
            return;
        maler.setPen(QPen(Stil::akzentmarke(option.palette), 2));
        maler.setBrush(Qt::NoBrush);
        maler.drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), 3, 3);
    }

    static void texteMalen(QPainter &maler, const QRect &flaeche, const QModelIndex &stelle,
                           const std::pair<QColor, QColor> &farben, bool gewaehlt)
    {
        const auto schreiben = [&](Schrift art, const QColor &farbe, const QString &text, Qt::Alignment wo) {
            maler.setFont(Stil::schrift(art));
            maler.setPen(farbe);
            maler.drawText(flaeche, int(wo), maler.fontMetrics().elidedText(text, Qt::ElideMiddle, flaeche.width()));
        };
        schreiben(gewaehlt ? Schrift::Halbfett : Schrift::Grund, farben.first, stelle.data().toString(),
                  Qt::AlignLeft | Qt::AlignTop);
        schreiben(Schrift::Neben, farben.second, stelle.data(rolleZeile).toString(), Qt::AlignLeft | Qt::AlignBottom);
    }
};
} // namespace

Abschnittsliste::Abschnittsliste(Einrichtung *einrichtung, QWidget *eltern)
    : QListView(eltern), m_einrichtung(einrichtung), m_zeilen(new QStandardItemModel(this))
{
    setObjectName(u"abschnitte"_s);
    setAccessibleName(Sprache::text(u"Abschnitte der Einrichtung"_s));
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setTabKeyNavigation(false);
    viewport()->setAutoFillBackground(false);
    setItemDelegate(new Zeilenmaler(this));
    for (const Abschnitt abschnitt : alleAbschnitte())
        m_zeilen->appendRow(new QStandardItem(abschnittTitel(abschnitt)));
    setModel(m_zeilen);
    connect(m_einrichtung, &Einrichtung::staendeGeaendert, this, &Abschnittsliste::zeigen);
    connect(m_einrichtung, &Einrichtung::abschnittGeaendert, this, &Abschnittsliste::waehlen);
    Stil::folgen(this, [this] {
        setSpacing(1);
        scheduleDelayedItemsLayout();
        m_fenster = spracheUndSchrift();
        zeigen();
    });
    waehlen();
}

void Abschnittsliste::zeigen()
{
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        Abschnittsstand stand = m_einrichtung->abschnittsstand(abschnitt);
        if (abschnitt == Abschnitt::Oberflaeche)
            stand.zeile = m_fenster;
        QStandardItem *zeile = m_zeilen->item(int(abschnitt));
        zeile->setData(stand.zeile, rolleZeile);
        zeile->setData(int(symbol(stand.marke())), rolleSymbol);
        zeile->setToolTip(u"<qt>"_s + stand.zeile.toHtmlEscaped() + u"</qt>"_s);
        QStringList teile = {zeile->text(), stand.markenwort(), stand.zeile};
        teile.removeAll(QString());
        zeile->setData(teile.join(u", "_s), Qt::AccessibleTextRole);
    }
}

void Abschnittsliste::waehlen() { setCurrentIndex(m_zeilen->index(int(m_einrichtung->abschnitt()), 0)); }

void Abschnittsliste::currentChanged(const QModelIndex &jetzt, const QModelIndex &vorher)
{
    QListView::currentChanged(jetzt, vorher);
    if (jetzt.isValid())
        m_einrichtung->setzeAbschnitt(Abschnitt(jetzt.row()));
}
} // namespace quillmar::einrichtung
