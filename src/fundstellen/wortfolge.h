#pragma once

#include "fundstelle.h"
#include "namensraeume.h"
#include "seitenwort.h"

#include <QList>
#include <QString>
#include <optional>
#include <utility>

namespace quillmar::fundstellen
{
/** The words of one page, made ready to be searched. */
class Wortfolge
{
public:
    /** @p seite from 0, the number that what is found on it has. */
    Wortfolge(int seite, const Seitenworte &worte);

    /** A run of letters and digits within a word, folded as names are; never empty. */
    struct Stueck {
        QString text;
        qsizetype wort = 0;
    };

    [[nodiscard]] int seite() const { return m_seite; }
    [[nodiscard]] const Seitenworte &worte() const { return m_worte; }
    [[nodiscard]] const QList<Stueck> &stuecke() const & { return m_stuecke; }
    [[nodiscard]] QList<Stueck> stuecke() && { return std::move(m_stuecke); }
    /** The words with a blank between each two. */
    [[nodiscard]] const QString &text() const { return m_text; }
    /** Where a word begins in text(). */
    [[nodiscard]] qsizetype anfang(qsizetype wort) const { return m_anfaenge.at(wort); }
    /** The words that have a part of @p laenge characters of text() from @p stelle on. */
    [[nodiscard]] Fundstelle stelle(qsizetype stelle, qsizetype laenge) const;
    /** The words of these pieces, from the first to the last one. */
    [[nodiscard]] Fundstelle stelleVonStuecken(qsizetype erstes, qsizetype anzahl) const;
    /** Words that stand on one line, as far as no wide gap parts them; numbered from 0 on. */
    [[nodiscard]] int zeile(qsizetype wort) const { return m_zeilen.at(wort); }
    [[nodiscard]] int zeilen() const { return m_zeilen.isEmpty() ? 0 : m_zeilen.last() + 1; }
    /** The words of a line, as a place. */
    [[nodiscard]] Fundstelle zeilenstelle(int zeile) const;
    /** As it is written. */
    [[nodiscard]] QString wortlaut(const Fundstelle &stelle) const;
    /** What encloses all its words. */
    [[nodiscard]] QRectF ort(const Fundstelle &stelle) const;
    /** The word to the left of @p wort at the same height, however far; none if there is none. */
    [[nodiscard]] std::optional<qsizetype> links(qsizetype wort) const;
    /** The word right above @p wort, as in the head of a table; none if there is none close by. */
    [[nodiscard]] std::optional<qsizetype> darueber(qsizetype wort) const;

private:
    void zerlegen(qsizetype wort);
    void umbrechen();

    int m_seite;
    Seitenworte m_worte;
    QString m_text;
    QList<qsizetype> m_anfaenge; ///< of the words in the text
    QList<int> m_zeilen;         ///< of the words
    QList<Stueck> m_stuecke;
};

/** One for each page, numbered from 0 on. */
[[nodiscard]] QList<Wortfolge> wortfolgen(const QList<Seitenworte> &seiten);

[[nodiscard]] bool hatZiffer(const QString &text);

/** Letters and digits of @p text without what parts them, folded: "RE-2024/0815" is "re20240815". */
[[nodiscard]] QString zusammengezogen(const QString &text);

/** One is the other with as many letters added, gone or exchanged as recognition may get wrong: one in seven. */
[[nodiscard]] bool fastGleich(const QString &a, const QString &b);
} // namespace quillmar::fundstellen
