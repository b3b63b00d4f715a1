#pragma once

#include <QWidget>

class QVBoxLayout;
class Zustand;

/** What a start without the model asks, in its place under the title of the run card. */
class Startfrage : public QWidget
{
    Q_OBJECT

public:
    explicit Startfrage(Zustand *zustand, QWidget *eltern = nullptr);
    /** Says what is missing and shows itself. */
    void fragen();

Q_SIGNALS:
    void erneutPruefen();
    void nurLesen();

private:
    Zustand *m_zustand;
    QVBoxLayout *m_spalte;
    QWidget *m_hinweis = nullptr;
};
