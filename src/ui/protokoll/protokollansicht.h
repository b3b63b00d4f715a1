#pragma once

#include "teile.h"

#include <QWidget>

namespace quillmar::protokoll
{
class Bewegungsmodell;
class Rueckbaufeld;
class Sitzungsseite;

/** The log card: the sessions on the left, on the right the chosen one with every movement, and the way back. */
class ProtokollAnsicht : public QWidget
{
    Q_OBJECT

public:
    explicit ProtokollAnsicht(Zustand *zustand, QWidget *eltern = nullptr);

protected:
    void showEvent(QShowEvent *ereignis) override;
    void focusInEvent(QFocusEvent *ereignis) override;

private:
    [[nodiscard]] QWidget *karte();
    [[nodiscard]] QWidget *bewegungsteil();
    [[nodiscard]] QWidget *kopftafel();
    void verbinden();
    void zeigen();
    void sitzungZeigen();
    void kopfZeigen();
    void setzeDicht(bool dicht);

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Sitzungsseite *m_sitzungen;
    Teiler *m_teiler = nullptr;
    QStackedWidget *m_rechts;
    QWidget *m_sitzung = nullptr;
    Leeransicht *m_leere;
    Textschild *m_titel;
    Textschild *m_erklaerung;
    QWidget *m_tafel = nullptr;
    QList<Textschild *> m_kopfwerte;
    Textschild *m_kurzkopf; ///< the header in one line, where there is little height
    Textschild *m_anzahl;
    Liste *m_liste;
    Bewegungsmodell *m_modell;
    Rueckbaufeld *m_rueckbau;
};
} // namespace quillmar::protokoll
