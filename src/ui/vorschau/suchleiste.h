#pragma once

#include "namensraeume.h"
#include "teile.h"

#include <QPointer>
#include <QWidget>

namespace quillmar::vorschau
{
/** The row in which the text of the pages is searched; hidden until it is opened. */
class Suchleiste : public QWidget
{
    Q_OBJECT

public:
    explicit Suchleiste(QWidget *eltern = nullptr);

    [[nodiscard]] bool offen() const { return !isHidden(); }
    /** Shows the row and gives it the focus. @p vorgabe takes the place of what was searched for last, unless empty. */
    void oeffnen(const QString &vorgabe);
    /** Hides the row; the focus, if it is here, goes back to where it was. */
    void schliessen();
    [[nodiscard]] QString anfrage() const;
    /** Tab goes from @p davor through the row to @p danach. */
    void einreihen(QWidget *davor, QWidget *danach);

    /** What has become of the search; @p blaettern: there are finds to go through. */
    void setzeStand(const QString &satz, bool blaettern);

Q_SIGNALS:
    void anfrageGeaendert();
    void weiter(int schritt); ///< 1 to the next find, -1 to the one before
    void geschlossen();

protected:
    bool event(QEvent *ereignis) override;
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    QLineEdit *m_feld;
    Textschild *m_stand;
    QToolButton *m_zurueck;
    QToolButton *m_vor;
    QToolButton *m_schliessen;
    QPointer<QWidget> m_vorher; ///< had the focus when the row was opened
};
} // namespace quillmar::vorschau
