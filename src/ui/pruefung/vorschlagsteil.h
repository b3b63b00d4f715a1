#pragma once

#include "teile.h"

#include <QObject>

class QWidget;

namespace quillmar::pruefung
{
/** How much room the proposal has. */
struct Platz {
    bool dicht = false;  ///< short of height: no explanations, what can stand side by side does
    bool schmal = false; ///< short of width: nothing stands side by side
    bool operator==(const Platz &) const = default;
};

/** Title and explanation of a section; with little height the explanation is the title's tool tip. */
struct Abschnittskopf {
    Abschnittskopf(const QString &titel, const QString &erklaerung, QWidget *eltern);
    void setzeDicht(bool dicht) const;

    QWidget *traeger;
    QLabel *titel;
    Textschild *erklaerung;
};

/** A label to the left of its row. */
[[nodiscard]] QLabel *beschriftung(const QString &text, const QString &hilfe, QWidget *eltern);

/** The section of the proposal: what the file is called today, what it will be called, how sure the model is. */
class Vorschlagsteil : public QObject
{
    Q_OBJECT

public:
    Vorschlagsteil(Pruefung *pruefung, QWidget *eltern);
    /** Stands in @p raster of four columns from @p zeile on, in as many rows as zeilen tells. */
    void legen(QGridLayout *raster, int zeile, const Platz &platz);
    static constexpr int zeilen = 4;

private:
    void zeigen();

    Pruefung *m_pruefung;
    Abschnittskopf m_kopf;
    QLabel *m_bisherSchild;
    QLabel *m_neuSchild;
    QLabel *m_sicherheitSchild;
    Textschild *m_bisher;
    Textschild *m_bisherOrdner;
    QWidget *m_bisherZeile;
    Textschild *m_name;
    Textschild *m_pfad;
    QWidget *m_neu; ///< name and path, with room for a name of two lines
    QProgressBar *m_balken;
    QLabel *m_prozent;
    QWidget *m_sicherheit;
};
} // namespace quillmar::pruefung
