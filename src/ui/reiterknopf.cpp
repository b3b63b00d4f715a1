#include "reiterknopf.h"

#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QLocale>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
int breite(const QString &text, Schrift art) { return QFontMetrics(Stil::schrift(art)).horizontalAdvance(text); }
} // namespace

Reiterknopf::Reiterknopf(const QString &titel, Symbol symbol, QWidget *eltern)
    : QAbstractButton(eltern), m_symbol(symbol)
{
    setText(titel);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    benennen();
    Stil::folgen(this, [this] { updateGeometry(); });
}

void Reiterknopf::benennen()
{
    setAccessibleName(m_zahl > 0 ? gefuellt(Sprache::text(u"%@, %@ offen"_s), {text(), QString::number(m_zahl)})
                                 : text());
}

void Reiterknopf::setzeZahl(qint64 zahl)
{
    if (zahl == m_zahl)
        return;
    m_zahl = zahl;
    benennen();
    updateGeometry();
    update();
}

void Reiterknopf::setzeMitZeichen(bool mit)
{
    m_mitZeichen = mit;
    updateGeometry();
    update();
}

void Reiterknopf::setzeEng(bool eng)
{
    m_eng = eng;
    updateGeometry();
    update();
}

int Reiterknopf::rand() const { return abstand(m_eng ? 4 : 10); }

int Reiterknopf::zahlbreite() const
{
    return m_zahl == 0 ? 0 : breite(QLocale().toString(m_zahl), Schrift::Halbfett) + abstand(18);
}

QSize Reiterknopf::sizeHint() const
{
    int laenge = 2 * rand() + breite(text(), Schrift::Halbfett);
    if (m_mitZeichen)
        laenge += Stil::zeichengroesse() + abstand(6);
    if (m_zahl > 0)
        laenge += zahlbreite() + abstand(8);
    return {laenge, abstand(46)};
}

void Reiterknopf::zahlMalen(QPainter &maler, const QRect &flaeche) const
{
    maler.setPen(Qt::NoPen);
    maler.setBrush(isChecked() ? Stil::akzent(palette()) : Stil::rille(palette()));
    maler.drawRoundedRect(flaeche, flaeche.height() / 2.0, flaeche.height() / 2.0);
    QFont schrift = Stil::schrift(Schrift::Neben);
    schrift.setWeight(QFont::DemiBold);
    maler.setFont(schrift);
    maler.setPen(isChecked() ? Stil::aufAkzent(palette()) : palette().color(QPalette::WindowText));
    maler.drawText(flaeche, Qt::AlignCenter, QLocale().toString(m_zahl));
}

void Reiterknopf::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.setRenderHint(QPainter::Antialiasing);
    QRect rest = rect().adjusted(rand(), 0, -rand(), 0);
    if (underMouse() && !isChecked())
        maler.fillRect(rect().adjusted(0, abstand(6), 0, -abstand(6)),
                       Stil::toenung(palette().color(QPalette::WindowText), palette()));
    if (m_mitZeichen) {
        const int kante = Stil::zeichengroesse();
        Zeichen::malen(maler, QRect(rest.left(), (height() - kante) / 2, kante, kante), m_symbol, palette());
        rest.setLeft(rest.left() + kante + abstand(6));
    }
    if (m_zahl > 0) {
        const int hoehe = abstand(18);
        zahlMalen(maler, QRect(rest.right() - zahlbreite() + 1, (height() - hoehe) / 2, zahlbreite(), hoehe));
    }
    maler.setFont(Stil::schrift(isChecked() ? Schrift::Halbfett : Schrift::Grund));
    maler.setPen(palette().color(QPalette::WindowText));
    maler.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, text());
    if (isChecked())
        maler.fillRect(QRect(0, height() - abstand(3), width(), abstand(3)), Stil::akzentmarke(palette()));
    if (hasFocus()) {
        maler.setBrush(Qt::NoBrush);
        maler.setPen(QPen(Stil::akzentmarke(palette()), 2));
        maler.drawRoundedRect(rect().adjusted(2, abstand(6), -2, -abstand(6)), 3, 3);
    }
}
} // namespace quillmar::ui
