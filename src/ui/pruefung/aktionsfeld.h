#pragma once

#include "namensraeume.h"

#include <QTimer>
#include <QWidget>

class QHBoxLayout;

namespace quillmar::zustand
{
class Ausfuehrung;
class Meldestelle;
class Profilwahl;
class Pruefung;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Elidiertext;
class Flachknopf;
class Hauptknopf;
class Meldungszeile;
} // namespace quillmar::bedienteile

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
    /** Height when it is not short of height. */
    [[nodiscard]] int volleHoehe() const;

protected:
    void resizeEvent(QResizeEvent *ereignis) override;
    void paintEvent(QPaintEvent *ereignis) override;

private:
    void verbinden();
    void zeigen();
    void einpassen();
    void tastenZeigen();
    void zuFruehZeigen();

    Profilwahl *m_profilwahl;
    Ausfuehrung *m_ausfuehrung;
    QHBoxLayout *m_reihe = nullptr;
    Hauptknopf *m_uebernehmen;
    Flachknopf *m_zuruecklegen;
    Flachknopf *m_aussortieren;
    Flachknopf *m_vorheriges;
    Flachknopf *m_naechstes;
    Elidiertext *m_tasten;
    Meldungszeile *m_meldung;
    QString m_tastentext;
    QTimer m_zuFrueh; ///< runs while the line of keys says that one came too early
};
} // namespace quillmar::pruefung
