#pragma once

#include "namensraeume.h"

#include <QWidget>

namespace quillmar::bedienteile
{
/** A thin bar in the accent that shows a share: certainty, progress. */
class Balken : public QWidget
{
    Q_OBJECT

public:
    /** @p breite in pixels at 10 pt; 0: as wide as there is room. */
    explicit Balken(int breite = 0, QWidget *eltern = nullptr);

    /** 0 to 1. */
    void setzeAnteil(double anteil);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /** Draws it into @p flaeche, for widgets that paint themselves. */
    static void malen(QPainter &maler, const QRectF &flaeche, double anteil, const QPalette &palette);

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    int m_breite;
    double m_anteil = 0;
};
} // namespace quillmar::bedienteile
