#pragma once

#include "namensraeume.h"
#include "seitenwort.h"
#include "wortlagen.h"
#include "wortspeicher.h"

#include <QString>
#include <stop_token>

namespace quillmar::zustand
{
/** Where words of pages are to be read from, and how. */
struct Wortquelle {
    QString pfad;
    bool textebene = false;
    Wortlagen::Erkennung wie;
    bool operator==(const Wortquelle &) const = default;

    /** The pages as they lie. What is recognised for the eye gives way to whatever else runs. Blocks; throws as
     * Wortlagen::lesen() does. */
    [[nodiscard]] QList<Seitenworte> lesen(const Wortspeicher &speicher, const std::stop_token &ende) const;
};
} // namespace quillmar::zustand
