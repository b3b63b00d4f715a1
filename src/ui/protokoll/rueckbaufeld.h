#pragma once

#include "teile.h"

#include <QWidget>

class QPlainTextEdit;

namespace quillmar::protokoll
{
/**
 * The action area of the log card, below both panes: on the left what lists other logs, on the right turning the shown
 * session back, asked before, and the last step.
 */
class Rueckbaufeld : public QWidget
{
    Q_OBJECT

public:
    explicit Rueckbaufeld(Zustand *zustand, QWidget *eltern = nullptr);
    /** With little height the explanation becomes a tool tip. */
    void setzeDicht(bool dicht);
    /** Share of the left pane. */
    void setzeAnteil(double anteil);

Q_SIGNALS:
    void auffrischen();

private:
    enum Seite { Knoepfe, Frage, Lauf };
    [[nodiscard]] QWidget *linkeSeite();
    [[nodiscard]] QWidget *knopfseite();
    void anordnen();
    void verbinden();
    void fragen();
    void bestaetigen();
    void frageBeenden();
    void zeigen();
    void erklaeren();
    void meldungZeigen();
    void setzeSeite(Seite seite);

    Zustand *m_zustand;
    Textschild *m_erklaerung;
    QPlainTextEdit *m_fehler;
    QStackedWidget *m_stapel;
    QPushButton *m_zurueckdrehen;
    QPushButton *m_letzten;
    Rueckfrage *m_frage;
    QLabel *m_lauf;
    QProgressBar *m_balken;
    QPushButton *m_anhalten;
    Textschild *m_meldung;
    bool m_dicht = false;
};
} // namespace quillmar::protokoll
