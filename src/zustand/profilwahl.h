#pragma once

#include "anfrage.h"
#include "bereitschaft.h"
#include "namensraeume.h"

#include <QObject>
#include <QUuid>

namespace quillmar::zustand
{
class Meldestelle;
class OffenesProfil;
struct Oeffnung;
class Profilsicherung;

/** The profiles: which there are, which one is active and open, and whether it is ready for a run. */
class Profilwahl : public QObject
{
    Q_OBJECT

public:
    explicit Profilwahl(Meldestelle *meldestelle);
    ~Profilwahl() override;

    [[nodiscard]] const QList<Profil> &profile() const { return m_profile; }
    /** Null if none is. */
    [[nodiscard]] const Profil *aktiv() const;
    /** Where profiles and catalogues are kept. */
    [[nodiscard]] static QString datenordner();
    /** Where a list of profiles that could not be read at the start is kept; empty if there was none. */
    [[nodiscard]] const QString &unlesbareProfile() const { return m_unlesbareProfile; }

    /** Opens the first profile, or the one called @p name. */
    void beginnen(const QString &name = {});
    /** Makes the profile with @p id active. If its catalogue does not open, the former profile stays. */
    void aktivieren(const QUuid &id);
    void erneutOeffnen();
    /** Has the copy @p datei take the place of the active profile's catalogue. Not while anything is under way. */
    void sicherungEinsetzen(QString datei);
    void neuesProfil();
    /** The active profile with other settings: takes effect at once and is saved. */
    void setzeProfil(const Profil &profil);
    /** The same by what @p aenderung does to it; nothing while none is active. */
    void aendern(const std::function<void(Profil &)> &aenderung);
    void setzeKopieren(bool kopieren);
    /** Takes the profile out of the list; its catalogue stays. Not while a deed is under way. */
    void profilEntfernen(const QUuid &id);
    /** A deed is under way. Told by who carries it out. */
    void setzeInArbeit(bool arbeit) { m_inArbeit = arbeit; }
    void sichern();
    /** Looks for settings that another program has stored. */
    void nachlesen();

    /** A catalogue is being opened; everything still belongs to the former one. */
    [[nodiscard]] bool oeffnet() const { return m_oeffnung.laeuft(); }
    /** What that is, for the user. */
    [[nodiscard]] QString oeffnungssatz() const;
    /** Why the active profile's catalogue did not open, for the user; empty while one is open or being opened. */
    [[nodiscard]] const QString &katalogfehler() const { return m_katalogfehler; }
    [[nodiscard]] QString katalogdatei() const;
    /** A profile is active and its catalogue open. */
    [[nodiscard]] bool offen() const { return m_offenes != nullptr; }
    /** Null unless offen(). */
    [[nodiscard]] OffenesProfil *offenes() const { return m_offenes.get(); }
    /** It is open and not about to be left. */
    [[nodiscard]] bool kannHandeln() const { return offen() && !oeffnet(); }

    [[nodiscard]] bool bereitZumStart() const { return m_bereitschaft && m_bereitschaft->vollstaendig(); }
    /** None until it has been looked at. */
    [[nodiscard]] const std::optional<Bereitschaft> &bereitschaft() const { return m_bereitschaft; }
    void bereitschaftPruefen();
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void profileGeaendert();                           ///< the list, or settings of the active profile
    void einstellungenGeaendert(const Profil &vorher); ///< those of the active profile; behind profileGeaendert()
    void angelegt();                                   ///< a new profile, by the user
    void oeffnetGeaendert();
    /** For the models: offenes() is another one, or none. @p verlassenes (may be null) is destroyed right after. */
    void gewechselt(OffenesProfil *verlassenes);
    void aktivGeaendert(); ///< another profile
    /** For the models, behind both: what was found when it was opened; nothing when none is open. */
    void eingetreten(const Oeffnung &gefunden);
    void bereitschaftGeaendert();

private:
    void oeffnen(const Profil &profil);
    void oeffnen(const QUuid &id, const std::function<Oeffnung()> &arbeit);
    void geoeffnet(const QUuid &id, const Oeffnung &oeffnung);
    void wechseln(std::unique_ptr<OffenesProfil> neues);
    void schliessen();
    void setzeAktives(const Profil &profil);
    void uebernehmen(const QList<Profil> &profile);
    void folgen(const Profil &vorher);

    Meldestelle *m_meldestelle;
    Profilsicherung *m_sicherung;
    QList<Profil> m_profile;
    std::unique_ptr<OffenesProfil> m_offenes;
    std::optional<Profil> m_geschlossenes; ///< the active one while none is open
    Anfrage m_oeffnung;
    QString m_katalogfehler;
    QString m_unlesbareProfile;
    QStringList m_vorab; ///< said before the opening under way had its own say
    std::optional<Bereitschaft> m_bereitschaft;
    Anfrage m_bereitschaftsfrage;
    bool m_inArbeit = false;
    bool m_setztEin = false; ///< the opening under way began with a copy
};
} // namespace quillmar::zustand
