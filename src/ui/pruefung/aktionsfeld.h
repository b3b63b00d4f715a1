#pragma once

#include "teile.h"

#include <QTimer>
#include <QWidget>

namespace quillmar::pruefung
{
/** The deeds of the review: the filled button, skip, duplicate, arrows; the line of keys; what was done. */
class Aktionsfeld : public QWidget
{
    Q_OBJECT

public:
    Aktionsfeld(Profilwahl *profilwahl, Pruefung *pruefung, Ausfuehrung *ausfuehrung, Meldestelle *meldestelle,
                QWidget *eltern = nullptr);

    /** What the line of keys says: @p imFeld while a field has the focus, with its help if there is room nowhere else.
     */
    void setzeTasten(bool imFeld, const QString &hilfe);
    /** Short of height: deed and notice share a line. */
    void setzeDicht(bool dicht);

private:
    void verbinden();
    void zeigen();
    void tastenZeigen();

    Profilwahl *m_profilwahl;
    Ausfuehrung *m_ausfuehrung;
    QPushButton *m_uebernehmen;
    QToolButton *m_zuruecklegen;
    QToolButton *m_aussortieren;
    QToolButton *m_vorheriges;
    QToolButton *m_naechstes;
    Textschild *m_tasten;
    Meldungszeile *m_meldung;
    QString m_tastentext;
    QTimer m_zuFrueh; ///< runs while the line of keys says that one came too early
};
} // namespace quillmar::pruefung
