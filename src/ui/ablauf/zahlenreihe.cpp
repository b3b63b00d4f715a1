#include "zahlenreihe.h"

#include "stil.h"
#include "vorlesbares.h"
#include "zeichen.h"

#include <QLocale>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
using Stil::abstand;
using Stil::Schrift;

Zahlenreihe::Zahlenreihe(QWidget *eltern) : QWidget(eltern)
{
    setObjectName(u"zahlen"_s);
    QSizePolicy regel(QSizePolicy::Preferred, QSizePolicy::Preferred);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
    Stil::folgen(this, [this] { updateGeometry(); });
}

void Zahlenreihe::zeigen(const QList<Zahl> &zahlen)
{
    m_zahlen = zahlen;
    while (m_teile.size() < zahlen.size())
        m_teile << vorlesbares(u"zahl-"_s + QString::number(m_teile.size() + 1), this);
    for (qsizetype n = 0; n < m_teile.size(); ++n) {
        m_teile.at(n)->setVisible(n < zahlen.size());
        if (n < zahlen.size())
            m_teile.at(n)->setAccessibleName(QLocale().toString(zahlen.at(n).wert) + u' ' + zahlen.at(n).was);
    }
    teileLegen();
    updateGeometry();
    update();
}

/** Each over what is painted of its figure. */
void Zahlenreihe::teileLegen()
{
    const QList<QPoint> stellen = orte(width());
    for (qsizetype n = 0; n < m_zahlen.size(); ++n)
        m_teile.at(n)->setGeometry(QRect(stellen.at(n), QSize(breiteVon(m_zahlen.at(n)), zeilenhoehe())));
}

void Zahlenreihe::resizeEvent(QResizeEvent *) { teileLegen(); }

int Zahlenreihe::breiteVon(const Zahl &zahl)
{
    const QFontMetrics gross(Stil::schrift(Schrift::Zahl));
    const int marke = zahl.warnung ? abstand(6) + Stil::zeichengroesse() : 0;
    return std::max(QFontMetrics(Stil::schrift(Schrift::Neben)).horizontalAdvance(zahl.was),
                    gross.horizontalAdvance(QLocale().toString(zahl.wert)) + marke);
}

/** Of one row of figures with what they count. */
int Zahlenreihe::zeilenhoehe()
{
    return QFontMetrics(Stil::schrift(Schrift::Zahl)).lineSpacing() +
           QFontMetrics(Stil::schrift(Schrift::Neben)).lineSpacing();
}

/** Where each figure begins; what has no room beside the others goes on in another row. */
QList<QPoint> Zahlenreihe::orte(int breite) const
{
    QList<int> breiten;
    int summe = 0;
    for (const Zahl &zahl : m_zahlen) {
        breiten << breiteVon(zahl);
        summe += breiten.last();
    }
    const int frei = (breite - summe) / std::max<int>(1, int(breiten.size()));
    const int luecke = std::clamp(frei, abstand(10), abstand(33));
    QList<QPoint> orte;
    QPoint ort;
    for (const int eine : breiten) {
        if (ort.x() > 0 && ort.x() + eine > breite)
            ort = {0, ort.y() + zeilenhoehe() + abstand(8)};
        orte << ort;
        ort.rx() += eine + luecke;
    }
    return orte;
}

QSize Zahlenreihe::sizeHint() const { return {abstand(600), zeilenhoehe()}; }

int Zahlenreihe::heightForWidth(int breite) const
{
    return m_zahlen.isEmpty() ? zeilenhoehe() : orte(breite).last().y() + zeilenhoehe();
}

void Zahlenreihe::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const QList<QPoint> stellen = orte(width());
    for (int n = 0; n < m_zahlen.size(); ++n)
        malen(maler, m_zahlen.at(n), stellen.at(n));
}

void Zahlenreihe::malen(QPainter &maler, const Zahl &zahl, QPoint ort) const
{
    const QFontMetrics gross(Stil::schrift(Schrift::Zahl));
    const QString ziffern = QLocale().toString(zahl.wert);
    maler.setFont(Stil::schrift(Schrift::Zahl));
    maler.setPen(zahl.betont ? Stil::akzentmarke(palette()) : palette().color(QPalette::WindowText));
    maler.drawText(ort + QPoint(0, gross.ascent()), ziffern);
    if (zahl.warnung) {
        const int kante = Stil::zeichengroesse();
        const QPoint marke(gross.horizontalAdvance(ziffern) + abstand(6), (gross.height() - kante) / 2);
        Zeichen::malen(maler, QRect(ort + marke, QSize(kante, kante)), Symbol::Warnung, palette());
    }
    maler.setFont(Stil::schrift(Schrift::Neben));
    maler.setPen(Stil::nebenfarbe(palette()));
    maler.drawText(ort + QPoint(0, gross.lineSpacing() + maler.fontMetrics().ascent()), zahl.was);
}
} // namespace quillmar::ablauf
