#pragma once

#include "reiter.h"
#include "teile.h"

#include <QMap>
#include <QWidget>

namespace quillmar::ui
{
/** The bar above the cards: profile, tabs in the middle of the window, move or copy, menu. */
class Kopfleiste : public QWidget
{
    Q_OBJECT

public:
    Kopfleiste(Zustand *zustand, QToolButton *menue, QWidget *eltern = nullptr);

private:
    QComboBox *profilwahlBauen();
    QToolButton *reiterBauen(Reiter reiter);
    void verbinden();
    void profileZeigen();
    void aktivZeigen();
    void reiterZeigen();
    void setzeStufe(int stufe);

    Zustand *m_zustand;
    QComboBox *m_profil;
    QToolButton *m_neu;
    QMap<Reiter, QToolButton *> m_reiter;
    Umschalter *m_art;
};
} // namespace quillmar::ui
