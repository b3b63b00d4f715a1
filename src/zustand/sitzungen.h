#pragma once

#include "anfrage.h"
#include "bilanz.h"
#include "meldestelle.h"
#include "namensraeume.h"
#include "protokollzeile.h"

namespace quillmar::ablage
{
class Protokollbuch;
} // namespace quillmar::ablage

namespace quillmar::zustand
{
class Ausfuehrung;
class Profilwahl;
class Pruefung;

/** The session logs: which there are, the one that is shown, and the turning back of a whole session. */
class Sitzungen : public QObject
{
    Q_OBJECT

public:
    using Ton = Meldestelle::Ton;

    Sitzungen(Profilwahl *profilwahl, Pruefung *pruefung, Ausfuehrung *ausfuehrung);

    [[nodiscard]] const QStringList &protokollDateien() const { return m_dateien; }
    [[nodiscard]] const std::optional<QString> &protokollDatei() const { return m_datei; }
    [[nodiscard]] const std::optional<Protokollkopf> &protokollKopf() const { return m_kopf; }
    [[nodiscard]] const QList<Protokollzeile> &protokollZeilen() const { return m_zeilen; }
    [[nodiscard]] bool protokollLaedt() const { return m_lesung.laeuft(); }
    /** Why the running session's log does not hold its last movement, for the user; empty when it does. */
    [[nodiscard]] QString protokollmangel() const;
    /** The running session's log; null before the first movement. */
    [[nodiscard]] const Protokollbuch *laufendesBuch() const;
    /** Its file; empty before the first movement. */
    [[nodiscard]] QString laufendeDatei() const;
    void protokolleListen();
    void protokollWaehlen(const std::optional<QString> &datei);
    /** Reads on in the shown log, to which the running session may have added. */
    void protokollAuffrischen();
    void protokollDateiWaehlen();

    void protokollZurueckdrehen();
    [[nodiscard]] bool rueckbauLaeuft() const { return m_rueckbau.laeuft; }
    [[nodiscard]] const QString &rueckbauMeldung() const { return m_rueckbau.meldung; }
    [[nodiscard]] double rueckbauAnteil() const { return m_rueckbau.anteil; }
    /** Of what rueckbauMeldung() says. */
    [[nodiscard]] Ton rueckbauTon() const { return m_rueckbau.ton; }
    /** What the last turning back of the shown log came to. */
    [[nodiscard]] const Bilanz &rueckbauBilanz() const { return m_rueckbau.bilanz; }
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void protokollDateienGeaendert();
    void protokollGeaendert();
    void rueckbauGeaendert();
    void zurueckgeholt(const QStringList &pfade); ///< a session was turned back: where its files have come from

private:
    /** A log as it was read. */
    struct Inhalt {
        std::optional<Protokollkopf> kopf;
        QList<Protokollzeile> zeilen;
        [[nodiscard]] static Inhalt von(const QString &datei);
    };
    struct Rueckbau {
        bool laeuft = false;
        QString datei = {}; ///< the log that is being turned back
        QString meldung = {};
        double anteil = 0;
        Ton ton = Ton::Ruhig;
        Bilanz bilanz = {};
        QStringList orte = {}; ///< where its files have come from
    };

    void eintreten();
    void setzeDateien(const QStringList &dateien);
    void setzeInhalt(const Inhalt &inhalt);
    [[nodiscard]] std::function<void(qint64, qint64)> fortschritt();
    void zurueckgedreht(const Bilanz &bilanz);

    Profilwahl *m_profilwahl;
    Pruefung *m_pruefung;
    Ausfuehrung *m_ausfuehrung;
    QStringList m_dateien;
    Anfrage m_liste;
    std::optional<QString> m_datei;
    std::optional<Protokollkopf> m_kopf;
    QList<Protokollzeile> m_zeilen;
    Anfrage m_lesung;
    Anfrage m_nachlesung;   ///< of what was added to the shown log
    bool m_nochmal = false; ///< the log has grown while it was read on
    Rueckbau m_rueckbau;
};
} // namespace quillmar::zustand
