#pragma once

#include "namensraeume.h"

#include <QWidget>

class QLabel;
class QStackedLayout;
class QStackedWidget;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Elidiertext;
class Leeransicht;
class Teiler;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
class Bewegungsliste;
class Rueckbaufeld;
class Sitzungskopf;
class Sitzungsseite;

/** The log card: the sessions on the left, on the right the chosen one with every movement, and the way back. */
class ProtokollAnsicht : public QWidget
{
    Q_OBJECT

public:
    explicit ProtokollAnsicht(Zustand *zustand, QWidget *eltern = nullptr);
    bool eventFilter(QObject *objekt, QEvent *ereignis) override;

protected:
    void showEvent(QShowEvent *ereignis) override;
    void focusInEvent(QFocusEvent *ereignis) override;

private:
    QWidget *sitzungsteil();
    QWidget *bewegungsteil();
    void tastenBauen();
    void verbinden();
    void zeigen();
    void sitzungZeigen();
    void anordnen();
    [[nodiscard]] QString anzahl() const;
    [[nodiscard]] QString titel() const;

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Teiler *m_teiler = nullptr;
    Sitzungsseite *m_sitzungen = nullptr;
    QStackedWidget *m_rechts = nullptr;
    QWidget *m_sitzung = nullptr;
    Leeransicht *m_leere = nullptr;
    Elidiertext *m_titel = nullptr;
    QLabel *m_erklaerung = nullptr;
    Sitzungskopf *m_kopf = nullptr;
    QLabel *m_anzahl = nullptr;
    Bewegungsliste *m_liste = nullptr;
    Rueckbaufeld *m_rueckbau = nullptr;
};
} // namespace quillmar::protokoll
