#pragma once

#include "namensraeume.h"

namespace quillmar::lernen
{
/** The rules of the memory one by one, so that a measurement can leave some out. The program uses all. */
struct Regelwahl {
    bool alleOrte = true;       ///< every confirmed place counts, not only the last one
    bool nurKorrekturen = true; ///< a complete and certain place gives way to corrections only
    bool genaueZuerst = true;   ///< an entry of the same key goes before one that contains it
    bool ganzeWoerter = true;   ///< parts of words change no known place
    bool vomModellAus = true;   ///< waiting documents are reckoned from the model's answer, not from what they say now
    bool verlesene = true;      ///< a digit in the middle of a word is a letter that was misread
    bool stimmen = true;        ///< texts vote
};
} // namespace quillmar::lernen
