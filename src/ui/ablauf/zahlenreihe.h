#pragma once

#include "namensraeume.h"

#include <QWidget>

namespace quillmar::ablauf
{
/** Figures in a row, or more where it is narrow, each above what it counts. */
class Zahlenreihe : public QWidget
{
    Q_OBJECT

public:
    struct Zahl {
        qint64 wert = 0;
        QString was;
        bool betont = false;  ///< in the accent
        bool warnung = false; ///< with the warning mark
    };
    explicit Zahlenreihe(QWidget *eltern = nullptr);

    void zeigen(const QList<Zahl> &zahlen);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
    [[nodiscard]] int heightForWidth(int breite) const override;

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    [[nodiscard]] static int zeilenhoehe();
    [[nodiscard]] QList<QPoint> orte(int breite) const;
    [[nodiscard]] static int breiteVon(const Zahl &zahl);
    void teileLegen();
    void malen(QPainter &maler, const Zahl &zahl, QPoint ort) const;

    QList<Zahl> m_zahlen;
    QList<QWidget *> m_teile; ///< one over each figure, for a screen reader
};
} // namespace quillmar::ablauf
