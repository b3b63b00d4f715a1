#include "knopfmaler.h"
#include "farben.h"

#include <QAbstractButton>
#include <QIcon>
#include <QLocale>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::mass;

namespace
{
constexpr auto knopfart = "knopfart";
constexpr auto reiterzahl = "reiterzahl";
constexpr double zeichenluecke = 6; // between icon and text
constexpr int aufgehellt = 108;     // percent, under the mouse
constexpr int abgedunkelt = 115;

int breite(const QString &text, Schrift art) { return QFontMetrics(Stil::schrift(art)).horizontalAdvance(text); }

QIcon::Mode zeichenart(const QStyleOption &option)
{
    return option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
}

QColor schriftfarbe(const QStyleOption &option, QPalette::ColorRole rolle)
{
    return option.palette.color(option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled, rolle);
}

/** Icon from @p x on, and text behind it. */
void zeichenUndText(QPainter &maler, const QStyleOption &option, const QIcon &icon, const QString &text, int x)
{
    const int kante = Stil::zeichengroesse();
    if (!icon.isNull()) {
        icon.paint(&maler, QRect(x, option.rect.center().y() - (kante - 1) / 2, kante, kante), Qt::AlignCenter,
                   zeichenart(option), option.state & QStyle::State_On ? QIcon::On : QIcon::Off);
        x += kante + mass(zeichenluecke);
    }
    maler.drawText(option.rect.adjusted(x - option.rect.x(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
}

int reiterrand(const QWidget *knopf) { return mass(knopf->property("eng").toBool() ? 4 : 10); }

qint64 zahlVon(const QWidget *knopf) { return knopf->property(reiterzahl).toLongLong(); }

int zahlbreite(qint64 zahl) { return zahl == 0 ? 0 : breite(QLocale().toString(zahl), Schrift::Halbfett) + mass(18); }

/** @p rechts the edge where it ends. */
void reiterzahlMalen(QPainter &maler, const QStyleOption &option, int rechts, qint64 zahl)
{
    const int hoehe = mass(18);
    const QRect flaeche(rechts - zahlbreite(zahl), (option.rect.height() - hoehe) / 2, zahlbreite(zahl), hoehe);
    const bool gewaehlt = option.state & QStyle::State_On;
    abgerundet(maler, flaeche, gewaehlt ? Farben::akzent(option.palette) : Farben::rille(option.palette),
               flaeche.height() / 2.0);
    QFont schrift = Stil::schrift(Schrift::Neben);
    schrift.setWeight(QFont::DemiBold);
    maler.setFont(schrift);
    maler.setPen(gewaehlt ? Farben::aufAkzent(option.palette) : option.palette.color(QPalette::WindowText));
    maler.drawText(flaeche, Qt::AlignCenter, QLocale().toString(zahl));
}

QColor hauptgrund(const QStyleOption &option)
{
    const QColor akzent = Farben::akzent(option.palette);
    if (!(option.state & QStyle::State_Enabled))
        return Farben::rille(option.palette);
    if (option.state & QStyle::State_Sunken)
        return akzent.darker(abgedunkelt);
    if (!(option.state & QStyle::State_MouseOver))
        return akzent;
    const bool helleSchrift = Farben::aufAkzent(option.palette).lightness() > 127;
    return helleSchrift ? akzent.darker(aufgehellt) : akzent.lighter(aufgehellt);
}
} // namespace

void abgerundet(QPainter &maler, const QRectF &flaeche, const QColor &grund, double radius)
{
    maler.setPen(Qt::NoPen);
    maler.setBrush(grund);
    maler.drawRoundedRect(flaeche, radius, radius);
}

void fokusrahmen(QPainter &maler, const QPalette &palette, const QRectF &rahmen)
{
    maler.setBrush(Qt::NoBrush);
    maler.setPen(QPen(Farben::akzentmarke(palette), 2));
    maler.drawRoundedRect(rahmen, 3, 3);
}

void setzeKnopfart(QAbstractButton *knopf, Knopfart art) { knopf->setProperty(knopfart, int(art)); }

Knopfart Knopfmaler::artVon(const QWidget *knopf)
{
    return knopf ? Knopfart(knopf->property(knopfart).toInt()) : Knopfart::Feld;
}

QSize Knopfmaler::groesse(const QStyleOptionButton &option, const QWidget *knopf)
{
    const Knopfart art = artVon(knopf);
    const int zeichen = option.icon.isNull() ? 0 : Stil::zeichengroesse() + mass(zeichenluecke);
    const int wort = art == Knopfart::Haupt ? breite(option.text, Schrift::Halbfett)
                                            : option.fontMetrics.horizontalAdvance(option.text);
    switch (art) {
    case Knopfart::Haupt:
        return {wort + 2 * mass(20), mass(36)};
    case Knopfart::Hoch:
        return {wort + zeichen + 2 * abstand(Abstand::Feld), mass(36)};
    case Knopfart::Klein:
        return {wort + zeichen + mass(20), mass(26)};
    default:
        return {wort + zeichen + 2 * abstand(Abstand::Feld), mass(30)};
    }
}

QSize Knopfmaler::groesse(const QStyleOptionToolButton &option, const QWidget *knopf)
{
    const Knopfart art = artVon(knopf);
    const int kante = Stil::zeichengroesse();
    const bool mitText = option.toolButtonStyle != Qt::ToolButtonIconOnly;
    const bool mitZeichen = option.toolButtonStyle != Qt::ToolButtonTextOnly && !option.icon.isNull();
    const int zeichen = mitZeichen ? kante : 0;
    const int luecke = mitZeichen && mitText ? mass(zeichenluecke) : 0;
    if (art == Knopfart::Reiter) {
        const qint64 zahl = zahlVon(knopf);
        return {2 * reiterrand(knopf) + zeichen + luecke + breite(option.text, Schrift::Halbfett) +
                    (zahl > 0 ? zahlbreite(zahl) + abstand(Abstand::Nah) : 0),
                mass(46)};
    }
    if (art == Knopfart::Haelfte)
        return {2 * abstand(Abstand::Feld) + zeichen + luecke + (mitText ? breite(option.text, Schrift::Halbfett) : 0),
                mass(28)};
    const int hoehe = art == Knopfart::Hoch ? mass(36) : mass(28);
    if (!mitText)
        return {kante + abstand(Abstand::Nah), hoehe};
    return {zeichen + luecke + option.fontMetrics.horizontalAdvance(option.text) + mass(18), hoehe};
}

void Knopfmaler::beschriften(QPainter &maler, const QStyleOptionButton &option)
{
    const int zeichen = option.icon.isNull() ? 0 : Stil::zeichengroesse() + mass(zeichenluecke);
    const int frei = option.rect.width() - zeichen - option.fontMetrics.horizontalAdvance(option.text);
    maler.setPen(schriftfarbe(option, QPalette::ButtonText));
    zeichenUndText(maler, option, option.icon, option.text,
                   option.rect.x() + std::max(abstand(Abstand::Eng), frei / 2));
}

void Knopfmaler::beschriften(QPainter &maler, const QStyleOptionToolButton &option)
{
    maler.setFont(option.font);
    maler.setPen(schriftfarbe(option, QPalette::ButtonText));
    if (option.toolButtonStyle == Qt::ToolButtonIconOnly)
        zeichenUndText(maler, option, option.icon, {},
                       option.rect.x() + (option.rect.width() - Stil::zeichengroesse()) / 2);
    else
        zeichenUndText(maler, option, option.toolButtonStyle == Qt::ToolButtonTextOnly ? QIcon() : option.icon,
                       option.text, option.rect.x() + mass(9));
}

void Knopfmaler::hauptknopf(QPainter &maler, const QStyleOptionButton &option)
{
    maler.setRenderHint(QPainter::Antialiasing);
    const QColor grund = hauptgrund(option);
    const QColor schrift = option.state & QStyle::State_Enabled ? Farben::aufAkzent(option.palette)
                                                                : Farben::nebenfarbe(option.palette, grund);
    abgerundet(maler, option.rect, grund);
    if (option.state & QStyle::State_HasFocus) {
        maler.setBrush(Qt::NoBrush);
        maler.setPen(QPen(schrift, 2));
        maler.drawRoundedRect(option.rect.adjusted(3, 3, -3, -3), 2, 2);
    }
    maler.setPen(schrift);
    maler.setFont(Stil::schrift(Schrift::Halbfett));
    maler.drawText(option.rect, Qt::AlignCenter, option.text);
}

/** The chosen one is semi-bold with a line in the accent; all are as wide as that, so that choosing one moves none. */
void Knopfmaler::reiter(QPainter &maler, const QStyleOptionToolButton &option, const QWidget *knopf)
{
    maler.setRenderHint(QPainter::Antialiasing);
    const QRect &ganz = option.rect;
    const bool gewaehlt = option.state & QStyle::State_On;
    const int luft = mass(6);
    if ((option.state & QStyle::State_MouseOver) && !gewaehlt)
        maler.fillRect(ganz.adjusted(0, luft, 0, -luft),
                       Farben::toenung(option.palette.color(QPalette::WindowText), option.palette));
    if (const qint64 zahl = zahlVon(knopf); zahl > 0)
        reiterzahlMalen(maler, option, ganz.right() - reiterrand(knopf) + 1, zahl);
    maler.setFont(Stil::schrift(gewaehlt ? Schrift::Halbfett : Schrift::Grund));
    maler.setPen(option.palette.color(QPalette::WindowText));
    zeichenUndText(maler, option, option.toolButtonStyle == Qt::ToolButtonTextOnly ? QIcon() : option.icon, option.text,
                   ganz.x() + reiterrand(knopf));
    if (gewaehlt)
        maler.fillRect(QRect(ganz.x(), ganz.bottom() + 1 - mass(3), ganz.width(), mass(3)),
                       Farben::akzentmarke(option.palette));
    if (option.state & QStyle::State_HasFocus)
        fokusrahmen(maler, option.palette, ganz.adjusted(2, luft, -2, -luft));
}

void Knopfmaler::haelfte(QPainter &maler, const QStyleOptionToolButton &option)
{
    maler.setRenderHint(QPainter::Antialiasing);
    const bool gewaehlt = option.state & QStyle::State_On;
    if (gewaehlt) {
        maler.setPen(Farben::griff(option.palette));
        maler.setBrush(option.palette.color(Farben::istDunkel(option.palette) ? QPalette::Button : QPalette::Base));
        maler.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
    maler.setFont(Stil::schrift(gewaehlt ? Schrift::Halbfett : Schrift::Grund));
    maler.setPen(option.palette.color(QPalette::WindowText));
    zeichenUndText(maler, option, option.icon,
                   option.toolButtonStyle == Qt::ToolButtonIconOnly ? QString() : option.text,
                   option.rect.x() + abstand(Abstand::Feld));
    if (option.state & QStyle::State_HasFocus)
        fokusrahmen(maler, option.palette, option.rect.adjusted(1, 1, -1, -1));
}
} // namespace quillmar::bedienteile
