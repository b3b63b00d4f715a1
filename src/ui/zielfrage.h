#pragma once

#include "namensraeume.h"

#include <QFrame>
#include <QPointer>

namespace quillmar::zustand
{
class Ausfuehrung;
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Rueckfrage;
} // namespace quillmar::bedienteile

namespace quillmar::ui
{
/**
 * Asks, on whatever card a deed was refused for it, whether the target folder is right although nothing lies there of
 * what was filed last.
 */
class Zielfrage : public QFrame
{
    Q_OBJECT

public:
    Zielfrage(Profilwahl *profilwahl, Ausfuehrung *ausfuehrung, QWidget *eltern = nullptr);

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void fragen();
    void schliessen();

    Profilwahl *m_profilwahl;
    Ausfuehrung *m_ausfuehrung;
    Rueckfrage *m_frage;
    QPointer<QWidget> m_fokusVorher;
};
} // namespace quillmar::ui
