#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QWidget>

namespace quillmar::vorschau
{
/**
 * While it is on, a click on one of its surfaces leaves the focus where it is: the field that a word is taken for goes
 * on being typed in. The Tab key still reaches what it reached.
 */
class Fokushalter : public QObject
{
    Q_OBJECT

public:
    /** @p ansicht is the scrolled one that its viewport hands the focus on to otherwise. */
    Fokushalter(QWidget *ansicht, QWidget *sichtfeld, QList<QWidget *> flaechen);

    void setzeAn(bool an);

private:
    void halten();

    QWidget *m_ansicht;
    QWidget *m_sichtfeld;
    QList<QWidget *> m_flaechen;
    Qt::FocusPolicy m_gewohnt;
    bool m_an = false;
};
} // namespace quillmar::vorschau
