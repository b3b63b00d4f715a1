#pragma once

#include "namensraeume.h"

#include <QWidget>

class QGridLayout;
class QLabel;

namespace quillmar::pruefung
{
/** A part of the proposal: a title, an explanation, and rows of a label and what belongs to it. */
class Pruefabschnitt : public QWidget
{
    Q_OBJECT

public:
    /** Short of height (@p dicht): no explanation. Short of width (@p schmal): nothing stands side by side. */
    void setzeDicht(bool dicht, bool schmal);
    /** Width of the column of labels. */
    void setzeBeschriftungsbreite(int breite);

protected:
    Pruefabschnitt(const QString &titel, const QString &erklaerung, QWidget *eltern);

    /** Lays out anew, from an empty grid. */
    virtual void anordnen() = 0;
    /** Empties the grid and begins it with title and explanation over @p spalten columns. */
    void kopfAnordnen(int spalten);
    /** A label to the left of its row. */
    [[nodiscard]] QLabel *beschriftung(const QString &text, const QString &hilfe, Qt::Alignment senkrecht);

    QGridLayout *m_raster;
    QWidget *m_kopf;
    QLabel *m_titel;
    QLabel *m_erklaerung;
    bool m_dicht = false;
    bool m_schmal = false;

private:
    QString m_hilfe; ///< the explanation, on the title where it has no room
};
} // namespace quillmar::pruefung
