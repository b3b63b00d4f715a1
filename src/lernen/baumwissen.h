#pragma once

#include "eintrag.h"
#include "lernregeln.h"
#include "nachrechnung.h"
#include "namensraeume.h"
#include "profil.h"

#include <QList>
#include <QSet>
#include <QString>
#include <functional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::lernen
{
/** What the filing tree tells of one counterpart. */
struct Baumkenntnis {
    struct Platz {
        Ort ort;
        qint64 dokumente = 0; ///< that lie there
        bool operator==(const Platz &) const = default;
    };
    QString schluessel;
    QString anzeige;      ///< the most frequent spelling
    QList<Platz> plaetze; ///< each once, complete, the most frequent one first
};

/**
 * What the memory knows from the filing tree. It stands beside what the reviewer has taught and never in its place: an
 * entry is made only for a counterpart that has none.
 */
class Baumwissen
{
public:
    /** With @p profil, what the owner's address proves of an invoice goes before a learned place. */
    explicit Baumwissen(Datenbank &db, const Profil &profil = {})
        : m_db(db), m_profil(profil), m_nachrechnung(m_db, m_profil)
    {
    }
    Baumwissen(const Baumwissen &) = delete;
    Baumwissen &operator=(const Baumwissen &) = delete;

    /** What becomes of the waiting documents of the counterparts. */
    enum class Wartende { Lassen, Nachrechnen };
    /** Hears how many counterparts are done, of all that there are; between them, never within one. */
    using Fortschritt = std::function<void(qint64 erledigt, qint64 gesamt)>;

    /**
     * From now on @p kenntnisse, each counterpart once, is what the tree tells; what it told before is forgotten.
     * Returns how many waiting documents changed. Written in short transactions, each counterpart as a whole: after a
     * failure the same call does the rest. Throws Fehler.
     */
    qint64 uebernehmen(const QList<Baumkenntnis> &kenntnisse, Wartende wartende, const Fortschritt &fortschritt = {});

    /** Nothing is known from the tree any more; as uebernehmen() of nothing. */
    qint64 zuruecknehmen(Wartende wartende, const Fortschritt &fortschritt = {})
    {
        return uebernehmen({}, wartende, fortschritt);
    }

    [[nodiscard]] bool istUebernommen() const;

private:
    [[nodiscard]] QSet<qint64> mitWartenden(const Baumkenntnis &kenntnis);
    void setzen(const Baumkenntnis &kenntnis);
    void plaetzeSetzen(const Baumkenntnis &kenntnis, const QList<Ortszahl> &bisherige);
    void eintragSetzen(const Baumkenntnis &kenntnis, const std::optional<Eintrag> &vorher, bool nurAusDemBaum);
    [[nodiscard]] QList<Baumkenntnis> mitVergessenen(const QList<Baumkenntnis> &kenntnisse) const;

    Datenbank &m_db;
    Profil m_profil;
    Nachrechnung m_nachrechnung;
};
} // namespace quillmar::lernen
