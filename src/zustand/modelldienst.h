#pragma once

#include "anfrage.h"
#include "modellstand.h"
#include "namensraeume.h"

#include <QElapsedTimer>
#include <QObject>

namespace quillmar::zustand
{
class Profilwahl;

/** The model server: whether the active profile's model can be asked, and the fetching of models. */
class Modelldienst : public QObject
{
    Q_OBJECT

public:
    explicit Modelldienst(Profilwahl *profilwahl);
    /** Ends a fetching. */
    ~Modelldienst() override;

    [[nodiscard]] bool modellBereit() const { return m_modell.art == Modellstand::Art::Bereit; }
    [[nodiscard]] const QString &modellMeldung() const { return m_modell.meldung; }
    [[nodiscard]] const Modellstand &modellstand() const { return m_modell; }
    /** That the environment names a server which is not asked; empty where there is nothing to say. */
    [[nodiscard]] static QString umgebungshinweis();
    void modellPruefen();
    void modellLaden();
    /** The same for the larger model; the other one stays usable meanwhile. */
    void modellGrossLaden();
    void modellLadenAbbrechen();

Q_SIGNALS:
    void modellGeaendert();
    void modellGeprueft(); ///< a check has ended, with whatever result

private:
    struct Ladeausgang;

    [[nodiscard]] QString modell() const;
    void setzen(const Modellstand &stand);
    [[nodiscard]] Modellstand mitLadestand(const Modellstand &gefunden) const;
    void laden(const QString &modell);
    void ladenAnzeigen(const QString &modell);
    void ladenMelden(const QString &text, qint64 fertig, qint64 gesamt);
    void geladen(const Ladeausgang &ausgang);

    Profilwahl *m_profilwahl;
    Modellstand m_modell;
    Anfrage m_frage;
    std::stop_source m_ladeende;
    QElapsedTimer m_ladebeginn; ///< of the part under way
    qint64 m_ladeanfang = 0;    ///< bytes that were there already when it began
};
} // namespace quillmar::zustand
