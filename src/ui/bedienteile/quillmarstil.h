#pragma once

#include "namensraeume.h"
#include "stil.h"

#include <QProxyStyle>

class QAbstractButton;
class QStyleOptionComboBox;
class QStyleOptionToolButton;

namespace quillmar::bedienteile
{
/** What a button looks like; Feld is as tall as a field, Hoch as the filled one, of which a card has at most one. */
enum class Knopfart { Feld, Klein, Hoch, Haupt, Reiter, Haelfte };
void setzeKnopfart(QAbstractButton *knopf, Knopfart art);

/** The number behind the title of a tab; none for 0. */
void setzeReiterzahl(QAbstractButton *knopf, qint64 zahl);
/** A tab with less room beside its words. */
void setzeEng(QAbstractButton *knopf, bool eng);

/** Distances of the layout of @p traeger from its edges; without it there are none. */
struct Raender {
    Abstand links, oben, rechts, unten;
};
void setzeRaender(QWidget *traeger, const Raender &raender);
void setzeRaender(QWidget *traeger, Abstand waagrecht, Abstand senkrecht);
/** Distances within a grid that is the layout of @p traeger, other than from label to field and from row to row. */
void setzeLuecken(QWidget *traeger, Abstand waagrecht, Abstand senkrecht);

/**
 * The desktop's style with the sizes of this window: buttons, fields, boxes to tick, bars and icons that grow with the
 * font, and the distances of its layouts. The filled button, tabs, the two halves of a switch and bars are drawn here.
 */
class Quillmarstil : public QProxyStyle
{
    Q_OBJECT

public:
    /** Takes its place around the application's style; once is enough. */
    static void anwenden();

    void polish(QWidget *teil) override;
    using QProxyStyle::polish;
    [[nodiscard]] int pixelMetric(PixelMetric mass, const QStyleOption *option, const QWidget *teil) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType art, const QStyleOption *option, const QSize &inhalt,
                                         const QWidget *teil) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption *option,
                                       const QWidget *teil) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *maler,
                       const QWidget *teil) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *maler,
                     const QWidget *teil) const override;
    void drawComplexControl(ComplexControl element, const QStyleOptionComplex *option, QPainter *maler,
                            const QWidget *teil) const override;

private:
    explicit Quillmarstil(const QString &grundlage);
    void wahltextMalen(const QStyleOptionComboBox &option, QPainter *maler, const QWidget *teil) const;
    void flachMalen(const QStyleOptionToolButton &option, QPainter *maler, const QWidget *teil) const;
    [[nodiscard]] int layoutmass(PixelMetric mass, const QWidget *teil) const;

    bool m_fusion;
};

/**
 * What the user reads of the program is plain text, wherever it comes from: a label does not take a text for markup,
 * and neither does a tool tip, which wraps instead. A help text is the accessible description of its widget too, and
 * goes on being it when it changes, unless the widget has another one. For the whole application; once is enough.
 */
void hilfetexteAnwenden();
} // namespace quillmar::bedienteile
