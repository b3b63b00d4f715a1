#pragma once

#include "pruefhinweis.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::pruefung
{
/** The notes on the proposal, warnings first. Tab goes through their buttons from top to bottom. */
class Hinweisfach : public QWidget
{
    Q_OBJECT

public:
    explicit Hinweisfach(Pruefung *pruefung, QWidget *eltern = nullptr);

private:
    void zeigen();
    void entfernen(Hinweisfeld *feld);
    [[nodiscard]] Hinweisfeld *neues(const Pruefhinweis &hinweis);
    void tabReihe();

    Pruefung *m_pruefung;
    Kette *m_spalte;
    QList<Pruefhinweis> m_gezeigte;
    QList<Hinweisfeld *> m_felder; ///< of m_gezeigte
};
} // namespace quillmar::pruefung
