#pragma once

#include "abschnitt.h"
#include "bereitschaft.h"
#include "einrichtungsstand.h"
#include "entwuerfe.h"
#include "handlung.h"
#include "laufbild.h"
#include "modellstand.h"
#include "nacharbeit.h"
#include "protokollbuch.h"
#include "pruefhinweis.h"
#include "reiter.h"
#include "vorlagenmangel.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>
#include <memory>
#include <stop_token>
#include <vector>

class Analyse;
class Briefkasten;
class Lernspeicher;
struct Oeffnung;
class Profilsicherung;

/**
 * The one observable state of the interactive program: the cards read its fields and call its operations, nothing else.
 *
 * Lives on the main thread; its fields change there only, and every change is told by a signal. Whatever waits for a
 * disk, a catalogue, a server or another program runs elsewhere and its result comes back here, so no operation blocks.
 * Failures never leave it: they become the notice.
 */
class Zustand : public QObject
{
    Q_OBJECT

public:
    explicit Zustand(QObject *vater = nullptr);
    /** Ends a run at once and waits at most a second or two for work under way; what is left is settled later. */
    ~Zustand() override;

    // Profiles
    [[nodiscard]] const QList<Profil> &profile() const { return m_profile; }
    [[nodiscard]] const std::optional<Profil> &aktiv() const { return m_aktiv; }
    /** Opens the first profile, or the one called @p name; once it is known to be ready, on the review card. */
    void beginnen(const QString &name = {});
    /** Makes the profile with @p id active. If its catalogue does not open, the former profile stays. */
    void aktivieren(const QUuid &id);
    void neuesProfil();
    /** The active profile with other settings: takes effect at once and is saved. */
    void profilAendern(const Profil &profil);
    void kopierenSetzen(bool kopieren);
    void sichern();
    /** A catalogue is being opened; the fields still belong to the former one. */
    [[nodiscard]] bool oeffnet() const { return m_oeffnet; }
    /** Why the active profile's catalogue did not open, for the user; empty while one is open or being opened. */
    [[nodiscard]] const QString &katalogfehler() const { return m_katalogfehler; }
    [[nodiscard]] QString katalogdatei() const;
    void erneutOeffnen();
    /** Where a list of profiles that could not be read at the start is kept; empty if there was none. */
    [[nodiscard]] const QString &unlesbareProfile() const { return m_unlesbareProfile; }
    /** A profile is active and its catalogue open. */
    [[nodiscard]] bool offen() const { return m_db && m_aktiv; }
    [[nodiscard]] bool bereitZumStart() const { return m_bereitschaft && m_bereitschaft->vollstaendig(); }
    /** None until it has been looked at. */
    [[nodiscard]] const std::optional<Bereitschaft> &bereitschaft() const { return m_bereitschaft; }
    void bereitschaftPruefen();

    // Counts and the document under review
    [[nodiscard]] const Zaehlwerk &zaehlwerk() const { return m_blick.zaehlwerk; }
    [[nodiscard]] qint64 ausgenommen() const { return m_blick.ausgenommen; }
    /** The document under review with the reviewer's changes; null if there is none. */
    [[nodiscard]] const Dokument *aktuelles() const { return m_stueck ? &m_stueck->dokument : nullptr; }
    [[nodiscard]] QList<Pruefhinweis> pruefhinweise() const;
    [[nodiscard]] const Dokument *aehnliches() const;
    /** The preview shows the similar document instead of the one under review. */
    [[nodiscard]] bool partnerZeigen() const { return m_partnerZeigen; }
    void setzePartnerZeigen(bool zeigen);
    /** Paths of the documents that are likely to be shown next. */
    [[nodiscard]] const QStringList &voraus() const { return m_blick.voraus; }
    void feldSetzen(Feld feld, const QString &wert);
    void altenOrtBehalten();
    /** Why the date cannot be filed, for the user; empty for a day and for none. */
    [[nodiscard]] QString datumsmangel() const;
    [[nodiscard]] bool datumGueltig() const { return datumsmangel().isEmpty(); }
    /** New file name and the levels of the target folder below the target root, from the fields as they stand. */
    [[nodiscard]] QString neuerName() const;
    [[nodiscard]] QStringList zielpfad() const;
    void aktualisieren();

    /** The document under review has not been on the screen yet. Told by whoever shows it; false without a window. */
    [[nodiscard]] bool ungesehen() const { return m_ungesehen; }
    void setzeUngesehen(bool ungesehen);

    // Deeds of the review, one at a time. Looking around, and what takes back, is kept (one) while another one is under
    // way; filing, skipping and setting aside are not, nor are they done before the document was seen.
    void uebernehmen();
    void zuruecklegen();
    void aussortieren();
    /** Takes the last deed back, whatever kind it was. */
    void rueckgaengig();
    /** Takes the last movement back. */
    void letztenSchrittZurueck();
    void weiter(Richtung richtung);
    /** Takes back what the notice tells of. */
    void zurueck();
    void zurueckgestellteVorlegen();
    void dublettenAusraeumen();
    /** The target folder is right as it is; what was filed there was moved elsewhere by hand. */
    void zielBestaetigen();
    /** Stops a long deed, or the turning back of a session, after what is in hand; meanwhile @p vorgang is told. */
    void anhalten(const QString &vorgang = {});
    /** A long deed is under way that anhalten() ends after the document in hand. */
    [[nodiscard]] bool anhaltbar() const { return m_anhaltbar && !m_halt.stop_requested(); }
    [[nodiscard]] bool raeumtAus() const { return m_anhaltbar; }
    [[nodiscard]] bool beschaeftigt() const { return m_beschaeftigt || m_rueckbauLaeuft; }
    /** The document under review is being filed, skipped or set aside: changes to its fields would come too late. */
    [[nodiscard]] bool angabenFest() const { return m_angabenFest; }
    /** What a long deed is doing, for the user; empty if none. */
    [[nodiscard]] const QString &vorgang() const { return m_vorgang; }
    [[nodiscard]] double vorgangsanteil() const { return m_vorgangsanteil; }

    // What was done and what is to be said
    enum class Ton { ruhig, gut, warnung };
    [[nodiscard]] const QString &hinweis() const { return m_hinweis; }
    /** The last deed: what happened to which document. Empty after one that failed. */
    [[nodiscard]] const QString &geschehen() const { return m_geschehen; }
    [[nodiscard]] Ton ton() const { return m_ton; }
    /** Deed and notice, the newer one first, without what is empty; ton() is the first one's. */
    [[nodiscard]] QStringList meldungen() const;
    /** zurueck() has something to take back. */
    [[nodiscard]] bool zurueckMoeglich() const { return m_rueckweg.has_value(); }
    /** rueckgaengig() has something to take back. */
    [[nodiscard]] bool umkehrbar() const { return m_blick.umkehrbar; }
    /** letztenSchrittZurueck() has something to take back. */
    [[nodiscard]] bool hatBewegung() const { return m_blick.bewegt; }
    void melden(const QString &hinweis, Ton ton = Ton::warnung);
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

    // The analysis; null without an open catalogue
    [[nodiscard]] const Analyse *analyse() const { return m_analyse.get(); }
    enum class Durchgang {
        ganz,
        erneut,      ///< what failed before is tried again
        nurLesen,    ///< without the model
        erneutLesen, ///< both
    };
    void durchgangStarten(Durchgang art = Durchgang::ganz);
    /** Starts one if the model can be asked, else tells so by startFraglich(): every document would fail by itself. */
    void durchgangErbitten(Durchgang art = Durchgang::ganz);
    /** Of what failed before it reopens only @p nurDies, if that is given. */
    void durchgangErbitten(Durchgang art, std::optional<qint64> nurDies);
    /** The one document that the run asked for last is to try again, if it was asked for one. */
    [[nodiscard]] std::optional<qint64> erbetenesDokument() const { return m_erneutNur; }
    /** It is being looked whether the model is there. */
    [[nodiscard]] bool startErbeten() const { return m_erbeten.has_value(); }
    /** That takes long enough to be said. */
    [[nodiscard]] bool startWartet() const { return startErbeten() && m_startWartet; }
    void durchgangAnhalten();
    [[nodiscard]] const Laufbild &laufbild() const { return m_laufbild; }
    /** What the last run came to. */
    [[nodiscard]] const Laufende &laufende() const { return m_laufende; }
    /** What the runs left to look after; read anew by nacharbeitLesen(). */
    [[nodiscard]] const Nacharbeit &nacharbeit() const { return m_nacharbeit; }
    void nacharbeitLesen();
    /** Opens one failed document again and starts a run. */
    void erneutVersuchen(qint64 id);

    // Learning memory
    void gelerntVergessen(const QString &schluessel);
    void gleichungVergessen(const QString &von);

    // Model
    [[nodiscard]] bool modellBereit() const { return m_modell.art == Modellstand::Art::bereit; }
    [[nodiscard]] const QString &modellMeldung() const { return m_modell.meldung; }
    [[nodiscard]] const Modellstand &modellstand() const { return m_modell; }
    void modellPruefen();
    void modellLaden();
    /** The same for the larger model; the other one stays usable meanwhile. */
    void modellGrossLaden();
    void modellLadenAbbrechen();

    // Session logs
    [[nodiscard]] const QStringList &protokollDateien() const { return m_protokollDateien; }
    [[nodiscard]] const std::optional<QString> &protokollDatei() const { return m_protokollDatei; }
    [[nodiscard]] const std::optional<Protokollkopf> &protokollKopf() const { return m_protokollKopf; }
    [[nodiscard]] const QList<Protokollzeile> &protokollZeilen() const { return m_protokollZeilen; }
    [[nodiscard]] bool protokollLaedt() const { return m_protokollLaedt; }
    [[nodiscard]] bool rueckbauLaeuft() const { return m_rueckbauLaeuft; }
    [[nodiscard]] const QString &rueckbauMeldung() const { return m_rueckbauMeldung; }
    [[nodiscard]] double rueckbauAnteil() const { return m_rueckbauAnteil; }
    /** Of what rueckbauMeldung() says. */
    [[nodiscard]] Ton rueckbauTon() const { return m_rueckbauTon; }
    /** What the last turning back of the shown log came to. */
    [[nodiscard]] const Bilanz &rueckbauBilanz() const { return m_rueckbauBilanz; }
    /** Why the running session's log does not hold its last movement, for the user; empty when it does. */
    [[nodiscard]] const QString &protokollmangel() const { return m_protokollmangel; }
    /** The running session's log; null before the first movement. */
    [[nodiscard]] const Protokollbuch *laufendesBuch() const { return m_buch.get(); }
    void protokolleListen();
    void protokollWaehlen(const std::optional<QString> &datei);
    /** Reads on in the shown log, to which the running session may have added. */
    void protokollAuffrischen();
    void protokollDateiWaehlen();
    void protokollZurueckdrehen();

    void ausnahmenAnwenden();

    // Setting up
    [[nodiscard]] const Einrichtungsstand &einrichtung() const { return m_einrichtung; }
    /** Looks anew at programs, folders and the learning memory. Happens by itself when the setup card is chosen. */
    void einrichtungPruefen();
    /** The section that is shown. */
    [[nodiscard]] Abschnitt abschnitt() const { return m_abschnitt; }
    void setzeAbschnitt(Abschnitt abschnitt);
    [[nodiscard]] Abschnittsstand abschnittsstand(Abschnitt abschnitt) const;
    /** The section to go on with behind @p von; none when nothing is missing anywhere else. */
    [[nodiscard]] std::optional<Abschnitt> naechsterAbschnitt(Abschnitt von) const;
    /** Why no run can be started, for the user; empty when one can. */
    [[nodiscard]] QString starthindernis() const;
    /** Takes the tree below the target root into the profile and notes what is new or gone. */
    void strukturEinlesen();
    /** Adds an exclusion rule, or the one for a folder that the user picks. Returns why it was not added, or nothing.
     */
    [[nodiscard]] QString ausnahmeAufnehmen(const QString &regel);
    [[nodiscard]] QString ausnahmeWaehlen();
    void ausnahmeEntfernen(const QString &regel);
    void allesVergessen();
    /** What the templates make of a waiting document, as they stand. */
    [[nodiscard]] Beispiel beispiel() const;
    void anderesBeispiel();
    /** Some filing kind of the structure has a rubric of that name. */
    [[nodiscard]] bool kenntRubrik(const QString &rubrik) const;
    /** Makes the folder for own languages with its template; spracheVorbereitet() tells where it is. */
    void spracheVorbereiten();
    /** Where profiles and catalogues are kept. */
    [[nodiscard]] static QString datenordner();
    /** Takes the profile out of the list; its catalogue stays. */
    void profilEntfernen(const QUuid &id);

    // Interface
    [[nodiscard]] Reiter reiter() const { return m_reiter; }
    void setzeReiter(Reiter reiter);
    /** Share of the first pane of a divided card, 0.25 to 0.75. */
    [[nodiscard]] double teilung() const { return m_teilung; }
    void setzeTeilung(double teilung);

    /**
     * Asks for a folder; none when cancelled. The question begins in the folder that was last chosen for @p zweck, else
     * in @p sonst, else where anything was chosen last. The interface (or a test) answers through the choosers below.
     */
    [[nodiscard]] static std::optional<QString> ordnerWaehlen(const QString &titel, const QString &zweck = {},
                                                              const QString &sonst = {});
    using Waehler = std::function<std::optional<QString>(const QString &titel, const QString &beginn)>;
    static Waehler ordnerwaehler;
    static Waehler protokollwaehler;

Q_SIGNALS:
    void profileGeaendert(); ///< the list, or settings of the active profile
    void aktivGeaendert();   ///< another profile
    void oeffnetGeaendert();
    void bereitschaftGeaendert();
    void zaehlwerkGeaendert();
    void aktuellesGeaendert(); ///< another document, or none
    void angabenGeaendert();   ///< values of the same document, by the reviewer or from outside
    void partnerZeigenGeaendert();
    void vorausGeaendert();
    void ungesehenGeaendert();
    void zuFruehGedrueckt(); ///< a deed came before its document was seen, and was not done
    void hinweisGeaendert(); ///< notice, deed or what can be taken back
    void beschaeftigtGeaendert();
    void vorgangGeaendert();
    void laufGeaendert();
    void startFraglich(Zustand::Durchgang art); ///< the run asked for would have no model
    void zielFraglich(); ///< a deed was refused: of what was filed last nothing lies in the target folder
    void laufBeendet();  ///< and what it came to is known
    void nacharbeitGeaendert();
    void gelerntGeaendert();
    void gelerntGelesen(); ///< the lists of what was learned
    void einrichtungGeaendert();
    void strukturGeaendert();
    void abschnittGeaendert();
    void spracheVorbereitet(const QString &ordner);
    void modellGeaendert();
    void modellGeprueft(); ///< a check has ended, with whatever result
    void protokollDateienGeaendert();
    void protokollGeaendert();
    void rueckbauGeaendert();
    void reiterGeaendert();
    void teilungGeaendert();

private:
    using Tat = std::function<Geschehen(const Arbeitsplatz &)>;
    struct Tatfolge;
    struct Ladeausgang;

    void profileUebernehmen(const QList<Profil> &profile);
    void profilFolgen(const Profil &vorher);
    void oeffnen(const Profil &profil);
    void geoeffnet(const QUuid &id, const Oeffnung &oeffnung);
    void analyseAnlegen();
    void analyseAbloesen();
    void erbetenesStarten();
    void laufFertig();
    void nacharbeitSetzen(const Nacharbeit &nacharbeit);
    void laufendeLesen(Laufende ende);

    [[nodiscard]] std::optional<qint64> dokumentId() const
    {
        return m_stueck ? std::optional(m_stueck->dokument.id) : std::nullopt;
    }
    [[nodiscard]] bool kannHandeln() const { return offen() && !m_oeffnet; }
    void handeln(const Tat &tat, const Wunsch &danach, const QString &vorgang);
    [[nodiscard]] std::function<bool(qint64, qint64)> vorgangMelder(const QString &vorgang);
    void tatFertig(const Tatfolge &folge);
    void warten(std::function<void()> spaeter);
    [[nodiscard]] bool zuFrueh();
    void freigeben();
    void zeigen(const Blick &blick);
    void auffrischen(const Blick &blick);
    void stueckSetzen(std::optional<Pruefstueck> stueck);
    void vorgangSetzen(const QString &text, double anteil);
    void modellSetzen(const Modellstand &stand);
    [[nodiscard]] Modellstand mitLadestand(const Modellstand &gefunden) const;
    void lernenAendern(const std::function<void(Lernspeicher &)> &aenderung, const QString &erfolg);
    void rueckbauFertig(const Bilanz &bilanz);
    void ladenBeginnen(const QString &modell);
    void ladenMelden(const QString &text, qint64 fertig, qint64 gesamt);
    void geladen(const Ladeausgang &ausgang);
    void einrichtungFolgen();
    void quelleVerfolgen();
    void quelleZaehlen();
    void strukturEingelesen(const std::optional<QList<Zweig>> &zweige);
    void strukturOrdnen();
    void gelerntLesen();
    void profilSchliessen();

    QList<Profil> m_profile;
    std::optional<Profil> m_aktiv;
    std::shared_ptr<Datenbank> m_db;
    std::unique_ptr<Analyse> m_analyse;
    std::vector<std::unique_ptr<Analyse>> m_auslaufende; ///< runs of former profiles that finish their document
    Laufbild m_laufbild;
    Laufende m_laufende;
    std::optional<Durchgang> m_erbeten;
    bool m_startWartet = false;
    std::optional<qint64> m_erneutNur; ///< of the run asked for
    Nacharbeit m_nacharbeit;
    bool m_liestNacharbeit = false;
    Profilsicherung *m_sicherung;
    std::shared_ptr<Briefkasten> m_briefe;

    quint64 m_oeffnung = 0; ///< counts the openings; what an earlier one asked for is not shown any more
    bool m_oeffnet = false;
    QString m_katalogfehler;
    QString m_unlesbareProfile;
    bool m_ersteWahl = true; ///< nobody has chosen a card yet
    std::optional<Bereitschaft> m_bereitschaft;
    quint64 m_bereitschaftsfrage = 0;

    Blick m_blick;
    std::optional<Pruefstueck> m_stueck; ///< m_blick's document with the reviewer's changes
    Entwuerfe m_entwuerfe;
    bool m_partnerZeigen = false;
    bool m_ungesehen = false;

    bool m_beschaeftigt = false;
    bool m_angabenFest = false;
    bool m_anhaltbar = false;
    bool m_blickt = false;
    quint64 m_blickfrage = 0; ///< counts what changes the document under review; an older look is not shown any more
    std::function<void()> m_spaeter; ///< the deed asked for meanwhile
    QString m_vorgang;
    double m_vorgangsanteil = 0;
    std::stop_source m_halt;

    QString m_hinweis;
    bool m_hinweisIstNeuer = false; ///< than the deed
    QStringList m_vorab;            ///< said before the opening under way had its own say
    QString m_geschehen;
    Ton m_ton = Ton::ruhig;
    std::optional<Rueckweg> m_rueckweg;

    Modellstand m_modell;
    quint64 m_modellfrage = 0;
    std::stop_source m_ladeende;
    QElapsedTimer m_ladebeginn; ///< of the part under way
    qint64 m_ladeanfang = 0;    ///< bytes that were there already when it began
    std::shared_ptr<Briefkasten> m_ladebriefe;

    Einrichtungsstand m_einrichtung;
    Abschnitt m_abschnitt = Abschnitt::programme;
    QList<Zweig> m_strukturVorher;                 ///< before the last reading; empty: nothing to compare with
    QString m_strukturwurzel;                      ///< below which the structure was read, as far as is known
    std::optional<QList<Zweig>> m_strukturGezeigt; ///< that the lines were made from
    QTimer m_zaehltakt;
    QStringList m_zaehlschluessel; ///< what the count was asked for
    quint64 m_zaehlfrage = 0;
    std::stop_source m_zaehlende;

    std::shared_ptr<Protokollbuch> m_buch;
    QString m_protokollmangel;
    QStringList m_protokollDateien;
    std::optional<QString> m_protokollDatei;
    std::optional<Protokollkopf> m_protokollKopf;
    QList<Protokollzeile> m_protokollZeilen;
    bool m_protokollLaedt = false;
    quint64 m_protokollfrage = 0;
    bool m_rueckbauLaeuft = false;
    QString m_rueckbauMeldung;
    double m_rueckbauAnteil = 0;
    Ton m_rueckbauTon = Ton::ruhig;
    Bilanz m_rueckbauBilanz;
    QString m_rueckbauDatei; ///< the log that is being turned back

    Reiter m_reiter = Reiter::einrichtung;
    double m_teilung;
};
