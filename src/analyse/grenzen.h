#pragma once

#include "namensraeume.h"

#include <QtGlobal>
#include <algorithm>
#include <chrono>

namespace quillmar::analyse
{
constexpr qint64 ueblicherSpeicher = 2LL * 1024 * 1024 * 1024;

/** What a child process may use. */
struct Grenzen {
    std::chrono::milliseconds uhr;                              ///< from its start to its end
    std::chrono::seconds rechenzeit = std::chrono::seconds(60); ///< of a processor
    qint64 speicher = ueblicherSpeicher;                        ///< address space in bytes
    bool nachrangig = false; ///< it gets only what no other process wants of processor and disk
};

/** What the tools may use to read one document. */
struct Lesegrenzen {
    std::chrono::seconds uhrText = std::chrono::seconds(180);
    std::chrono::seconds uhrBild = std::chrono::seconds(900);   ///< to draw all pages, and to recognise each
    std::chrono::seconds rechenzeit = std::chrono::seconds(60); ///< for the text layer; a page to draw or to recognise
    qint64 speicher = ueblicherSpeicher;
    bool nachrangig = false; ///< see Grenzen

    [[nodiscard]] Grenzen fuerText() const
    {
        return {.uhr = uhrText, .rechenzeit = rechenzeit, .speicher = speicher, .nachrangig = nachrangig};
    }
    /** For @p seiten pages at once. */
    [[nodiscard]] Grenzen fuerSeiten(int seiten) const
    {
        return {.uhr = uhrBild,
                .rechenzeit = rechenzeit * std::max(seiten, 1),
                .speicher = speicher,
                .nachrangig = nachrangig};
    }
};
} // namespace quillmar::analyse
