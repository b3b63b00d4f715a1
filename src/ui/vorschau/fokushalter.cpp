#include "fokushalter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>

namespace quillmar::vorschau
{
Fokushalter::Fokushalter(QWidget *ansicht, QWidget *sichtfeld, QList<QWidget *> flaechen)
    : m_ansicht(ansicht), m_gewohnt(ansicht->focusPolicy())
{
    flaechen << sichtfeld;
    for (QWidget *flaeche : std::as_const(flaechen)) {
        flaeche->installEventFilter(this);
        for (QAbstractButton *knopf : flaeche->findChildren<QAbstractButton *>())
            knopf->installEventFilter(this);
    }
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *jetzt) { merken(jetzt); });
}

/** A click that nothing here takes the focus for goes to what is around. */
void Fokushalter::merken(QWidget *jetzt)
{
    if (jetzt && !jetzt->isAncestorOf(m_ansicht) && !m_ansicht->parentWidget()->isAncestorOf(jetzt))
        m_feld = jetzt;
}

void Fokushalter::setzeAn(bool an)
{
    if (an == m_an)
        return;
    m_an = an;
    m_ansicht->setFocusPolicy(an ? Qt::TabFocus : m_gewohnt);
    if (an)
        merken(QApplication::focusWidget());
}

bool Fokushalter::eventFilter(QObject *flaeche, QEvent *ereignis)
{
    const bool gedrueckt =
        ereignis->type() == QEvent::MouseButtonPress || ereignis->type() == QEvent::MouseButtonDblClick;
    if (m_an && m_feld && gedrueckt && QApplication::focusWidget() != m_feld)
        m_feld->setFocus(Qt::OtherFocusReason);
    return QObject::eventFilter(flaeche, ereignis);
}
} // namespace quillmar::vorschau
