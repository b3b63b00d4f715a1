#include "liste.h"

#include "bau.h"
#include "farben.h"
#include "knopfmaler.h"
#include "stil.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::mass;

namespace
{
int tatbreite() { return Stil::zeichengroesse() + 2 * abstand(Abstand::Nah); }

/** What stands side by side where there is room for it. */
bool untereinander(const QWidget *liste, int breite)
{
    constexpr int zeichen = 100;
    return liste && breite < zeichen * QFontMetrics(Stil::schrift(Schrift::Grund)).averageCharWidth();
}

constexpr int dritteHoechstens = 3;
bool hatDritte(const QModelIndex &stelle) { return stelle.data(DritteZeile).isValid(); }

bool untereinander(const QWidget *liste) { return untereinander(liste, liste ? liste->width() : 0); }

int hakenbreite() { return Stil::mass(14) + 2 * abstand(Abstand::Nah); }

/** Where a click ticks the row. */
QRect hakenflaeche(const QRect &zeile) { return {zeile.left(), zeile.top(), hakenbreite(), zeile.height()}; }

bool ankreuzen(QAbstractItemModel *modell, const QModelIndex &stelle)
{
    const bool an = stelle.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return modell->setData(stelle, an ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void hakenMalen(QPainter &maler, const QStyleOptionViewItem &zeile, const QModelIndex &stelle)
{
    QStyleOptionButton haken;
    haken.palette = zeile.palette;
    haken.state = stelle.flags() & Qt::ItemIsUserCheckable ? QStyle::State_Enabled : QStyle::State_None;
    haken.state |= stelle.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    const QRect flaeche = hakenflaeche(zeile.rect);
    const int kante = Stil::mass(14);
    haken.rect = {flaeche.center() - QPoint(kante / 2, kante / 2), QSize(kante, kante)};
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &haken, &maler);
}

/** Where the symbol stands that does something. */
QRect tatflaeche(const QRect &zeile) { return {zeile.right() - tatbreite(), zeile.top(), tatbreite(), zeile.height()}; }

class Zeilenmaler : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &stelle) const override
    {
        const int erste = QFontMetrics(Stil::schrift(Schrift::Halbfett)).height();
        const int zweite = QFontMetrics(Stil::schrift(Schrift::Neben)).height();
        const int weitere = (stelle.data(ZweiteZeile).isValid() ? 1 : 0) +
                            (hatDritte(stelle) ? (untereinander(option.widget) ? dritteHoechstens : 1) : 0);
        return {mass(100), erste + weitere * zweite + abstand(Abstand::Nah)};
    }

    void paint(QPainter *maler, const QStyleOptionViewItem &option, const QModelIndex &stelle) const override
    {
        const QVariant gewaehlteZeile = stelle.data(Gewaehlt);
        const bool gewaehlt =
            gewaehlteZeile.isValid() ? gewaehlteZeile.toBool() : bool(option.state & QStyle::State_Selected);
        const QColor grund =
            gewaehlt ? Farben::auswahlgrund(option.palette) : option.palette.color(QPalette::Active, QPalette::Window);
        maler->save();
        maler->setRenderHint(QPainter::Antialiasing);
        if (gewaehlt)
            abgerundet(*maler, option.rect, grund);
        if (option.state & QStyle::State_HasFocus)
            fokusrahmen(*maler, option.palette, option.rect.adjusted(1, 1, -1, -1));
        const int kante = Stil::zeichengroesse();
        QRect text = option.rect.adjusted(abstand(Abstand::Nah), abstand(Abstand::Eng), -abstand(Abstand::Nah),
                                          -abstand(Abstand::Eng));
        if (stelle.data(Qt::CheckStateRole).isValid()) {
            hakenMalen(*maler, option, stelle);
            text.setLeft(option.rect.left() + hakenbreite());
        }
        if (const QVariant marke = stelle.data(Marke); marke.isValid()) {
            Zeichen::malen(*maler, QRect(text.x(), text.y(), kante, text.height()), Symbol(marke.toInt()),
                           option.palette);
            text.setLeft(text.left() + kante + abstand(Abstand::Nah));
        }
        if (const auto tat = Symbol(stelle.data(Zeilentat).toInt()); tat != Symbol::Keines) {
            const QRect mitte(tatflaeche(option.rect).center() - QPoint(kante / 2, kante / 2), QSize(kante, kante));
            Zeichen::malen(*maler, mitte, tat, option.palette);
            text.setRight(tatflaeche(option.rect).left());
        }
        if (const QVariant dritte = stelle.data(DritteZeile); dritte.isValid()) {
            maler->setPen(Farben::nebenfarbe(option.palette, grund));
            text.setHeight(nebenzeilenMalen(*maler, text, dritte.toStringList(), untereinander(option.widget)));
        }
        QRect oben = text;
        if (hatDritte(stelle)) // the word stands beside the first line alone
            oben.setHeight(QFontMetrics(Stil::schrift(Schrift::Halbfett)).height());
        const int wort = wortMalen(*maler, oben, stelle, option.palette, grund);
        zeilenMalen(*maler, text, stelle, option.palette, grund, gewaehlt, wort);
        maler->restore();
    }

    [[nodiscard]] bool editorEvent(QEvent *ereignis, QAbstractItemModel *modell, const QStyleOptionViewItem &option,
                                   const QModelIndex &stelle) override
    {
        const auto *maus = dynamic_cast<QMouseEvent *>(ereignis);
        return maus && ereignis->type() == QEvent::MouseButtonRelease && maus->button() == Qt::LeftButton &&
               stelle.flags() & Qt::ItemIsUserCheckable &&
               hakenflaeche(option.rect).contains(maus->position().toPoint()) && ankreuzen(modell, stelle);
    }

private:
    /** The room for the word is taken from the lines, which keep half of the row. Returns its width. */
    static int wortMalen(QPainter &maler, const QRect &flaeche, const QModelIndex &stelle, const QPalette &palette,
                         const QColor &grund)
    {
        const QString wort = stelle.data(Wort).toString();
        if (wort.isEmpty())
            return 0;
        const bool warnung = Schrift(stelle.data(Wortart).toInt()) == Schrift::Warnung;
        maler.setFont(Stil::schrift(Schrift::Neben));
        const auto beide = [&] {
            return maler.fontMetrics().horizontalAdvance(wort) + abstand(Abstand::Feld) +
                   QFontMetrics(Stil::schrift(Schrift::Halbfett)).horizontalAdvance(stelle.data().toString());
        };
        if (stelle.data(Zeilentat).toInt() != int(Symbol::Keines) && beide() > flaeche.width())
            return 0;
        maler.setPen(warnung ? Farben::farbe(Farben::Bedeutung::Fehler, palette) : Farben::nebenfarbe(palette, grund));
        const QString gezeigt = maler.fontMetrics().elidedText(wort, Qt::ElideRight, flaeche.width() / 2);
        maler.drawText(flaeche, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, gezeigt);
        return maler.fontMetrics().horizontalAdvance(gezeigt) + abstand(Abstand::Feld);
    }

    static void zeilenMalen(QPainter &maler, const QRect &flaeche, const QModelIndex &stelle, const QPalette &palette,
                            const QColor &grund, bool gewaehlt, int wort)
    {
        const QVariant zweite = stelle.data(ZweiteZeile);
        const auto schreiben = [&](const QString &text, bool haupt, Qt::Alignment wo) {
            maler.setFont(Stil::schrift(haupt ? (gewaehlt ? Schrift::Halbfett : Schrift::Grund) : Schrift::Neben));
            maler.setPen(haupt ? palette.color(QPalette::WindowText) : Farben::nebenfarbe(palette, grund));
            maler.drawText(flaeche, int(wo | Qt::AlignLeft | Qt::TextSingleLine),
                           maler.fontMetrics().elidedText(text, Qt::ElideMiddle, flaeche.width() - wort));
        };
        const bool unten = stelle.data(Hauptzeile).toInt() == 1;
        schreiben(stelle.data().toString(), !unten, zweite.isValid() ? Qt::AlignTop : Qt::AlignVCenter);
        if (zweite.typeId() == QMetaType::QStringList) {
            maler.setPen(Farben::nebenfarbe(palette, grund));
            nebeneinander(maler, flaeche, zweite.toStringList());
        } else if (zweite.isValid()) {
            schreiben(zweite.toString(), unten, Qt::AlignBottom);
        }
    }

    /** The lines below the first two; returns the height that is left for those. */
    static int nebenzeilenMalen(QPainter &maler, QRect flaeche, const QStringList &texte, bool untereinander)
    {
        const int hoehe = QFontMetrics(Stil::schrift(Schrift::Neben)).height();
        const int oben = QFontMetrics(Stil::schrift(Schrift::Halbfett)).height() + hoehe;
        flaeche.setTop(flaeche.top() + oben);
        for (const QStringList &zeile : untereinander ? einzeln(texte) : QList<QStringList>{texte}) {
            flaeche.setHeight(hoehe);
            nebeneinander(maler, flaeche, zeile);
            flaeche.translate(0, hoehe);
        }
        return oben;
    }

    static QList<QStringList> einzeln(const QStringList &texte)
    {
        QList<QStringList> zeilen;
        for (const QString &text : texte)
            zeilen << QStringList{text};
        return zeilen;
    }

    /** Each has an equal share where there is too little room; what is shorter leaves the rest to the next. */
    static void nebeneinander(QPainter &maler, QRect flaeche, const QStringList &texte)
    {
        maler.setFont(Stil::schrift(Schrift::Neben));
        const int luecke = abstand(Abstand::Gruppe);
        for (qsizetype n = 0; n < texte.size(); ++n) {
            const int uebrig = int(texte.size() - n);
            const int anteil = (flaeche.width() - (uebrig - 1) * luecke) / uebrig;
            const QString text = maler.fontMetrics().elidedText(texte.at(n), Qt::ElideMiddle, anteil);
            maler.drawText(flaeche, Qt::AlignBottom | Qt::AlignLeft | Qt::TextSingleLine, text);
            flaeche.setLeft(flaeche.left() + maler.fontMetrics().horizontalAdvance(text) + luecke);
        }
    }
};
} // namespace

void Listenmodell::setzen(const QList<Listenzeile> &zeilen)
{
    if (zeilen == m_zeilen)
        return;
    const bool dieselben = std::equal(zeilen.begin(), zeilen.end(), m_zeilen.begin(), m_zeilen.end(),
                                      [](const auto &neue, const auto &alte) { return neue.kennung == alte.kennung; });
    if (!dieselben)
        beginResetModel();
    m_zeilen = zeilen;
    m_mitMarken = std::any_of(zeilen.begin(), zeilen.end(),
                              [](const Listenzeile &zeile) { return zeile.marke != Symbol::Keines; });
    if (!dieselben)
        return endResetModel();
    Q_EMIT dataChanged(index(0), index(int(zeilen.size()) - 1));
}

int Listenmodell::rowCount(const QModelIndex &eltern) const { return eltern.isValid() ? 0 : int(m_zeilen.size()); }

QVariant Listenmodell::data(const QModelIndex &index, int rolle) const
{
    const Listenzeile &z = m_zeilen.at(index.row());
    switch (rolle) {
    case Qt::DisplayRole:
        return z.erste;
    case ZweiteZeile:
        return z.zweite.isNull() ? QVariant() : z.zweite;
    case Marke:
        return m_mitMarken ? QVariant(int(z.marke)) : QVariant();
    case Wort:
        return z.wort;
    case Kennung:
        return z.kennung;
    case Qt::ToolTipRole:
        return QVariant(u"<qt>"_s + QString(z.erste + u'\n' + z.zweite).toHtmlEscaped().replace(u'\n', u"<br>"_s) +
                        u"</qt>"_s);
    case Qt::AccessibleTextRole:
        return z.ansage.isEmpty() ? vorgelesen({z.erste, z.zweite, z.wort}) : z.ansage;
    default:
        return {};
    }
}

Liste::Liste(const QString &name, const QString &ansage, QWidget *eltern) : QListView(eltern)
{
    setObjectName(name);
    setAccessibleName(ansage);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setTabKeyNavigation(false);
    viewport()->setAutoFillBackground(false);
    setItemDelegate(new Zeilenmaler(this));
}

void Liste::setModel(QAbstractItemModel *modell)
{
    QListView::setModel(modell);
    connect(modell, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        m_vorher = {kennung(), currentIndex().row()};
    });
    connect(modell, &QAbstractItemModel::modelReset, this, &Liste::wiederfinden);
    connect(modell, &QAbstractItemModel::rowsInserted, this, [this] { updateGeometry(); });
}

/** The row that is gone gives its place to the next, so that one can go on. */
void Liste::wiederfinden()
{
    updateGeometry();
    const auto [kennung, zeile] = m_vorher;
    if (!kennung.isValid() || model()->rowCount() == 0)
        return;
    const QModelIndexList treffer = model()->match(model()->index(0, 0), Kennung, kennung, 1, Qt::MatchExactly);
    setCurrentIndex(treffer.isEmpty() ? model()->index(std::min(zeile, model()->rowCount() - 1), 0) : treffer.first());
}

void Liste::setzeHoechstens(int zeilen)
{
    m_hoechstens = zeilen;
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    updateGeometry();
}

QSize Liste::sizeHint() const
{
    if (m_hoechstens == 0 || !model())
        return {mass(200), mass(200)};
    const bool hohe = hatDritte(model()->index(0, 0)) && untereinander(this);
    const int zeilen = std::min(hohe ? (m_hoechstens + 1) / 2 : m_hoechstens, model()->rowCount());
    return {mass(200), zeilen * std::max(0, sizeHintForRow(0))};
}

QSize Liste::minimumSizeHint() const { return {mass(60), m_hoechstens > 0 ? sizeHint().height() : mass(60)}; }

std::pair<int, int> Liste::sichtbare() const
{
    const QModelIndex erste = indexAt({1, 1});
    if (!erste.isValid())
        return {-1, -2};
    const int hoehe = std::max(1, sizeHintForRow(0));
    return {erste.row(), std::min(model()->rowCount() - 1, erste.row() + viewport()->height() / hoehe + 1)};
}

void Liste::paintEvent(QPaintEvent *ereignis)
{
    QListView::paintEvent(ereignis);
    if (const auto [erste, letzte] = sichtbare(); erste >= 0)
        Q_EMIT gesehen(erste, letzte);
}

void Liste::focusInEvent(QFocusEvent *ereignis)
{
    QListView::focusInEvent(ereignis);
    const bool vor = ereignis->reason() == Qt::TabFocusReason;
    if (model()->rowCount() == 0 && (vor || ereignis->reason() == Qt::BacktabFocusReason))
        return void(focusNextPrevChild(vor)); // nothing here to be seen that has it
    if (!selectionModel()->hasSelection())    // the base makes a row the current one without choosing it
        setCurrentIndex(currentIndex().isValid() ? currentIndex() : indexAt({1, 1}));
    if (ereignis->reason() != Qt::MouseFocusReason)
        zeileZeigen();
}

void Liste::currentChanged(const QModelIndex &jetzt, const QModelIndex &vorher)
{
    QListView::currentChanged(jetzt, vorher);
    zeileZeigen();
}

/** What the list stands on follows the row: it may be lower than the list. */
void Liste::zeileZeigen()
{
    const QRect zeile = visualRect(currentIndex());
    for (QWidget *teil = parentWidget(); teil && hasFocus() && zeile.isValid(); teil = teil->parentWidget())
        if (auto *rollen = qobject_cast<QScrollArea *>(teil))
            rollen->ensureVisible(0, viewport()->mapTo(rollen->widget(), zeile.center()).y(), 0, zeile.height());
}

/** The height of the rows is asked for once only. */
void Liste::changeEvent(QEvent *ereignis)
{
    QListView::changeEvent(ereignis);
    if (ereignis->type() == QEvent::FontChange || ereignis->type() == QEvent::StyleChange) {
        scheduleDelayedItemsLayout();
        updateGeometry();
    }
}

/** Its rows are higher where there is little room. */
void Liste::resizeEvent(QResizeEvent *ereignis)
{
    QListView::resizeEvent(ereignis);
    if (untereinander(this, ereignis->oldSize().width()) == untereinander(this))
        return;
    scheduleDelayedItemsLayout();
    updateGeometry();
}

void Liste::keyPressEvent(QKeyEvent *ereignis)
{
    if (ereignis->key() == Qt::Key_Space && currentIndex().flags() & Qt::ItemIsUserCheckable)
        ankreuzen(model(), currentIndex());
    else if (ereignis->key() == Qt::Key_Space && currentIndex().isValid())
        Q_EMIT activated(currentIndex());
    else
        QListView::keyPressEvent(ereignis);
}

/** The row whose symbol is at @p stelle. */
QModelIndex Liste::tatzeile(const QPoint &stelle) const
{
    const QModelIndex zeile = indexAt(stelle);
    const bool getroffen = zeile.data(Zeilentat).toInt() != 0 && tatflaeche(visualRect(zeile)).contains(stelle);
    return getroffen ? zeile : QModelIndex();
}

/** The symbol at the end of a row says itself what it does, and a click on it chooses no row. */
bool Liste::viewportEvent(QEvent *ereignis)
{
    if (ereignis->type() == QEvent::ToolTip) {
        const auto *frage = static_cast<QHelpEvent *>(ereignis);
        if (const QModelIndex zeile = tatzeile(frage->pos()); zeile.isValid()) {
            QToolTip::showText(frage->globalPos(), zeile.data(Tathilfe).toString(), this);
            return true;
        }
    }
    const auto *maus = dynamic_cast<QMouseEvent *>(ereignis);
    if (!maus || maus->button() != Qt::LeftButton)
        return QListView::viewportEvent(ereignis);
    const QModelIndex zeile = tatzeile(maus->position().toPoint());
    const bool ende = ereignis->type() == QEvent::MouseButtonRelease;
    const QModelIndex gedrueckt = std::exchange(m_gedrueckt, ende ? QModelIndex() : zeile);
    if (!(ende ? gedrueckt : zeile).isValid())
        return QListView::viewportEvent(ereignis);
    if (ende && gedrueckt == zeile)
        Q_EMIT tatGewuenscht(zeile);
    return true;
}
} // namespace quillmar::bedienteile
