#pragma once

#include "lage.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::ui
{
/** The line below the cards: the counts; what the analysis or a long deed is doing, or that the model is missing. */
class Fusszeile : public QWidget
{
    Q_OBJECT

public:
    explicit Fusszeile(Zustand *zustand, QWidget *eltern = nullptr);

private:
    void verbinden();
    void zaehlenZeigen();
    void lageZeigen();
    void setzeStufe(int stufe);
    void notieren();

    Zustand *m_zustand;
    QLabel *m_zaehler;
    Textschild *m_text;
    QProgressBar *m_balken;
    Nachgeben *m_platz;
    Lage m_lage;
    QString m_notiz; ///< what was said while a card was chosen that has no place for notices
};
} // namespace quillmar::ui
