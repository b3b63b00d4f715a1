#pragma once

#include "teile.h"

#include <QMenu>
#include <QPointer>

namespace quillmar::ui
{
class Handbuchfenster;

/** The menu at the right end of the top bar. */
class Fenstermenue : public QMenu
{
    Q_OBJECT

public:
    Fenstermenue(Fenstersprache *sprache, QWidget *eltern);

Q_SIGNALS:
    void infoGewuenscht();

private:
    void handbuchBauen(QWidget *fenster);
    void schriftBauen();
    void sprachenBauen(Fenstersprache *sprache);

    QPointer<Handbuchfenster> m_handbuch;
};
} // namespace quillmar::ui
