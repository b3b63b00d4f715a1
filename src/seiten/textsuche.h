#pragma once

#include "namensraeume.h"
#include "textkarte.h"

#include <array>

namespace quillmar::seiten
{
/**
 * Finds what is typed in the words of a document: in any case, without accents, an umlaut also by its two-letter
 * spelling, over the borders of words and lines, not of pages.
 */
class Textsuche
{
public:
    explicit Textsuche(const Textkarte &karte = Textkarte());

    /** The words that have a part in each place, in reading order; none for an @p anfrage without a sign. */
    [[nodiscard]] QList<Wortspanne> funde(const QString &anfrage) const;

private:
    struct Lauftext {
        QString text;              ///< the words with a blank between each two
        QList<qsizetype> anfaenge; ///< of the words in it
    };
    using Formen = std::array<Lauftext, 2>; ///< without accents, and umlauts as two letters

    static void suchen(const Lauftext &lauftext, int seite, const QString &gesucht, QList<Wortspanne> &funde);

    QList<Formen> m_seiten;
};

/** The places that were found, one of which is the present one. */
class Treffer
{
public:
    Treffer() = default;
    /** The present one is the first at or behind @p ab, else the first of all. */
    Treffer(QList<Wortspanne> funde, const Wortort &ab);

    [[nodiscard]] const QList<Wortspanne> &alle() const { return m_funde; }
    [[nodiscard]] qsizetype nummer() const { return m_funde.isEmpty() ? 0 : m_stelle + 1; } ///< from 1; 0: none
    [[nodiscard]] std::optional<Wortspanne> jetziger() const;
    /** By so many on, or back; behind the last comes the first. */
    void weiter(qsizetype schritte);

private:
    QList<Wortspanne> m_funde;
    qsizetype m_stelle = 0;
};
} // namespace quillmar::seiten
