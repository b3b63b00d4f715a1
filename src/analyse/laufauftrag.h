#pragma once

#include "grenzen.h"
#include "namensraeume.h"

#include <QtGlobal>
#include <memory>
#include <optional>

namespace quillmar::katalog
{
class Vorrang;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
/** How many documents a run takes through its stages at once. */
struct Portionsgroesse {
    qsizetype erste = 10;   ///< of a stock that is too large for one portion: the first proposals come soon
    qsizetype weitere = 50; ///< of every other one; a stock of so many is one portion
};

/** What a run is to do beyond the usual. */
struct Laufauftrag {
    bool erneut = false;                   ///< reopen what failed before, once it is certain that the run takes place
    std::optional<qint64> nurDies;         ///< of the failed documents reopen only this one
    bool nurLesen = false;                 ///< end before the model is asked
    Lesegrenzen grenzen = {};              ///< for each document
    Portionsgroesse portionen = {};        ///< no setting: it is here for tests and measurements
    std::shared_ptr<Vorrang> vorrang = {}; ///< taken before by who asks for the run; null: the run takes it itself
};
} // namespace quillmar::analyse
