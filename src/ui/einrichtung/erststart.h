#pragma once

#include "namensraeume.h"

#include <QWidget>

class QVBoxLayout;

namespace quillmar::bedienteile
{
class Hauptknopf;
} // namespace quillmar::bedienteile

namespace quillmar::einrichtung
{
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
} // namespace quillmar::einrichtung
