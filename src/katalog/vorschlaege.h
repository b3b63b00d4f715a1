#pragma once

#include "dokument.h"
#include "namensraeume.h"

#include <QList>
#include <QStringList>

namespace quillmar::katalog
{
class Datenbank;

/**
 * The proposals: which documents a model is asked about, what it says, and what the learning memory makes of it. Speaks
 * for the columns of dokumente that hold them, and for the tables nachgeprueft and zweitfragen. Throws Katalogfehler.
 */
class Vorschlaege
{
public:
    explicit Vorschlaege(Datenbank &db) : m_db(db) {}

    /** A document with the text that a model is asked about. */
    struct Vorlage {
        Dokument dokument;
        QString text; ///< empty if there is none
    };

    // Classification
    [[nodiscard]] QList<qint64> einzuordnende() const;
    /** None if it was handled, taught or excluded meanwhile. */
    [[nodiscard]] std::optional<Vorlage> einzuordnendes(qint64 id) const;
    struct Vorschlag {
        Angaben angaben;
        double konfidenz = 0; ///< 0 to 1
        QString name;         ///< that the file would get
        QString dauer;        ///< seconds, as a decimal text
        Ort modellOrt;        ///< before what was learned
        QString ortQuelle;
        QString gelerntVon;
    };
    /** The document waits for review. Returns whether it does; not one that was handled or excluded meanwhile. */
    bool speichern(qint64 id, const Vorschlag &vorschlag);
    /** It waits for review without a proposal. Returns whether it does; false as above. */
    bool scheitern(qint64 id, const QString &name, const QString &fehler, const QString &dauer);

    // Second opinion
    [[nodiscard]] QList<qint64> strittige() const;
    [[nodiscard]] std::optional<Vorlage> strittiges(qint64 id) const;
    /**
     * The larger model's answer; @p gelerntVon is the entry that gave the place, if one did. Returns whether it was
     * stored: not for one that was taught, handled, decided by hand or excluded meanwhile.
     */
    bool nachpruefen(qint64 id, const Angaben &angaben, double konfidenz, const std::optional<QString> &gelerntVon);
    /** Not asked about again by itself; @p unbeantwortet: but where the user wishes it. */
    void nichtNachgeprueft(qint64 id, bool unbeantwortet);
    [[nodiscard]] bool istNachgeprueft(qint64 id) const;
    /** Waiting documents whose second opinion was asked for in vain. */
    [[nodiscard]] qint64 unbeantwortete() const;

    // What failed
    struct Gescheitertes {
        qint64 id = 0;
        QString pfad;
        QString fehler;
    };
    [[nodiscard]] QList<Gescheitertes> gescheiterte() const;
    /** Back to the beginning; @p lesen: it is read again as well. */
    void wiederOeffnen(qint64 id, bool lesen);
    /** Documents whose second opinion was asked for in vain, also those that do not wait any more. */
    [[nodiscard]] QList<qint64> zweitfragen() const;
    /** It is asked about again. Returns whether it still waits. */
    bool zweitfrageOeffnen(qint64 id);

    // Corrections by a rule
    [[nodiscard]] bool istOffenMit(qint64 id, const QString &gegenueber) const;
    void setzeGegenueber(qint64 id, const QString &gegenueber, const std::optional<double> &konfidenz);
    /** Unless its category is no longer @p alt. */
    void rubrikBerichtigen(qint64 id, const QString &alt, const QString &neu, double konfidenz);

    // What was learned, applied to waiting documents
    /** Counterparts of the waiting documents, each once. */
    [[nodiscard]] QStringList wartendeGegenueber() const;
    /** Entries of the learning memory have another key from now on. */
    void umschluesseln(const QString &alt, const QString &neu);

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
