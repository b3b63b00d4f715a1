#pragma once

#include "namensraeume.h"
#include "reiter.h"

#include <QObject>
#include <memory>

namespace quillmar::zustand
{
class Ausfuehrung;
class Durchgang;
class Einrichtung;
class Katalogpflege;
class Meldestelle;
class Modelldienst;
class Profilwahl;
class Pruefung;
class Scanwache;
class Seitenbelege;
class Sitzungen;

/**
 * The one observable state of the interactive program: it hands out the models that the cards read and call, each with
 * its own signals.
 *
 * Lives on the main thread with all of them; their fields change there only, and every change is told by a signal.
 * Whatever waits for a disk, a catalogue, a server or another program runs elsewhere and its result comes back here, so
 * no operation blocks. Failures never leave them: they become the notice.
 */
class Zustand : public QObject
{
    Q_OBJECT

public:
    explicit Zustand(QObject *vater = nullptr);
    /** Ends a run at once and waits at most a second or two for work under way; what is left is settled later. */
    ~Zustand() override;

    [[nodiscard]] Meldestelle *meldestelle() const { return m_meldestelle.get(); }
    [[nodiscard]] Profilwahl *profilwahl() const { return m_profilwahl.get(); }
    [[nodiscard]] Katalogpflege *katalogpflege() const { return m_katalogpflege.get(); }
    [[nodiscard]] Modelldienst *modelldienst() const { return m_modelldienst.get(); }
    [[nodiscard]] Pruefung *pruefung() const { return m_pruefung.get(); }
    [[nodiscard]] Seitenbelege *seitenbelege() const { return m_seitenbelege.get(); }
    [[nodiscard]] Ausfuehrung *ausfuehrung() const { return m_ausfuehrung.get(); }
    [[nodiscard]] Durchgang *durchgang() const { return m_durchgang.get(); }
    [[nodiscard]] Sitzungen *sitzungen() const { return m_sitzungen.get(); }
    [[nodiscard]] Scanwache *scanwache() const { return m_scanwache.get(); }
    [[nodiscard]] Einrichtung *einrichtung() const { return m_einrichtung.get(); }

    /** The chosen card. Once the first profile is known to be ready, that of the review unless somebody has chosen. */
    [[nodiscard]] Reiter reiter() const { return m_reiter; }
    void setzeReiter(Reiter reiter);
    /** Share of the first pane of a divided card, 0.25 to 0.75. */
    [[nodiscard]] double teilung() const { return m_teilung; }
    void setzeTeilung(double teilung);
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void reiterGeaendert();
    void teilungGeaendert();

private:
    void ersteKarteWaehlen();

    std::unique_ptr<Meldestelle> m_meldestelle;
    std::unique_ptr<Profilwahl> m_profilwahl;
    std::unique_ptr<Katalogpflege> m_katalogpflege;
    std::unique_ptr<Modelldienst> m_modelldienst;
    std::unique_ptr<Pruefung> m_pruefung;
    std::unique_ptr<Ausfuehrung> m_ausfuehrung;
    std::unique_ptr<Durchgang> m_durchgang;
    std::unique_ptr<Seitenbelege> m_seitenbelege;
    std::unique_ptr<Sitzungen> m_sitzungen;
    std::unique_ptr<Scanwache> m_scanwache;
    std::unique_ptr<Einrichtung> m_einrichtung;
    Reiter m_reiter = Reiter::Einrichtung;
    bool m_ersteWahl = true; ///< nobody has chosen a card yet
    double m_teilung;
};
} // namespace quillmar::zustand
