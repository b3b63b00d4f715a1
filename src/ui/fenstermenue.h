#pragma once

#include <QMenu>

class Fenstersprache;

/** The menu at the right end of the top bar. */
class Fenstermenue : public QMenu
{
    Q_OBJECT

public:
    Fenstermenue(Fenstersprache *sprache, QWidget *eltern);

private:
    void schriftBauen();
    void sprachenBauen();
    void schriftAendern(double punkte);

    Fenstersprache *m_sprache;
};

/** Takes the stored font size over into the running program; without one the desktop's. */
void schriftgroesseAnwenden();
