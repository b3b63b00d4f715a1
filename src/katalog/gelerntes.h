#pragma once

#include "eintrag.h"
#include "namensraeume.h"

#include <QList>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;

/** What was learned, as it is stored: the tables gelernt, namen, lernschritte and uebertragungen. Throws Katalogfehler.
 */
class Gelerntes
{
public:
    explicit Gelerntes(Datenbank &db) : m_db(db) {}

    /** Most confirmed first. */
    [[nodiscard]] QList<Eintrag> zuordnungen() const;
    [[nodiscard]] std::optional<Eintrag> zuordnung(const QString &schluessel) const;
    /** Those whose key contains @p schluessel, is contained in it, or differs only where it has digits; most confirmed
     * first. */
    [[nodiscard]] QList<Eintrag> verwandte(const QString &schluessel) const;
    /** Stores it in place of the one with the same key. */
    void setzeZuordnung(const Eintrag &eintrag);
    void zuordnungStreichen(const QString &schluessel);

    /** Most confirmed first. */
    [[nodiscard]] QList<Gleichung> gleichungen() const;
    [[nodiscard]] std::optional<Gleichung> gleichung(const QString &von) const;
    /** Stores it in place of the one with the same key. */
    void setzeGleichung(const Gleichung &gleichung);
    void gleichungStreichen(const QString &von);

    void leeren();

    // What an accept taught, by the number of its movement
    void schrittSchreiben(qint64 protokollId, const QByteArray &schritt);
    [[nodiscard]] QByteArray schritt(qint64 protokollId) const;
    void schrittStreichen(qint64 protokollId);

    // Two entries that get one key become one: the newer one's values, the sum of the counts.
    void zuordnungUmschluesseln(const QString &alt, const QString &neu);
    void gleichungUmschluesseln(const QString &alt, const QString &neu);
    /** Something was carried over from an earlier version, once. */
    [[nodiscard]] bool istUebertragen(const QString &was) const;
    void uebertragenVermerken(const QString &was);

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
