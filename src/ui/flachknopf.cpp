#include "flachknopf.h"

#include "hauptknopf.h"
#include "stil.h"
#include "zeichen.h"

Flachknopf::Flachknopf(const QString &name, const QString &symbol, const QString &titel, const QString &hilfe,
                       QWidget *eltern)
    : QToolButton(eltern)
{
    setObjectName(name);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setIcon(Zeichen::icon(symbol));
    setzeHilfe(titel, hilfe);
    setzeMitText(false);
    Stil::folgen(this, [this] {
        setIconSize({Stil::zeichengroesse(), Stil::zeichengroesse()});
        if (m_hoch)
            setFixedHeight(knopfhoehe());
    });
}

void Flachknopf::setzeHilfe(const QString &titel, const QString &hilfe)
{
    setText(titel);
    setAccessibleName(titel);
    setAccessibleDescription(hilfe);
    setToolTip(hilfe);
}

void Flachknopf::setzeMitText(bool mit)
{
    setToolButtonStyle(mit ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

void Flachknopf::setzeHoch()
{
    m_hoch = true;
    setFixedHeight(knopfhoehe());
}
