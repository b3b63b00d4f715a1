#pragma once

#include "anfrage.h"
#include "sitzungsbilder.h"
#include "teile.h"

#include <QWidget>

namespace quillmar::protokoll
{
class Sitzungsmodell;

/** Left side of the log card: where the logs go, the running session, earlier sessions. */
class Sitzungsseite : public QWidget
{
    Q_OBJECT

public:
    explicit Sitzungsseite(Zustand *zustand, QWidget *eltern = nullptr);
    /** Reads everything that is shown anew. */
    void auffrischen();
    /** Gives the focus to the shown session, else to the newest. */
    void zurAuswahl();

private:
    [[nodiscard]] QLayout *ordnerteil();
    [[nodiscard]] QLayout *laufenderTeil();
    Liste *listeBauen(const QString &name, const QString &ansage, Sitzungsmodell *modell);
    void verbinden();
    void ordnerZeigen();
    void ordnerPruefen();
    void ordnerWaehlen();
    void setzeOrdner(const QString &ordner);
    void zeigen();
    void bilderAnsehen();

    Zustand *m_zustand;
    Sitzungsbilder m_bilder;
    Textschild *m_ort;
    Textschild *m_pfad;
    Hinweisfeld *m_warnung;
    QToolButton *m_standard;
    Textschild *m_nochNichts;
    Textschild *m_mangel; ///< why the running session's log is not there
    Textschild *m_anzahl;
    Sitzungsmodell *m_laufende;
    Sitzungsmodell *m_fruehere;
    Liste *m_laufendeListe;
    Liste *m_fruehereListe;
    Anfrage m_frage; ///< whether logs can be written there
};
} // namespace quillmar::protokoll
