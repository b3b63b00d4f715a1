#pragma once

#include "lage.h"
#include "quillmarstil.h"
#include "teile.h"
#include "zeichen.h"

#include <QWidget>

namespace quillmar::bedienteile
{
/** What stands where nothing is: a sign, a title, a line that says what is missing, and at most one next step. */
class Leeransicht : public QWidget
{
    Q_OBJECT

public:
    /** @p knopfart of the next step, the button called @p knopfname. */
    explicit Leeransicht(QWidget *eltern = nullptr, const QString &knopfname = QStringLiteral("leerknopf"),
                         Knopfart knopfart = Knopfart::Feld);

    /** @p symbol is one of the large ones. */
    void setzen(Symbol symbol, const Leerlage &lage);
    [[nodiscard]] QPushButton *knopf() const { return m_knopf; }

Q_SIGNALS:
    void gedrueckt();

protected:
    void changeEvent(QEvent *ereignis) override;

private:
    void bildZeigen();

    Symbol m_symbol = Symbol::Keines;
    Leerlage m_lage;
    QLabel *m_bild;
    QLabel *m_titel;
    QLabel *m_zeile;
    QPushButton *m_knopf;
    QLabel *m_zusatz;
};
} // namespace quillmar::bedienteile
