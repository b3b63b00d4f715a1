#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace quillmar::zustand
{
class Profilwahl;
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
/** The catalogue that does not open, the reason and the way on, for the user. */
[[nodiscard]] QString katalogfehlersatz(const Profilwahl &profilwahl);

/** What stands where nothing is: a sign, a title, a line that says what is missing, and at most one next step. */
class Leeransicht : public QWidget
{
    Q_OBJECT

public:
    explicit Leeransicht(QWidget *eltern = nullptr);

    /** @p symbol as in Zeichen, one of those that begin with "large."; without @p knopf there is no button. */
    void setzen(Symbol symbol, const QString &titel, const QString &zeile, const QString &knopf = {});
    /** Shows why there is no open catalogue: none of the profile yet, or one that does not open. */
    void setzeOhneKatalog(Symbol symbol, const Profilwahl &profilwahl);
    /** What the button of setzeOhneKatalog() does. */
    static void ohneKatalogWeiter(Zustand &zustand);
    [[nodiscard]] QPushButton *knopf() const { return m_knopf; }

Q_SIGNALS:
    void gedrueckt();

private:
    class Bild;
    Bild *m_bild;
    QLabel *m_titel;
    QLabel *m_zeile;
    QPushButton *m_knopf;
};
} // namespace quillmar::bedienteile
