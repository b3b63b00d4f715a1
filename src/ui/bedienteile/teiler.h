#pragma once

#include "namensraeume.h"

#include <QWidget>
#include <optional>

namespace quillmar::bedienteile
{
/**
 * Two panes with a line between them that can be moved: by dragging (from 10 pixels on), by the arrow keys when it has
 * the focus, and back to the middle by a double click.
 */
class Teiler : public QWidget
{
    Q_OBJECT

public:
    Teiler(QWidget *links, QWidget *rechts, QWidget *eltern = nullptr);

    /** Share of the left pane, 0.25 to 0.75. */
    [[nodiscard]] double anteil() const { return m_anteil; }
    void setzeAnteil(double anteil);

Q_SIGNALS:
    /** The user has moved the line. */
    void anteilGewaehlt(double anteil);
    /** The share that the left pane has: with a large font and in a small window the limits are closer. */
    void angeordnet(double anteil);

protected:
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    class Griff;
    void anordnen();
    void waehlen(double anteil);

    QWidget *m_links;
    QWidget *m_rechts;
    Griff *m_griff;
    double m_anteil = 0.5;
    double m_gezeigter = 0.5;
};
} // namespace quillmar::bedienteile
