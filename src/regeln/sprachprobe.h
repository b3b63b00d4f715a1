#pragma once

#include "namensraeume.h"

#include <QSet>
#include <QString>

namespace quillmar::regeln
{
/**
 * Whether a text looks like language, or like what comes out of a page that lies on its head or of a text layer whose
 * letters mean nothing. Looks at nothing but the text.
 */
class Sprachprobe
{
public:
    /** @p sprachen as tesseract has them, such as "deu+eng": their frequent words are known for deu, eng and fra. */
    Sprachprobe(const QString &text, const QString &sprachen);

    /** There is nothing to judge. Such a text counts as language. */
    [[nodiscard]] bool istLeer() const { return m_worte + m_wirre == 0 && m_zahlen == 0; }
    /**
     * Fewer than a quarter of its words are confused (letters mixed with digits or signs, case that changes within a
     * word, no vowel, one letter repeated), and its letters are no mere exchange of others: then frequent words are
     * missing among many, and among some if vowels are rare.
     */
    [[nodiscard]] bool istSprache() const;
    /** The more the better, to compare two readings of one page: sound words count for it, confused ones against. */
    [[nodiscard]] qsizetype guete() const { return m_worte + m_haeufige + m_zahlen - 2 * m_wirre; }

private:
    void wortZaehlen(const QString &wort, const QSet<QString> &haeufige);

    qsizetype m_worte = 0;    ///< that may be words of a language, of three letters and more
    qsizetype m_haeufige = 0; ///< of these, or shorter: frequent ones of the languages
    qsizetype m_zahlen = 0;   ///< numbers, dates, amounts and marks such as "A-2201"
    qsizetype m_wirre = 0;
    qsizetype m_buchstaben = 0;
    qsizetype m_vokale = 0;
    bool m_kenntHaeufige = false; ///< of one of the languages
};
} // namespace quillmar::regeln
