#pragma once

#include "ablagelernen.h"
#include "namensraeume.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::einrichtung
{
class Fundmodell;

/** Learning from the filing tree, in the section of what was learned: the reading, the choice of what it found. */
class Ablagefeld : public QWidget
{
    Q_OBJECT

public:
    explicit Ablagefeld(Zustand *zustand, QWidget *eltern);
    /** What the model says, as it stands. */
    void zeigen();

protected:
    bool event(QEvent *ereignis) override;

private:
    [[nodiscard]] QLayout *kopf();
    [[nodiscard]] QWidget *auswahl();
    [[nodiscard]] QWidget *suchreihe();
    [[nodiscard]] QLayout *ankreuzreihe();
    void tastenBauen();
    void verbinden();
    void lageZeigen();
    void befundZeigen();
    [[nodiscard]] QList<std::pair<QWidget *, bool>> teile(Ablagelernen::Lage lage, bool waehlt) const;
    void fokusFuehren(Ablagelernen::Lage vorher);
    void angekreuzteZeigen();
    void bestaendeZeigen();

    Zustand *m_zustand;
    Ablagelernen *m_ablage;
    Fundmodell *m_fund;
    Textschild *m_befund;
    QProgressBar *m_balken;
    QPushButton *m_lernen;
    QPushButton *m_anhalten;
    QPushButton *m_zurueck;
    QWidget *m_auswahl = nullptr;
    QLineEdit *m_suche;
    Liste *m_liste;
    Textschild *m_leer; ///< that nothing meets what is searched for
    Textschild *m_rest;
    QPushButton *m_uebernehmen;
    QPushButton *m_abbrechen;
    Textschild *m_anzahl;
    Ablagelernen::Lage m_gezeigt = Ablagelernen::Lage::Ruht;
};
} // namespace quillmar::einrichtung
