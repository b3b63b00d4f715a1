#pragma once

#include "angaben.h"
#include "dokument.h"
#include "lernregeln.h"
#include "lernschritt.h"
#include "nachrechnung.h"
#include "namensraeume.h"
#include "profil.h"

#include <QHash>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::lernen
{
/**
 * What the program has learned from the user's confirmed decisions, kept in the catalogue: the filing places of each
 * counterpart and the equations between names. Every change is reckoned into the waiting documents at once; new ones
 * meet it at classification (Urteiler).
 */
class Lernspeicher
{
public:
    /**
     * With @p profil, what the owner's address proves of an invoice goes before a taught place, and only places that
     * its structure knows are taught.
     */
    explicit Lernspeicher(Datenbank &db, const Profil &profil = {}, const Regelwahl &regeln = {})
        : m_db(db), m_profil(profil), m_nachrechnung(m_db, m_profil, regeln)
    {
    }
    Lernspeicher(const Lernspeicher &) = delete;
    Lernspeicher &operator=(const Lernspeicher &) = delete;

    /** All places, most confirmed first. */
    [[nodiscard]] QList<Eintrag> alle() const;
    /** All name equations, most confirmed first. */
    [[nodiscard]] QList<Gleichung> gleichungen() const;

    /** The name that an equation maps @p name to; none when there is none or it leads to the same spelling. */
    [[nodiscard]] std::optional<QString> gleichwertig(const QString &name) const;
    /** The learned place for a counterpart. */
    [[nodiscard]] std::optional<Eintrag> vorschlag(const QString &gegenueber) const;

    /**
     * Looks at the texts that merken() of the same needs. To be called before the transaction that it is to be part of:
     * then that one reads no texts but of documents that have come or were read again in between.
     */
    void vorlesen(const Angaben &angaben, const QString &vorher);

    /**
     * Stores what the user confirmed: the final values of @p dokument, which the catalogue does not hold yet, @p vorher
     * the counterpart before the correction. What is taught by the movement @p protokollId can be taken back with it.
     * Returns how many waiting documents were adjusted. Throws Fehler when the catalogue cannot be written; nothing is
     * stored then.
     */
    qint64 merken(qint64 dokument, const Angaben &angaben, const QString &vorher, qint64 protokollId = 0);

    /** As the one above, for zuruecknehmen() of the same. */
    void vorlesen(const QList<qint64> &protokollIds);

    /** Takes back what these movements have taught, and what it did to waiting documents. Throws as merken(). */
    void zuruecknehmen(const QList<qint64> &protokollIds);

    /**
     * Documents that wait again: gives them what was learned while they did not. Returns how many waiting documents
     * changed. Throws as merken().
     */
    qint64 nachrechnen(const QList<qint64> &dokumente);

    /**
     * Gives every learned place to the waiting documents of its counterpart, like a correction. Returns how many
     * documents changed.
     */
    qint64 allesAnwenden();

    /** Where the place of a proposal comes from. */
    struct Herkunft {
        enum class Art { Korrektur, Bestaetigt, Baum, Text };
        Art art = Art::Korrektur;
        qint64 dokumente = 0; ///< that speak for it
        QString wort = {};    ///< in them, where the texts decided
        bool operator==(const Herkunft &) const = default;
    };
    /** Of a document whose place was learned. */
    [[nodiscard]] Herkunft herkunft(const Dokument &dokument) const;

    /** All places of all counterparts, by their keys, most confirmed first. */
    [[nodiscard]] QHash<QString, QList<Ortszahl>> alleOrte() const;

    /**
     * Brings the keys that an earlier version has stored into the form of today, once for each catalogue. Two that meet
     * become one: the newer one's values, the sum of the counts. Throws Fehler when the catalogue cannot be written.
     */
    void schluesselUebertragen();

    // Forgetting throws Fehler when the catalogue cannot be written; nothing is forgotten then. Waiting documents are
    // as they were without it.
    void leeren();
    void vergessen(const QString &schluessel);
    void ortVergessen(const QString &schluessel, const Ort &ort);
    void gleichungVergessen(const QString &von);

private:
    [[nodiscard]] std::optional<Lernschritt::Gleichsetzung> gleichungWiderrufen(const QString &von);
    [[nodiscard]] Lernschritt::Gleichsetzung gleichungMerken(const QString &von, const QString &nach);
    [[nodiscard]] Lernschritt::Zuordnung zuordnungMerken(const QString &schluessel, const Angaben &angaben,
                                                         bool korrektur, qint64 dokument);
    void worteZaehlen(const QString &schluessel, const Ort &ort, qint64 dokument);
    /** The words of documents, in how many of them each stands; those without any do not count. */
    struct Wortzahl {
        QHash<QString, qint64> worte = {};
        qint64 dokumente = 0;
        void dazu(const QString &text);
        void umkehren();
    };
    void textZaehlen(qint64 ort, qint64 dokument, qint64 richtung);
    void abgelegtesZaehlen(const QString &schluessel, const QList<Ortszahl> &orte);
    [[nodiscard]] Wortzahl abgelegteWorte(const QStringList &namen, const Ort &ort) const;
    [[nodiscard]] QStringList rechnungsschluessel() const;
    /** What the reviewer has before him, but for what he has changed himself. */
    struct Vorgeschlagen {
        QString gegenueber;
        std::optional<Ort> ort;
    };
    [[nodiscard]] Vorgeschlagen vorgeschlagen(qint64 dokument, const QString &vorher) const;
    void zuordnungZuruecknehmen(const Lernschritt::Zuordnung &zuordnung);
    void gleichungZuruecknehmen(const Lernschritt::Gleichsetzung &gleichsetzung);
    void eintragErneuern(const QString &schluessel);

    Datenbank &m_db;
    Profil m_profil;
    Nachrechnung m_nachrechnung;
};
} // namespace quillmar::lernen
