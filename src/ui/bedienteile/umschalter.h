#pragma once

#include "teile.h"
#include "zeichen.h"

#include <QWidget>

namespace quillmar::bedienteile
{
/** Two choices side by side of which one holds. The words can be dropped; they stay as tool tips then. */
class Umschalter : public QWidget
{
    Q_OBJECT

public:
    struct Wahl {
        QString name; ///< of the object
        QString titel;
        QString hilfe;
        Symbol symbol = Symbol::Keines;
    };
    Umschalter(const Wahl &links, const Wahl &rechts, QWidget *eltern = nullptr);

    void setzeRechts(bool rechts);
    void setzeMitText(bool mit);

Q_SIGNALS:
    /** The user has chosen. */
    void gewaehlt(bool rechts);

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    QToolButton *haelfte(const Wahl &wahl);

    QToolButton *m_links;
    QToolButton *m_rechts;
};
} // namespace quillmar::bedienteile
