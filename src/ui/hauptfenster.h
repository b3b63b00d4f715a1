#pragma once

#include <QMainWindow>

/** The program's window. */
class Hauptfenster : public QMainWindow
{
    Q_OBJECT

public:
    explicit Hauptfenster(QWidget *eltern = nullptr);
};
