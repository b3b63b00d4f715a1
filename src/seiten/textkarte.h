#pragma once

#include "namensraeume.h"
#include "wortkarte.h"

#include <compare>

namespace quillmar::seiten
{
/** A word of a document: its page and its place among the page's words, both from 0. */
struct Wortort {
    int seite = 0;
    qsizetype wort = 0;
    auto operator<=>(const Wortort &) const = default;
};

/** Words that are read one after the other, over pages too, both ends included. */
struct Wortspanne {
    Wortort von;
    Wortort bis;
    auto operator<=>(const Wortspanne &) const = default;
};

/** From the one word to the other, whichever is read first. */
[[nodiscard]] Wortspanne spanne(const Wortort &a, const Wortort &b);

/** The words of a document as its pages are seen; of some pages none may be known. */
class Textkarte
{
public:
    explicit Textkarte(QList<Wortkarte> seiten = {});

    [[nodiscard]] int seiten() const { return int(m_seiten.size()); }
    /** Without words for pages that nothing is known of. */
    [[nodiscard]] const Wortkarte &seite(int seite) const;

    /** From the first word to the last one; none if no word is known. */
    [[nodiscard]] std::optional<Wortspanne> alles() const;
    /** The word at or next to @p ort of a page; on a page without words the last one before it, or the first at all. */
    [[nodiscard]] std::optional<Wortort> naechstes(int seite, const QPointF &ort) const;

    /** As it stands there, line by line. */
    [[nodiscard]] QString text(const Wortspanne &spanne) const { return verbunden(spanne, u'\n'); }
    /** The words with a blank between each two, over lines and pages. */
    [[nodiscard]] QString phrase(const Wortspanne &spanne) const { return verbunden(spanne, u' '); }
    /** What they take up on page @p seite, one rectangle for each line. */
    [[nodiscard]] QList<QRectF> orte(const Wortspanne &spanne, int seite) const;

private:
    [[nodiscard]] QString verbunden(const Wortspanne &spanne, QChar umbruch) const;
    [[nodiscard]] std::pair<qsizetype, qsizetype> worte(const Wortspanne &spanne, int seite) const;

    QList<Wortkarte> m_seiten;
    Wortkarte m_keine;
};
} // namespace quillmar::seiten
