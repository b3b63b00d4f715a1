#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quillmar::vorschau
{
/**
 * While it is on, a click on one of its surfaces gives the focus back to the field that had it: the one that a word is
 * taken for goes on being typed in. The Tab key still reaches what it reached; proxies would change its way for good.
 */
class Fokushalter : public QObject
{
    Q_OBJECT

public:
    /** @p ansicht is the scrolled one that its viewport hands the focus on to otherwise. */
    Fokushalter(QWidget *ansicht, QWidget *sichtfeld, QList<QWidget *> flaechen);

    void setzeAn(bool an);

protected:
    bool eventFilter(QObject *flaeche, QEvent *ereignis) override;

private:
    void merken(QWidget *jetzt);

    QWidget *m_ansicht;
    QPointer<QWidget> m_feld; ///< had the focus last, apart from what is shown here and what is around it
    Qt::FocusPolicy m_gewohnt;
    bool m_an = false;
};
} // namespace quillmar::vorschau
