#pragma once

#include "teile.h"

#include <QDialog>

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
    QLayout *updateteil();
    QLayout *ordner();
    QLayout *teile();
    QLayout *fuss();
    void ergebnisZeigen();

    Profilwahl *m_profilwahl;
    Aktualisierung *m_aktualisierung;
    QWidget *m_inhalt = nullptr;
    QString m_protokolle; ///< the folder that is shown
    QPushButton *m_suchen = nullptr;
    Textschild *m_ergebnis = nullptr;
    QToolButton *m_laden = nullptr;
};
} // namespace quillmar::ui
