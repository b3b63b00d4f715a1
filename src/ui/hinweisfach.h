#pragma once

#include "pruefhinweis.h"

#include <QWidget>

class QVBoxLayout;
class Zustand;

/** The notes on the proposal, warnings first. */
class Hinweisfach : public QWidget
{
    Q_OBJECT

public:
    explicit Hinweisfach(Zustand *zustand, QWidget *eltern = nullptr);

private:
    void zeigen();
    void dazu(const Pruefhinweis &hinweis);

    Zustand *m_zustand;
    QVBoxLayout *m_spalte;
    QList<Pruefhinweis> m_gezeigte;
};
