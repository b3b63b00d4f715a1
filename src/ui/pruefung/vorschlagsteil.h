#pragma once

#include "namensraeume.h"
#include "pruefabschnitt.h"

class QLabel;

namespace quillmar::zustand
{
class Pruefung;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Balken;
class Elidiertext;
class Umbruchtext;
} // namespace quillmar::bedienteile

namespace quillmar::pruefung
{
/** The section of the proposal: what the file is called today, what it will be called, how sure the model is. */
class Vorschlagsteil : public Pruefabschnitt
{
    Q_OBJECT

public:
    explicit Vorschlagsteil(Pruefung *pruefung, QWidget *eltern = nullptr);

    /** Height that it needs at least when it is not short of height. */
    [[nodiscard]] int volleHoehe() const;
    [[nodiscard]] static QStringList beschriftungen();

private:
    /** Short of height, certainty stands beside the title. */
    void anordnen() override;
    void teileBauen();
    void masse();
    void zeigen();
    void sicherheitZeigen();

    Pruefung *m_pruefung;
    QLabel *m_bisherSchild;
    QLabel *m_neuSchild;
    QLabel *m_sicherheitSchild;
    QWidget *m_bisherZeile;
    Elidiertext *m_bisher;
    Elidiertext *m_bisherOrdner;
    QWidget *m_neu; ///< name and path, with room for a name of two lines
    Umbruchtext *m_name;
    Umbruchtext *m_pfad;
    QWidget *m_sicherheit;
    Balken *m_balken;
    QLabel *m_prozent;
};
} // namespace quillmar::pruefung
