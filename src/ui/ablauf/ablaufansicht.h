#pragma once

#include "durchgang.h"
#include "namensraeume.h"

#include <QWidget>

class QLabel;
class QStackedLayout;
class QVBoxLayout;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Hauptknopf;
class Knopf;
class Leeransicht;
class Umbruchtext;
} // namespace quillmar::bedienteile

namespace quillmar::ablauf
{
class Laufhinweis;
class Nacharbeitsliste;
class Startfrage;
class Stufenliste;
class Zahlenreihe;

/** The run card: start and stop, the stages, what is counted, and what is left to look after. */
class AblaufAnsicht : public QWidget
{
    Q_OBJECT

public:
    explicit AblaufAnsicht(Zustand *zustand, QWidget *eltern = nullptr);

protected:
    void showEvent(QShowEvent *ereignis) override;
    void focusInEvent(QFocusEvent *ereignis) override;

private:
    QWidget *kopf();
    QWidget *spalteBauen();
    void listenBauen(QVBoxLayout *spalte);
    void knoepfeVerbinden();
    void verbinden();
    void zeigen();
    void kopfZeigen();
    void knoepfeZeigen();
    void stufenZeigen();
    void zahlenZeigen();
    void hindernisseZeigen();
    void listenZeigen();
    void ausraeumenZeigen();
    void starten(Durchgang::Art art = Durchgang::Art::Ganz);
    void fragen(Durchgang::Art art);
    void zurEinrichtung();
    void fokusHalten();
    [[nodiscard]] bool laeuft() const;
    [[nodiscard]] bool eingerichtet() const;
    [[nodiscard]] QString unterzeile() const;
    [[nodiscard]] QString fehlendes() const;

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Leeransicht *m_leere;
    QLabel *m_titel = nullptr;
    Umbruchtext *m_unterzeile = nullptr;
    Hauptknopf *m_starten = nullptr;
    Hauptknopf *m_pruefen = nullptr;
    Knopf *m_anhalten = nullptr;
    Startfrage *m_frage = nullptr;
    Laufhinweis *m_hindernisse = nullptr;
    Zahlenreihe *m_zahlen = nullptr;
    Stufenliste *m_stufen = nullptr;
    Knopf *m_alleErneut = nullptr;
    Knopf *m_ausraeumen = nullptr;
    Nacharbeitsliste *m_gescheiterte = nullptr;
    Nacharbeitsliste *m_dubletten = nullptr;
    Durchgang::Art m_fraglich = Durchgang::Art::Ganz; ///< the run that the question is about
};
} // namespace quillmar::ablauf
