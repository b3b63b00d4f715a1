#pragma once

#include "anfrage.h"
#include "namensraeume.h"
#include "protokollort.h"

#include <QWidget>

namespace quillmar::zustand
{
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Elidiertext;
class Flachknopf;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
/** Where the session logs go: the profile's own folder or the default place beside the target. */
class Protokollordner : public QWidget
{
    Q_OBJECT

public:
    explicit Protokollordner(Profilwahl *profilwahl, QWidget *eltern = nullptr);
    /** Looks again whether logs can be written there. */
    void pruefen();

private:
    void anordnen(QWidget *waehlen);
    void zeigen();
    void waehlen();
    void setzen(const QString &ordner);

    Profilwahl *m_profilwahl;
    Elidiertext *m_ort;
    Elidiertext *m_pfad;
    QWidget *m_warnung;
    Flachknopf *m_standard = nullptr;
    Anfrage m_frage; ///< whether logs can be written there
};
} // namespace quillmar::protokoll
