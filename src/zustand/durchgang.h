#pragma once

#include "anfrage.h"
#include "laufbild.h"
#include "nacharbeit.h"
#include "namensraeume.h"

#include <QObject>
#include <vector>

namespace quillmar::analyse
{
class Analyse;
} // namespace quillmar::analyse

namespace quillmar::katalog
{
class Vorrang;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
class Meldestelle;
class Modelldienst;
class OffenesProfil;
class Profilwahl;
class Pruefung;

/** The runs of the open profile's analysis: asking for one, its course, what it came to and what it left to do. */
class Durchgang : public QObject
{
    Q_OBJECT

public:
    enum class Art {
        Ganz,
        Erneut,      ///< what failed before is tried again
        NurLesen,    ///< without the model
        ErneutLesen, ///< both
    };

    Durchgang(Profilwahl *profilwahl, Modelldienst *modelldienst, Pruefung *pruefung, Meldestelle *meldestelle);
    /** Ends a run at once. */
    ~Durchgang() override;

    /** Null without an open catalogue. */
    [[nodiscard]] const Analyse *analyse() const;
    [[nodiscard]] bool laeuft() const;
    void durchgangStarten(Art art = Art::Ganz);
    /**
     * Starts one if the model can be asked, else tells so by startFraglich(): every document would fail by itself. Of
     * what failed before it reopens only @p nurDies, if that is given.
     */
    void durchgangErbitten(Art art = Art::Ganz, std::optional<qint64> nurDies = std::nullopt);
    /**
     * Starts a run that nobody has asked for, if the model can be asked and no other program is at work in the
     * catalogue; tells by vonSelbstBegonnen() or vonSelbstVerhindert(). Nothing when a run is under way or asked for.
     */
    void vonSelbstErbitten();
    /** Opens one failed document again and starts a run. */
    void erneutVersuchen(qint64 id) { durchgangErbitten(Art::Erneut, id); }
    /** The one document that the run asked for last is to try again, if it was asked for one. */
    [[nodiscard]] std::optional<qint64> erbetenesDokument() const { return m_lage.nurDies; }
    /** It is being looked whether the model is there. */
    [[nodiscard]] bool startErbeten() const { return m_lage.erbeten && !m_lage.vonSelbst; }
    /** That takes long enough to be said. */
    [[nodiscard]] bool startWartet() const { return startErbeten() && m_lage.wartet; }
    void durchgangAnhalten();
    /** Rules added or taken out hold for the run under way too. */
    void ausnahmenBeachten(const QStringList &ausnahmen);

    [[nodiscard]] const Laufbild &laufbild() const { return m_lage.bild; }
    /** What the last run came to. */
    [[nodiscard]] const Laufende &laufende() const { return m_lage.ende; }
    /** What the runs left to look after; read anew by nacharbeitLesen(). */
    [[nodiscard]] const Nacharbeit &nacharbeit() const { return m_lage.nacharbeit; }
    void nacharbeitLesen();

Q_SIGNALS:
    void laufGeaendert();
    void startFraglich(Durchgang::Art art); ///< the run asked for would have no model
    void vonSelbstBegonnen();
    void vonSelbstVerhindert(bool ohneModell); ///< false: another program is at work, or the catalogue is only read
    void laufBeendet();                        ///< and what it came to is known
    void nacharbeitGeaendert();

private:
    /** What is known of the open profile's runs. */
    struct Lage {
        Laufbild bild;
        Laufende ende;
        Nacharbeit nacharbeit;
        std::optional<Art> erbeten;
        std::optional<qint64> nurDies;
        bool wartet = false;
        bool vonSelbst = false; ///< what is asked for, nobody waits for
    };

    void wechseln(OffenesProfil *verlassenes);
    void auslaufenLassen(std::unique_ptr<Analyse> analyse);
    void folgen(const Analyse *analyse);
    void fertig(const Analyse &analyse);
    void endeLesen(Laufende ende);
    void erbetenesStarten();
    void starten(Art art, const std::shared_ptr<Vorrang> &vorrang);
    void vonSelbstStarten();
    void setzeNacharbeit(const Nacharbeit &nacharbeit);

    Profilwahl *m_profilwahl;
    Modelldienst *m_modelldienst;
    Pruefung *m_pruefung;
    Meldestelle *m_meldestelle;
    Lage m_lage;
    Anfrage m_nachlesen;
    std::vector<std::unique_ptr<Analyse>> m_auslaufende; ///< of profiles that were left: they finish their document
};
} // namespace quillmar::zustand
