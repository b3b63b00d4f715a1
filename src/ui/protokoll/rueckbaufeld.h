#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QStackedLayout;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Balken;
class Elidiertext;
class Knopf;
class Umbruchtext;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
/** The action area of the log card: turning the shown session back, asked before, and the last step. */
class Rueckbaufeld : public QWidget
{
    Q_OBJECT

public:
    explicit Rueckbaufeld(Zustand *zustand, QWidget *eltern = nullptr);
    /** With little height the explanation becomes a tool tip. */
    void setzeDicht(bool dicht);
    /** Upper edge of the first button. */
    [[nodiscard]] int knopfoben() const;
    /** There is no room for the buttons side by side. */
    [[nodiscard]] bool gestapelt() const;

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    enum Seite { Knoepfe, Frage, Lauf };
    QWidget *knopfseite();
    QWidget *frageseite();
    QWidget *laufseite();
    void verbinden();
    void fragen();
    void bestaetigen();
    void abbrechen();
    void zeigen();
    void meldungZeigen();
    [[nodiscard]] Symbol meldungssymbol() const;
    void setzeSeite(Seite seite);
    void einpassen();
    QWidget *reihe(const QList<QWidget *> &teile);

    Zustand *m_zustand;
    Umbruchtext *m_erklaerung;
    QPlainTextEdit *m_fehler;
    QStackedLayout *m_stapel;
    Knopf *m_zurueckdrehen = nullptr;
    Knopf *m_letzten = nullptr;
    QLabel *m_frage = nullptr;
    Knopf *m_ja = nullptr;
    Knopf *m_nein = nullptr;
    QLabel *m_lauf = nullptr;
    Balken *m_balken = nullptr;
    Knopf *m_anhalten = nullptr;
    QLabel *m_marke;
    Elidiertext *m_meldung;
    QList<QBoxLayout *> m_reihen; ///< turned upright where they are too wide
    bool m_dicht = false;
};
} // namespace quillmar::protokoll
