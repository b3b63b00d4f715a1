#pragma once

#include "handlung.h"
#include "namensraeume.h"

#include <QObject>
#include <QTimer>
#include <stop_token>

namespace quillmar::grundlage
{
class Briefkasten;
} // namespace quillmar::grundlage

namespace quillmar::zustand
{
class Meldestelle;
class OffenesProfil;
class Profilwahl;
class Pruefung;

/**
 * Carries out the deeds of the review, one at a time. Looking around, and what takes back, is kept (one) while another
 * one is under way; filing, skipping and setting aside are not, nor are they done before the document was seen.
 */
class Ausfuehrung : public QObject
{
    Q_OBJECT

public:
    Ausfuehrung(Profilwahl *profilwahl, Pruefung *pruefung, Meldestelle *meldestelle);
    /** Stops a long deed after the document in hand. */
    ~Ausfuehrung() override;

    void uebernehmen();
    void zuruecklegen();
    void aussortieren();
    /** Takes the last deed back, whatever kind it was. */
    void rueckgaengig();
    /** Takes the last movement back. */
    void letzteBewegungZuruecknehmen();
    void weiter(Richtung richtung);
    /** tatZuruecknehmen() has something to take back. */
    [[nodiscard]] bool tatRuecknehmbar() const;
    /** Takes back what the notice tells of. */
    void tatZuruecknehmen();
    void zurueckgestellteVorlegen();
    void dublettenAusraeumen();
    /** The target folder is right as it is; what was filed there was moved elsewhere by hand. */
    void zielBestaetigen();

    [[nodiscard]] bool beschaeftigt() const { return m_taetig || m_rueckbau; }
    /** Stops a long deed, or the turning back of a session, after what is in hand; meanwhile @p vorgang is told. */
    void anhalten(const QString &vorgang = {});
    /** A long deed is under way that anhalten() ends after the document in hand. */
    [[nodiscard]] bool anhaltbar() const { return m_anhaltbar && !m_halt.stop_requested(); }
    [[nodiscard]] bool raeumtAus() const { return m_anhaltbar; }
    /** What a long deed is doing, for the user; empty if none. */
    [[nodiscard]] const QString &vorgang() const { return m_vorgang; }
    [[nodiscard]] double vorgangsanteil() const { return m_vorgangsanteil; }

    /** A session is being turned back, which takes the place of a deed; anhalten() ends it. */
    [[nodiscard]] std::stop_token rueckbauBeginnen();
    void rueckbauBeenden();
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void beschaeftigtGeaendert();
    void vorgangGeaendert();
    void tatRuecknehmbarGeaendert();
    void zuFruehGedrueckt(); ///< a deed came before its document was seen, and was not done
    void zielFraglich();     ///< a deed was refused: of what was filed last nothing lies in the target folder
    void buchBegonnen();     ///< the running session has another log

private:
    using Tat = std::function<Geschehen(const Arbeitsplatz &)>;
    struct Tatfolge;

    void handeln(const Tat &tat, const Wunsch &danach, const QString &vorgang);
    [[nodiscard]] static Tatfolge ausfuehren(const Arbeitsplatz &platz, const Tat &tat, const Wunsch &danach,
                                             std::optional<qint64> hier);
    [[nodiscard]] std::function<bool(qint64, qint64)> vorgangMelder(const QString &vorgang);
    void fertig(OffenesProfil *offenes, const Tatfolge &folge);
    void gescheitert(const QString &satz);
    void eintragen(OffenesProfil &offenes, const Tatfolge &folge);
    void berichten(const Tatfolge &folge);
    void warten(std::function<void()> spaeter);
    [[nodiscard]] bool zuFrueh();
    [[nodiscard]] std::optional<qint64> dokumentId() const;
    void belegen(bool anDiesem);
    void freigeben();
    void setzeVorgang(const QString &text, double anteil);
    void wechseln();

    Profilwahl *m_profilwahl;
    Pruefung *m_pruefung;
    Meldestelle *m_meldestelle;
    std::shared_ptr<Briefkasten> m_briefe;
    bool m_taetig = false;
    bool m_rueckbau = false;
    bool m_anhaltbar = false;
    std::function<void()> m_spaeter; ///< the deed asked for meanwhile
    std::stop_source m_halt;
    QTimer m_merklich; ///< until a deed takes long enough to be named
    QString m_vorgang;
    QString m_vorgangsname; ///< of the deed under way
    double m_vorgangsanteil = 0;
};
} // namespace quillmar::zustand
