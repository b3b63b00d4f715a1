#pragma once

#include "namensraeume.h"

#include <QWidget>

class QPushButton;

namespace quillmar::bedienteile
{
class Umbruchtext;

/** Asks before something that cannot be taken back, in the place where it was asked for. The focus is on "Abbrechen".
 */
class Rueckfrage : public QWidget
{
    Q_OBJECT

public:
    /** @p name is the object name of the button that does it. */
    Rueckfrage(const QString &name, const QString &knopf, QWidget *eltern = nullptr);

    void fragen(const QString &text);

Q_SIGNALS:
    void bestaetigt();
    void abgebrochen();

protected:
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    Umbruchtext *m_text;
    QPushButton *m_tun;
    QPushButton *m_lassen;
};
} // namespace quillmar::bedienteile
