#pragma once

#include <QWidget>

class Hauptknopf;

/** What stands on the setup card before there is a profile: what the program does, and the one next step. */
class Erststart : public QWidget
{
    Q_OBJECT

public:
    /** @p datenordner: where settings and catalogues are kept. */
    explicit Erststart(const QString &datenordner, QWidget *eltern = nullptr);

Q_SIGNALS:
    void anlegen();

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    QWidget *m_bild;
    Hauptknopf *m_knopf;
};
