#pragma once

#include "namensraeume.h"

#include <QWidget>

class QGridLayout;
class QLabel;

namespace quillmar::bedienteile
{
class Flachknopf;
} // namespace quillmar::bedienteile

namespace quillmar::ablauf
{
/** A heading with what can be done for all, and rows of a name, a remark and perhaps a button; three to begin with. */
class Nacharbeitsliste : public QWidget
{
    Q_OBJECT

public:
    struct Zeile {
        qint64 id = 0;
        QString name;
        QString bemerkung;
        bool operator==(const Zeile &) const = default;
    };
    /** @p knopf does something for all; it belongs to this from now on. @p zeilenknopf names the rows' button, if any.
     */
    Nacharbeitsliste(const QString &name, QWidget *knopf, const QString &zeilenknopf, QWidget *eltern = nullptr);

    void zeigen(const QString &titel, const QList<Zeile> &zeilen);
    /** Whether the rows' buttons can be pressed. */
    void setzeBedienbar(bool bedienbar);

Q_SIGNALS:
    void gedrueckt(qint64 id);

private:
    void fuellen();
    void zeileBauen(int stelle);

    QLabel *m_titel;
    QWidget *m_knopf;
    QString m_zeilenknopf;
    QWidget *m_traeger = nullptr;
    QGridLayout *m_raster = nullptr;
    Flachknopf *m_mehr;
    QList<Zeile> m_zeilen;
    int m_gezeigte = 0;
    bool m_bedienbar = true;
};
} // namespace quillmar::ablauf
