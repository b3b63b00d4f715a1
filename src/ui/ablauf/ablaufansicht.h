#pragma once

#include "durchgang.h"
#include "laufkarte.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::ablauf
{
class Gesamtstand;
class Stufe;
class Zahl;

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
    /** A heading with what can be done, and what it is about below it. */
    struct Nacharbeitsteil {
        QWidget *traeger = nullptr;
        QLabel *titel = nullptr;
        Liste *liste = nullptr;
        Listenmodell *modell = nullptr;
    };
    QWidget *kopf();
    QWidget *zahlen();
    QWidget *stufen();
    QWidget *spalteBauen();
    Nacharbeitsteil teilBauen(const QString &name, const QString &ansage, const QList<QPushButton *> &knoepfe);
    void verbinden();
    void folgen();
    void zeigen();
    void knoepfeZeigen();
    void stufenZeigen();
    void hindernisseZeigen();
    void zahlenZeigen();
    void listenZeigen();
    void ausraeumenZeigen();
    void starten(Durchgang::Art art = Durchgang::Art::Ganz);
    void fragen(Durchgang::Art art);
    void antworten(bool nurLesen);
    void zurEinrichtung();
    void fokusWeitergeben();
    [[nodiscard]] bool laeuft() const;
    [[nodiscard]] bool eingerichtet() const;
    [[nodiscard]] Lauflage lage() const { return Lauflage::von(*m_zustand); }

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Leeransicht *m_leere;
    QLabel *m_titel;
    Textschild *m_unterzeile;
    QPushButton *m_starten;
    QPushButton *m_pruefen;
    QPushButton *m_anhalten;
    Rueckfrage *m_frage;
    Hinweisfeld *m_hindernisse;
    QList<Zahl *> m_zahlen;
    Gesamtstand *m_gesamtstand;
    QList<Stufe *> m_stufen;
    QPushButton *m_erneut;
    QPushButton *m_alleErneut;
    QPushButton *m_ausraeumen;
    Nacharbeitsteil m_gescheiterte;
    Nacharbeitsteil m_dubletten;
    std::optional<Nacharbeit> m_gezeigte;             ///< in the lists of the two
    Durchgang::Art m_fraglich = Durchgang::Art::Ganz; ///< the run that the question is about
};
} // namespace quillmar::ablauf
