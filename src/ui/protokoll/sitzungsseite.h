#pragma once

#include "namensraeume.h"
#include "sitzungsbilder.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class QVBoxLayout;

namespace quillmar::zustand
{
class Ausfuehrung;
class Profilwahl;
class Sitzungen;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Flachknopf;
class Umbruchtext;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
class Protokollordner;
class Sitzungszeile;

/** Left side of the log card: the log folder, the running session, earlier sessions. */
class Sitzungsseite : public QWidget
{
    Q_OBJECT

public:
    Sitzungsseite(Profilwahl *profilwahl, Sitzungen *sitzungen, Ausfuehrung *ausfuehrung, QWidget *eltern = nullptr);
    /** Reads everything that is shown anew. */
    void auffrischen();
    /** Gives the focus to the chosen session, else to the newest. */
    void zurAuswahl();
    /** The area with the two buttons is as tall as the one on the other side; its buttons begin at @p oben, @p
     * gestapelt below each other where there is no room beside. */
    void setzeFuss(int hoehe, int oben, bool gestapelt);

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    QWidget *inhalt();
    QWidget *fuss();
    void laufendeBauen(QVBoxLayout *spalte);
    void fruehereBauen(QVBoxLayout *spalte);
    void zeigen();
    void laufendeZeigen();
    void fruehereZeigen();
    void zeilenZeigen(const QStringList &dateien, int anzahl);
    void bilderLesen();
    void bildZeigen(const QString &datei);
    void auswahlZeigen();
    void fussEinpassen();
    Sitzungszeile *neueZeile(QVBoxLayout *spalte);
    [[nodiscard]] QStringList fruehere() const;
    [[nodiscard]] QList<Sitzungszeile *> alleZeilen() const;

    Profilwahl *m_profilwahl;
    Sitzungen *m_sitzungen;
    Ausfuehrung *m_ausfuehrung;
    Sitzungsbilder m_bilder;
    Protokollordner *m_ordner = nullptr;
    QWidget *m_nochNichts = nullptr;
    Umbruchtext *m_mangel = nullptr; ///< why the running session's log is not there
    QWidget *m_mangelZeile = nullptr;
    Sitzungszeile *m_laufende = nullptr;
    QLabel *m_anzahl = nullptr;
    QVBoxLayout *m_liste = nullptr;
    QList<Sitzungszeile *> m_zeilen;
    Flachknopf *m_mehr = nullptr;
    QWidget *m_fuss = nullptr;
    QBoxLayout *m_fussreihe = nullptr;
    QList<Flachknopf *> m_fussknoepfe;
    int m_fussoben = 0;
    bool m_fussGestapelt = false;
    int m_gezeigte;
};
} // namespace quillmar::protokoll
