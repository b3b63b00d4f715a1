#pragma once

#include "angaben.h"
#include "lernregeln.h"
#include "namensraeume.h"
#include "profil.h"
#include "rechnungsrichtung.h"

#include <QHash>
#include <QSet>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::lernen
{
/**
 * What the program has learned from the user's confirmed decisions, kept in the catalogue: the filing place of each
 * counterpart and the equations between names. Applied to waiting documents at once, to new ones at classification.
 */
class Lernspeicher
{
public:
    /** With @p profil, what the owner's address proves of an invoice goes before a taught place. */
    explicit Lernspeicher(Datenbank &db, const Profil &profil = {})
        : m_db(db), m_profil(profil), m_richtung(profil.eigeneAnschriften)
    {
    }

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
     * Stores what the user confirmed: the final values of @p dokument, @p vorher the counterpart before the
     * correction. Returns how many waiting documents were adjusted. Throws Fehler when the catalogue cannot be written;
     * nothing is stored then.
     */
    qint64 merken(qint64 dokument, const Angaben &angaben, const QString &vorher);

    /**
     * Gives every learned place to the waiting documents of its counterpart. A document that several entries fit takes
     * the one that vorschlag() ranks first. Returns how many documents changed.
     */
    qint64 allesAnwenden();

    /**
     * Brings the keys that an earlier version has stored into the form of today, once for each catalogue. Two that meet
     * become one: the newer one's values, the sum of the counts. Throws Fehler when the catalogue cannot be written.
     */
    void schluesselUebertragen();

    // Forgetting throws Fehler when the catalogue cannot be written; nothing is forgotten then.
    void leeren();
    void vergessen(const QString &schluessel);
    void gleichungVergessen(const QString &von);

private:
    void gleichungMerken(const QString &von, const QString &nach);
    void zuordnungMerken(const QString &schluessel, const Angaben &angaben);
    // Each gives the waiting documents that changed, @p ausser one that is left alone.
    /** The learned place to the documents of its counterpart. */
    QSet<qint64> anwenden(const QString &schluessel, const QString &name, const Ort &ort, qint64 ausser);
    /** The name @p nach to the documents whose counterpart has the key @p von. */
    QSet<qint64> namenAngleichen(const QString &von, const QString &nach, qint64 ausser);
    QSet<qint64> aufWartende(const QList<Eintrag> &eintraege, const QString &nurSchluessel, qint64 ausser);

    QSet<qint64> eintragen(const QString &gegenueber, const Eintrag &eintrag, qint64 ausser);
    void vorlesen(const QString &gegenueber);
    [[nodiscard]] QString rubrikFuer(qint64 dokument, const QString &textHash, const QString &gelernte) const;
    [[nodiscard]] Rechnungsrichtung::Richtung richtungVon(qint64 dokument) const;

    /** Which way an invoice goes, found out of the text with this hash. */
    struct Erkannt {
        QString textHash;
        Rechnungsrichtung::Richtung richtung = Rechnungsrichtung::Richtung::Unbekannt;
    };

    Datenbank &m_db;
    Profil m_profil;
    Rechnungsrichtung m_richtung;
    QHash<qint64, Erkannt> m_erkannt; ///< by document
};
} // namespace quillmar::lernen
