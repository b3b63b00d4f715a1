#pragma once

#include "namensraeume.h"

#include <QtGlobal>

namespace quillmar::katalog
{
class Datenbank;

/** How many documents stand at which status. Documents that an exclusion covers or that are gone count nowhere. */
struct Zaehlwerk {
    qint64 neu = 0; ///< in the analysis: "neu" and "laeuft"
    qint64 bereit = 0;
    qint64 erledigt = 0;
    qint64 zurueckgestellt = 0;
    qint64 dubletten = 0;
    qint64 aussortiert = 0;

    [[nodiscard]] static Zaehlwerk zaehlen(Datenbank &db);

    bool operator==(const Zaehlwerk &) const = default;
};
} // namespace quillmar::katalog
