#pragma once

#include <QFrame>
#include <QPointer>

class Rueckfrage;
class Zustand;

/**
 * Asks, on whatever card a deed was refused for it, whether the target folder is right although nothing lies there of
 * what was filed last.
 */
class Zielfrage : public QFrame
{
    Q_OBJECT

public:
    explicit Zielfrage(Zustand *zustand, QWidget *eltern = nullptr);

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void fragen();
    void schliessen();

    Zustand *m_zustand;
    Rueckfrage *m_frage;
    QPointer<QWidget> m_fokusVorher;
};
