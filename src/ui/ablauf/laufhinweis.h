#pragma once

#include "namensraeume.h"

#include <QStringList>
#include <QWidget>

class QVBoxLayout;

namespace quillmar::bedienteile
{
class Hinweisfeld;
} // namespace quillmar::bedienteile

namespace quillmar::ablauf
{
/** What stood in the way of a run, with the way on; not to be seen while there is nothing. */
class Laufhinweis : public QWidget
{
    Q_OBJECT

public:
    explicit Laufhinweis(QWidget *eltern = nullptr);

    void zeigen(const QStringList &saetze);
    void setzeBedienbar(bool bedienbar);

Q_SIGNALS:
    /** The user wants it tried again. */
    void gedrueckt();

private:
    QVBoxLayout *m_spalte;
    Hinweisfeld *m_feld = nullptr;
    QStringList m_saetze;
};
} // namespace quillmar::ablauf
