#pragma once

#include "ablagefund.h"
#include "anfrage.h"
#include "namensraeume.h"

#include <QObject>
#include <functional>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
class Meldestelle;
class Profilwahl;

/**
 * Learning from the filing tree of the active profile: reading it, what was found and is ticked, taking that over or
 * all of it back, and the offer to do so. Nothing of the tree is opened; what is found is forgotten with the profile.
 */
class Ablagelernen : public QObject
{
    Q_OBJECT

public:
    enum class Lage {
        Ruht,
        Liest,
        Auswahl,  ///< what was found can be ticked
        Schreibt, ///< what was ticked is being taken over
        NimmtZurueck,
    };

    /** Both outlive it. */
    Ablagelernen(Profilwahl *profilwahl, Meldestelle *meldestelle);

    [[nodiscard]] Lage lage() const { return m_lage; }
    /** What goes on or came of it; empty: nothing was asked for yet. */
    [[nodiscard]] const Befund &befund() const { return m_befund; }
    /** How much of taking over or back is done, 0 to 1. */
    [[nodiscard]] double anteil() const { return m_anteil; }

    // What was found, most documents first; of use in Lage::Auswahl and Lage::Schreibt
    [[nodiscard]] qsizetype anzahl() const { return m_fund.zeilen.size(); }
    [[nodiscard]] Fundzeile zeile(qsizetype stelle) const { return fundzeile(m_fund.zeilen.at(stelle)); }
    [[nodiscard]] bool trifft(qsizetype stelle, const QString &suche) const
    {
        return trifftSuche(m_fund.zeilen.at(stelle), suche);
    }
    [[nodiscard]] QStringList uebrige() const { return restsaetze(m_fund); }
    /** The ticked ones. */
    [[nodiscard]] qsizetype angekreuzte() const { return m_angekreuzte; }
    /** Ticks those of the rows that can be; nothing while they are being taken over. */
    void setzeAngekreuzt(const QList<qsizetype> &stellen, bool angekreuzt);
    /** As they were proposed. */
    void vorschlagen(const QList<qsizetype> &stellen);

    void lesen();
    /** Ends the reading, or leaves what was found. */
    void abbrechen();
    void uebernehmen();
    void zuruecknehmen();

    /** It is offered to learn from the tree. */
    [[nodiscard]] bool angebot() const { return m_angebot && m_lage == Lage::Ruht; }
    /**
     * The setup is complete and in front: offers it if documents lie in the tree, nothing was taken over, and it was
     * never offered for this profile. Asked again and again, it looks once for each target root.
     */
    void anbieten();
    /** It is to be seen: from now on it counts as offered. */
    void angebotGesehen();
    void ablehnen();

    /** Another profile. */
    void wechseln();
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void geaendert();           ///< lage(), befund(), anteil(), angebot()
    void gefunden();            ///< other rows
    void angekreuztGeaendert(); ///< of whatever row
    void gelernt();             ///< the memory knows more or less than before

private:
    /** What is said, made anew when another language was chosen. */
    using Befundregel = std::function<Befund()>;
    void setzen(Lage lage, const Befundregel &befund = {});
    void gelesen(const Ausgang<Ablagelesung::Ergebnis> &ausgang);
    void setzeFund(const Ablagelesung::Ergebnis &fund);
    void schreiben(Lage lage, const QList<lernen::Baumkenntnis> &kenntnisse);
    void fortschreiben(const Datenbank *db, qint64 gegenueber, qint64 erledigt, qint64 gesamt);
    void geschrieben(qint64 gegenueber, const Ausgang<qint64> &ausgang);
    void einstellungenPruefen(const Profil &vorher);
    void zaehlen();
    [[nodiscard]] std::shared_ptr<Datenbank> db() const;

    Profilwahl *m_profilwahl;
    Meldestelle *m_meldestelle;
    Lage m_lage = Lage::Ruht;
    Befundregel m_regel;
    Befund m_befund;
    QString m_fehler; ///< that the rule tells
    double m_anteil = 0;
    Ablagelesung::Ergebnis m_fund;
    qsizetype m_angekreuzte = 0;
    bool m_angebot = false;
    bool m_angebotGesehen = false;
    QString m_angebotenFuer; ///< the target root that was looked at for the offer
    Anfrage m_lesung;
    Anfrage m_angebotsfrage;
};
} // namespace quillmar::zustand
