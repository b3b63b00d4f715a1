#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::regeln
{
/** Tells from the owner's postal addresses whether he wrote an invoice or received it. */
class Rechnungsrichtung
{
public:
    enum class Richtung { Ausgang, Eingang, Unbekannt };

    explicit Rechnungsrichtung(const QStringList &eigeneAnschriften);

    /** Brings spellings of a name together; see gefaltet(). */
    [[nodiscard]] static QString vereinheitlichen(const QString &text);

    /** No own address is long enough to be recognised. */
    [[nodiscard]] bool istLeer() const { return m_anschriften.isEmpty(); }

    /**
     * Outgoing when one line of @p text holds all parts of an own address (the sender line of the owner's own paper),
     * incoming when they stand in a block of consecutive lines (the recipient's address).
     */
    [[nodiscard]] Richtung erkennen(const QString &text) const;

    /** The invoice rubric that belongs in the place of @p rubrik; none when nothing is to be changed. */
    [[nodiscard]] static std::optional<QString> berichtigen(const QString &rubrik, const QString &text,
                                                            const Profil &profil);
    /** As above, with the addresses prepared once for many documents. */
    [[nodiscard]] std::optional<QString> berichtigt(const QString &rubrik, const QString &text,
                                                    const Profil &profil) const;

    /** As above, for a document whose @p richtung is known. */
    [[nodiscard]] static std::optional<QString> berichtigt(const QString &rubrik, Richtung richtung,
                                                           const Profil &profil);

    /** @p rubrik is one of the profile's two invoice rubrics in any spelling. */
    [[nodiscard]] static bool istRechnungsrubrik(const QString &rubrik, const Profil &profil);

private:
    QList<QStringList> m_anschriften; ///< normalised parts of each address
};
} // namespace quillmar::regeln
