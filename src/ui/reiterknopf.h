#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QAbstractButton>

namespace quillmar::ui
{
/**
 * A tab of the top bar: icon, title, and a number when there is something to do. The chosen one is semi-bold with a
 * line in the accent; all are as wide as their semi-bold title, so that choosing one moves none.
 */
class Reiterknopf : public QAbstractButton
{
    Q_OBJECT

public:
    Reiterknopf(const QString &titel, Symbol symbol, QWidget *eltern = nullptr);

    /** The number behind the title; none for 0. */
    void setzeZahl(qint64 zahl);
    void setzeMitZeichen(bool mit);
    void setzeEng(bool eng);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    [[nodiscard]] int zahlbreite() const;
    [[nodiscard]] int rand() const;
    void zahlMalen(QPainter &maler, const QRect &flaeche) const;
    void benennen();

    Symbol m_symbol = Symbol::Keines;
    qint64 m_zahl = 0;
    bool m_mitZeichen = true;
    bool m_eng = false;
};
} // namespace quillmar::ui
