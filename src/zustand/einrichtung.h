#pragma once

#include "ablagelernen.h"
#include "abschnitt.h"
#include "anfrage.h"
#include "einrichtungsstand.h"
#include "namensraeume.h"
#include "strukturlesung.h"

#include <QObject>
#include <QTimer>

namespace quillmar::lernen
{
class Lernspeicher;
} // namespace quillmar::lernen

namespace quillmar::zustand
{
class Durchgang;
class Katalogpflege;
class Meldestelle;
class Modelldienst;
class Profilwahl;
class Pruefung;

/** What the setup card shows and has done: programs, folders, structure, exclusions, what was learned. */
class Einrichtung : public QObject
{
    Q_OBJECT

public:
    /** The models that it looks at; all outlive it. */
    struct Nachbarn {
        Meldestelle *meldestelle;
        Profilwahl *profilwahl;
        Katalogpflege *katalogpflege;
        Modelldienst *modelldienst;
        Pruefung *pruefung;
        Durchgang *durchgang;
    };
    explicit Einrichtung(const Nachbarn &nachbarn);

    [[nodiscard]] const Einrichtungsstand &stand() const { return m_stand; }
    /** The same with what the other models know; without a profile that of an empty one. Holds while nothing changes.
     */
    [[nodiscard]] Einrichtungslage lage() const;
    /** Learning from the filing tree. */
    [[nodiscard]] Ablagelernen *ablagelernen() { return &m_ablagelernen; }
    /** Looks anew at programs, folders and the learning memory. */
    void einrichtungPruefen();
    /** The setup card is the chosen one: it is looked anew, and only then a large folder is walked through. */
    void setzeGewaehlt(bool gewaehlt);

    /** The section that is shown. */
    [[nodiscard]] Abschnitt abschnitt() const { return m_abschnitt; }
    void setzeAbschnitt(Abschnitt abschnitt);
    [[nodiscard]] Abschnittsstand abschnittsstand(Abschnitt abschnitt) const;
    /** The section to go on with behind @p von; none when nothing is missing anywhere else. */
    [[nodiscard]] std::optional<Abschnitt> naechsterAbschnitt(Abschnitt von) const;
    /** Why no run can be started, for the user; empty when one can. */
    [[nodiscard]] QString starthindernis() const;
    /** The button that goes on, what stands beside it, and whether it can be pressed. */
    struct Fortsetzung {
        QString titel;
        QString grund;
        bool geht = true;
    };
    [[nodiscard]] Fortsetzung fortsetzung() const;

    /** Takes the tree below the target root into the profile and notes what is new or gone. */
    void strukturEinlesen();
    /** Adds an exclusion rule, or the one for a folder that the user picks. Returns why it was not added, or nothing.
     */
    [[nodiscard]] QString ausnahmeAufnehmen(const QString &regel);
    [[nodiscard]] QString ausnahmeWaehlen();
    void ausnahmeEntfernen(const QString &regel);
    void ausnahmenAnwenden();
    /** What the templates make of a waiting document, as they stand. */
    [[nodiscard]] Beispiel beispiel() const;
    void anderesBeispiel();

    void ortVergessen(const QString &kennung);
    void gleichungVergessen(const QString &von);
    void allesVergessen();

    /** Makes the folder for own languages with its template; spracheVorbereitet() tells where it is. */
    void spracheVorbereiten();
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void einrichtungGeaendert();
    void strukturGeaendert();
    void staendeGeaendert(); ///< what abschnittsstand() tells, of whatever section
    void abschnittGeaendert();
    void gelerntGelesen(); ///< the lists of what was learned
    void spracheVorbereitet(const QString &ordner);

private:
    [[nodiscard]] const Profil *aktiv() const;
    void staendeVerfolgen();
    void wechseln();
    void programmePruefen();
    void quelleVerfolgen();
    void quelleZaehlen();
    void gelerntLesen();
    void ablageAnbieten();
    void lernenAendern(const std::function<void(Lernspeicher &)> &aenderung, const QString &erfolg);

    Nachbarn m_nachbarn;
    Einrichtungsstand m_stand;
    Abschnitt m_abschnitt = Abschnitt::Programme;
    bool m_gewaehlt = true;
    Strukturlesung m_struktur;
    Ablagelernen m_ablagelernen;
    QTimer m_zaehltakt;
    QStringList m_zaehlschluessel; ///< what the count was asked for
    Anfrage m_zaehlung;
};
} // namespace quillmar::zustand
