#pragma once

#include "namensraeume.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::einrichtung
{
class Abschnittsseite;

/** The setup card: the sections, the chosen one, and the button that goes on; before the first profile what to begin
 * with. */
class EinrichtungsAnsicht : public QWidget
{
    Q_OBJECT

public:
    EinrichtungsAnsicht(Zustand *zustand, Fenstersprache *sprache, QWidget *eltern = nullptr);

protected:
    void changeEvent(QEvent *ereignis) override;
    void showEvent(QShowEvent *ereignis) override;

private:
    QWidget *erststart();
    QWidget *linkeSeite();
    QWidget *rechteSeite(Fenstersprache *sprache);
    void seitenBauen(Fenstersprache *sprache);
    void anordnen(bool eng);
    [[nodiscard]] bool passt() const;
    void zeigen();
    void angebotZeigen();
    void angebotBeantworten(int antwort);
    void katalogratZeigen();
    void katalogRetten(int antwort);
    void abschnitteZeigen();
    void weiterZeigen();
    void weiter();

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Liste *m_liste;
    Listenmodell *m_zeilen;
    QString m_fenster; ///< language and font size, which are no business of the state object
    QStackedWidget *m_seiten;
    QList<Abschnittsseite *> m_abschnitte;
    Hinweisfeld *m_katalogfehler;
    Hinweisfeld *m_angebot;
    QWidget *m_angebotsrahmen = nullptr; ///< keeps it off the edges
    QPushButton *m_weiter;
    Textschild *m_grund;
};
} // namespace quillmar::einrichtung
