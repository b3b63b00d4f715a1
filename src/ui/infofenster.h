#pragma once

#include "namensraeume.h"

#include <QDialog>
#include <QHash>

class QLabel;

namespace quillmar::zustand
{
class Aktualisierung;
class Fenstersprache;
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Flachknopf;
class Knopf;
class Umbruchtext;
} // namespace quillmar::bedienteile

namespace quillmar::ui
{
/** What the program is: version, licence, update, the folders it uses, what it is made of. */
class Infofenster : public QDialog
{
    Q_OBJECT

public:
    /** Opens it beside @p fenster, or brings the one to the front that is open already. */
    static void oeffnen(Profilwahl *profilwahl, Aktualisierung *aktualisierung, Fenstersprache *sprache,
                        QWidget *fenster);

private:
    Infofenster(Profilwahl *profilwahl, Aktualisierung *aktualisierung, QWidget *fenster);
    void aufbauen();
    QWidget *kopf(QWidget *eltern);
    QWidget *updateteil(QWidget *eltern);
    QWidget *ordner(QWidget *eltern);
    QWidget *teile(QWidget *eltern);
    QWidget *fuss(QWidget *eltern);
    void ergebnisZeigen();
    static void angabenKopieren(Flachknopf *knopf);
    static void fassungenLesen(QWidget *traeger, const QHash<QString, QLabel *> &schilder);

    Profilwahl *m_profilwahl;
    Aktualisierung *m_aktualisierung;
    QWidget *m_inhalt = nullptr;
    QString m_protokolle; ///< the folder that is shown
    Knopf *m_suchen = nullptr;
    QLabel *m_marke = nullptr;
    Umbruchtext *m_ergebnis = nullptr;
    Flachknopf *m_laden = nullptr;
};
} // namespace quillmar::ui
