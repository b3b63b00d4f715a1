#include "quillmarstil.h"

#include "farben.h"
#include "knopfmaler.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::mass;

namespace
{
constexpr auto raenderEigenschaft = "raender";
constexpr auto lueckenEigenschaft = "luecken";
constexpr double feldhoehe = 30;
constexpr double balkendicke = 6;

int gespeichert(const QWidget *teil, const char *eigenschaft, int stelle)
{
    return teil->property(eigenschaft).value<QList<int>>().value(stelle, -1);
}

/** A button remembers its size; it is forgotten with its style. */
void merken(QAbstractButton *knopf, const char *eigenschaft, const QVariant &wert)
{
    if (knopf->property(eigenschaft) == wert)
        return;
    knopf->setProperty(eigenschaft, wert);
    QEvent neu(QEvent::StyleChange);
    QCoreApplication::sendEvent(knopf, &neu);
}

/** The toolkit's own dialogs keep their distances. */
bool istFremd(const QWidget *teil)
{
    return !teil || teil->window()->inherits("QFileDialog") || teil->window()->inherits("QMessageBox");
}

/** Boxes whose edge is to be seen on a dark ground. */
void kaestchenrand(QPainter &maler, const QStyleOption &option, bool rund)
{
    maler.save();
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setPen(QPen(Farben::griff(option.palette), 1));
    maler.setBrush(Qt::NoBrush);
    const QRectF rand = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    rund ? maler.drawEllipse(rand) : maler.drawRoundedRect(rand, 2, 2);
    maler.restore();
}

void balkenMalen(QPainter &maler, const QStyleOptionProgressBar &option)
{
    QRectF flaeche(option.rect);
    flaeche.setTop(flaeche.top() + (flaeche.height() - mass(balkendicke)) / 2);
    flaeche.setHeight(mass(balkendicke));
    const double rund = flaeche.height() / 2;
    maler.setRenderHint(QPainter::Antialiasing);
    abgerundet(maler, flaeche, Farben::rille(option.palette), rund);
    const double anteil = double(option.progress - option.minimum) / std::max(1, option.maximum - option.minimum);
    if (anteil <= 0)
        return;
    flaeche.setWidth(std::max(flaeche.width() * std::min(1.0, anteil), flaeche.height()));
    abgerundet(maler, flaeche, Farben::akzentmarke(option.palette), rund);
}
} // namespace

void setzeReiterzahl(QAbstractButton *knopf, qint64 zahl) { merken(knopf, "reiterzahl", zahl); }
void setzeEng(QAbstractButton *knopf, bool eng) { merken(knopf, "eng", eng); }

void setzeRaender(QWidget *traeger, const Raender &raender)
{
    traeger->setProperty(raenderEigenschaft, QVariant::fromValue(QList<int>{int(raender.links), int(raender.oben),
                                                                            int(raender.rechts), int(raender.unten)}));
}

void setzeRaender(QWidget *traeger, Abstand waagrecht, Abstand senkrecht)
{
    setzeRaender(traeger, {waagrecht, senkrecht, waagrecht, senkrecht});
}

void setzeLuecken(QWidget *traeger, Abstand waagrecht, Abstand senkrecht)
{
    traeger->setProperty(lueckenEigenschaft, QVariant::fromValue(QList<int>{int(waagrecht), int(senkrecht)}));
}

Quillmarstil::Quillmarstil(const QString &grundlage) : QProxyStyle(grundlage), m_fusion(grundlage == "fusion"_L1) {}

void Quillmarstil::anwenden()
{
    if (!qobject_cast<Quillmarstil *>(QApplication::style()))
        QApplication::setStyle(new Quillmarstil(QApplication::style()->name()));
}

void Quillmarstil::polish(QWidget *teil)
{
    QProxyStyle::polish(teil);
    if (qobject_cast<QLineEdit *>(teil))
        Stil::ankleiden(teil, Schrift::Grund);
    if (qobject_cast<QAbstractButton *>(teil))
        teil->setAttribute(Qt::WA_Hover);
}

int Quillmarstil::layoutmass(PixelMetric mass, const QWidget *teil) const
{
    switch (mass) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin: {
        const int wert = gespeichert(teil, raenderEigenschaft, mass - PM_LayoutLeftMargin);
        return wert < 0 ? 0 : abstand(Abstand(wert));
    }
    default: {
        const bool waagrecht = mass == PM_LayoutHorizontalSpacing;
        const int wert = gespeichert(teil, lueckenEigenschaft, waagrecht ? 0 : 1);
        return abstand(wert < 0 ? (waagrecht ? Abstand::Feld : Abstand::Nah) : Abstand(wert));
    }
    }
}

int Quillmarstil::pixelMetric(PixelMetric mass, const QStyleOption *option, const QWidget *teil) const
{
    if (mass >= PM_LayoutLeftMargin && mass <= PM_LayoutVerticalSpacing && !istFremd(teil))
        return layoutmass(mass, teil);
    switch (mass) {
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
        return Stil::zeichengroesse();
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return m_fusion ? Stil::mass(14) : QProxyStyle::pixelMetric(mass, option, teil);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return Stil::mass(6);
    case PM_ProgressBarChunkWidth:
        return 1; // smaller steps are not painted
    default:
        return QProxyStyle::pixelMetric(mass, option, teil);
    }
}

QSize Quillmarstil::sizeFromContents(ContentsType art, const QStyleOption *option, const QSize &inhalt,
                                     const QWidget *teil) const
{
    const QSize uebliche = QProxyStyle::sizeFromContents(art, option, inhalt, teil);
    if (istFremd(teil))
        return uebliche;
    switch (art) {
    case CT_PushButton:
        if (const auto *knopf = qstyleoption_cast<const QStyleOptionButton *>(option))
            return Knopfmaler::groesse(*knopf, teil);
        return uebliche;
    case CT_ToolButton:
        if (const auto *knopf = qstyleoption_cast<const QStyleOptionToolButton *>(option))
            return Knopfmaler::groesse(*knopf, teil);
        return uebliche;
    case CT_LineEdit:
    case CT_ComboBox:
    case CT_SpinBox:
        return {uebliche.width(), mass(feldhoehe)};
    case CT_RadioButton:
        return uebliche.expandedTo({0, mass(feldhoehe)});
    case CT_ProgressBar:
        return {mass(std::max(40.0, teil->property("laenge").toDouble())), mass(balkendicke)};
    default:
        return uebliche;
    }
}

QRect Quillmarstil::subElementRect(SubElement element, const QStyleOption *option, const QWidget *teil) const
{
    const QRect flaeche = QProxyStyle::subElementRect(element, option, teil);
    // Where a choice has its text.
    return element == SE_LineEditContents ? flaeche.adjusted(mass(2), 0, 0, 0) : flaeche;
}

void Quillmarstil::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *maler,
                                 const QWidget *teil) const
{
    QProxyStyle::drawPrimitive(element, option, maler, teil);
    if (element == PE_Frame && option->state & State_HasFocus && qobject_cast<const QPlainTextEdit *>(teil))
        fokusrahmen(*maler, option->palette, option->rect.adjusted(1, 1, -1, -1));
    const bool rund = element == PE_IndicatorRadioButton;
    if (m_fusion && (rund || element == PE_IndicatorCheckBox) && Farben::istDunkel(option->palette))
        kaestchenrand(*maler, *option, rund);
}

void Quillmarstil::drawControl(ControlElement element, const QStyleOption *option, QPainter *maler,
                               const QWidget *teil) const
{
    maler->save();
    if (const auto *knopf = qstyleoption_cast<const QStyleOptionButton *>(option);
        knopf && element == CE_PushButton && Knopfmaler::artVon(teil) == Knopfart::Haupt)
        Knopfmaler::hauptknopf(*maler, *knopf);
    else if (knopf && element == CE_PushButtonLabel && !istFremd(teil))
        Knopfmaler::beschriften(*maler, *knopf);
    else if (const auto *flach = qstyleoption_cast<const QStyleOptionToolButton *>(option);
             flach && element == CE_ToolButtonLabel && !istFremd(teil))
        Knopfmaler::beschriften(*maler, *flach);
    else if (const auto *balken = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
             balken && element == CE_ProgressBar)
        balkenMalen(*maler, *balken);
    else if (const auto *wahl = qstyleoption_cast<const QStyleOptionComboBox *>(option);
             wahl && element == CE_ComboBoxLabel)
        wahltextMalen(*wahl, maler, teil);
    else
        QProxyStyle::drawControl(element, option, maler, teil);
    maler->restore();
}

/** A text that is too long ends in dots instead of at the arrow. */
void Quillmarstil::wahltextMalen(const QStyleOptionComboBox &option, QPainter *maler, const QWidget *teil) const
{
    QStyleOptionComboBox gekuerzt(option);
    const int symbol = option.currentIcon.isNull() ? 0 : option.iconSize.width() + mass(4);
    const int frei = subControlRect(CC_ComboBox, &option, SC_ComboBoxEditField, teil).width() - symbol - 2;
    gekuerzt.currentText = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, frei);
    QProxyStyle::drawControl(CE_ComboBoxLabel, &gekuerzt, maler, teil);
}

/** Without the arrow that tells of a menu. */
void Quillmarstil::flachMalen(const QStyleOptionToolButton &option, QPainter *maler, const QWidget *teil) const
{
    QStyleOptionToolButton ohneMenue(option);
    ohneMenue.features &= ~QStyleOptionToolButton::HasMenu;
    QProxyStyle::drawComplexControl(CC_ToolButton, &ohneMenue, maler, teil);
}

void Quillmarstil::drawComplexControl(ComplexControl element, const QStyleOptionComplex *option, QPainter *maler,
                                      const QWidget *teil) const
{
    const auto *knopf = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    const Knopfart art = element == CC_ToolButton && knopf ? Knopfmaler::artVon(teil) : Knopfart::Feld;
    maler->save();
    if (art == Knopfart::Reiter)
        Knopfmaler::reiter(*maler, *knopf, teil);
    else if (art == Knopfart::Haelfte)
        Knopfmaler::haelfte(*maler, *knopf);
    else if (element == CC_ToolButton && knopf)
        flachMalen(*knopf, maler, teil);
    else
        QProxyStyle::drawComplexControl(element, option, maler, teil);
    maler->restore();
}
} // namespace quillmar::bedienteile
