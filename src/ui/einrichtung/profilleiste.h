#pragma once

#include "namensraeume.h"

#include <QWidget>

class QLineEdit;

namespace quillmar::zustand
{
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Flachknopf;
class Rueckfrage;
} // namespace quillmar::bedienteile

namespace quillmar::einrichtung
{
/** Renames or removes the active profile; what it asks takes the place of its buttons. */
class Profilleiste : public QWidget
{
    Q_OBJECT

public:
    explicit Profilleiste(Profilwahl *profilwahl, QWidget *eltern = nullptr);

protected:
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    void namensfeldBauen();
    void umbenennen();
    void nameUebernehmen();
    void entfernenFragen();
    void schliessen();

    Profilwahl *m_profilwahl;
    Flachknopf *m_umbenennen;
    Flachknopf *m_entfernen;
    QWidget *m_namensteil;
    QLineEdit *m_name;
    Rueckfrage *m_frage;
};
} // namespace quillmar::einrichtung
