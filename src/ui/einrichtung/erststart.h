#pragma once

#include <QWidget>

class Hauptknopf;
class QVBoxLayout;

/** What stands on the setup card before there is a profile: what the program does, and the one next step. */
class Erststart : public QWidget
{
    Q_OBJECT

public:
    /** @p datenordner: where settings and catalogues are kept. */
    Erststart(const QString &datenordner, const QString &unlesbare, QWidget *eltern = nullptr);

Q_SIGNALS:
    void anlegen();

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void unlesbaresZeigen(const QString &kopie, QVBoxLayout *spalte);

    QWidget *m_bild;
    Hauptknopf *m_knopf;
};
