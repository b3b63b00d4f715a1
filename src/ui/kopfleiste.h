#pragma once

#include "namensraeume.h"
#include "reiter.h"

#include <QMap>
#include <QWidget>

class QComboBox;
class QToolButton;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Umschalter;
} // namespace quillmar::bedienteile

namespace quillmar::ui
{
class Reiterknopf;

/** The bar above the cards: profile, tabs in the middle of the window, move or copy, menu. */
class Kopfleiste : public QWidget
{
    Q_OBJECT

public:
    Kopfleiste(Zustand *zustand, QToolButton *menue, QWidget *eltern = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *ereignis) override;
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void verbinden();
    void profilwahlBauen();
    void reiterBauen();
    void profileZeigen();
    void aktivZeigen();
    void reiterZeigen();
    void anordnen();
    void setzeStufe(int stufe);
    [[nodiscard]] int profilbreite(int stufe) const;
    [[nodiscard]] int reiterbreite() const;
    [[nodiscard]] int breiteBei(int stufe);
    void setzen(QWidget *teil, int x, int breite) const;

    Zustand *m_zustand;
    QComboBox *m_profil;
    QToolButton *m_neu;
    QMap<Reiter, Reiterknopf *> m_reiter;
    Umschalter *m_art;
    QToolButton *m_menue;
};
} // namespace quillmar::ui
