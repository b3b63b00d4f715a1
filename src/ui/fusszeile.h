#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

class QLabel;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::ui
{
/** The line below the cards: the counts; what the analysis or a long deed is doing, or that the model is missing. */
class Fusszeile : public QWidget
{
    Q_OBJECT

public:
    explicit Fusszeile(Zustand *zustand, QWidget *eltern = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent *ereignis) override;
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void verbinden();
    void zaehlenZeigen();
    void lageZeigen();
    void notieren();
    void notizVergessen();
    void anordnen();

    Zustand *m_zustand;
    QLabel *m_zaehler;
    QLabel *m_lage;
    QString m_stufe;
    QString m_rest;
    double m_anteil = -1;             ///< 0 to 1; below 0: no bar
    Symbol m_symbol = Symbol::Keines; ///< of the mark
    QString m_notiz;                  ///< what was said while a card was chosen that has no place for notices
    int m_balkenX = 0;                ///< 0: the bar has no room
};
} // namespace quillmar::ui
