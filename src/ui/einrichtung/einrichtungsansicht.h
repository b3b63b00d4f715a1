#pragma once

#include "abschnitt.h"
#include "namensraeume.h"

#include <QMap>
#include <QWidget>

class QStackedLayout;
class QStackedWidget;

namespace quillmar::zustand
{
class Fenstersprache;
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Hauptknopf;
class Hinweisfeld;
class Marktext;
} // namespace quillmar::bedienteile

namespace quillmar::einrichtung
{
class Abschnittsliste;
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
    void resizeEvent(QResizeEvent *ereignis) override;
    void paintEvent(QPaintEvent *ereignis) override;

private:
    QWidget *linkeSeite();
    QWidget *rechteSeite(Fenstersprache *sprache);
    void seitenBauen(Fenstersprache *sprache);
    void beschriftungenAusrichten();
    void setzeEng(bool eng);
    void zeigen();
    void weiterZeigen();
    void weiter();

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    QWidget *m_links = nullptr;
    QWidget *m_fuss = nullptr;
    Abschnittsliste *m_liste = nullptr;
    QStackedWidget *m_seiten = nullptr;
    QMap<Abschnitt, Abschnittsseite *> m_abschnitte;
    Hinweisfeld *m_katalogfehler = nullptr;
    Hauptknopf *m_weiter = nullptr;
    Marktext *m_grund = nullptr;
};
} // namespace quillmar::einrichtung
