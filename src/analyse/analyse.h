#pragma once

#include "lauf.h"
#include "laufauftrag.h"
#include "namensraeume.h"

#include <QObject>
#include <QTimer>
#include <memory>
#include <stop_token>

namespace quillmar::analyse
{
/**
 * Runs the whole analysis of a profile's source folder as one job in the background and publishes its progress. All
 * results are in the catalogue: a run can end at any document, the next one goes on where work is open.
 *
 * Lives on the main thread; its fields change there only.
 */
class Analyse : public QObject
{
    Q_OBJECT

public:
    Analyse(std::shared_ptr<Datenbank> db, Profil profil, QObject *parent = nullptr);
    /** Ends a run at once: the document in hand stays open for the next one. */
    ~Analyse() override;

    /**
     * Starts a run on the profile as set; ignored while one is active. Returns at once.
     */
    void allesStarten(const Laufauftrag &auftrag = {});
    /** Asks the run to stop after the document in hand. */
    void abbrechen();
    /** Ends the run at once, as the end of the program does. */
    void sofortBeenden();
    /** Rules added or taken out while a run goes on hold for it too. */
    void setzeAusnahmen(const QStringList &ausnahmen);
    /** The profile of the next run. */
    void setzeProfil(const Profil &profil) { m_profil = profil; }

    [[nodiscard]] bool laeuft() const { return m_laeuft; }
    [[nodiscard]] bool abbrechenGewuenscht() const;
    /** The stage, for the user: in the language of now, while messages stay as they were published. */
    [[nodiscard]] QString stufe() const;
    /** Its German name, whatever the language. */
    [[nodiscard]] const QString &stufenname() const { return m_stand.stufe; }
    [[nodiscard]] const QString &meldung() const { return m_stand.meldung; }
    [[nodiscard]] double anteil() const { return m_stand.anteil; }
    /** How far the whole run is, if it goes in portions; the fields above then tell of the one in hand. */
    [[nodiscard]] const Laufganzes &ganzes() const { return m_stand.ganzes; }
    /** Empty while it cannot be told, as long as dauersatz() names a document. */
    [[nodiscard]] QString restzeit() const { return m_dauert ? QString() : m_stand.restzeit; }
    /** Names the document in hand, in a sentence, once it takes longer than ten seconds; else empty. */
    [[nodiscard]] QString dauersatz() const;
    /** How long a document may take before dauersatz() names it. */
    void setzeGeduld(std::chrono::milliseconds geduld) { m_geduld.setInterval(geduld); }
    /** What the last run has to say beyond its results. */
    [[nodiscard]] const Lauffazit &fazit() const { return m_fazit; }
    [[nodiscard]] const QStringList &hinweise() const { return m_fazit.hinweise; }

Q_SIGNALS:
    void geaendert();
    /** A run has ended; laeuft() is false. */
    void beendet();

private:
    struct Verbindung;
    struct Arbeit;
    static void laufen(Analyse *ziel, const std::shared_ptr<Verbindung> &v, Arbeit arbeit);
    void setzeStand(const Laufstand &stand);
    void geduldBeginnen(bool inArbeit);
    void schluss(const Laufstand &stand, const Lauffazit &fazit);

    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    Laufstand m_stand;
    Lauffazit m_fazit;
    QTimer m_geduld; ///< runs out once, when the document in hand takes long
    bool m_dauert = false;
    bool m_laeuft = false;
    std::shared_ptr<Verbindung> m_verbindung;
    std::stop_source m_ende;
};
} // namespace quillmar::analyse
