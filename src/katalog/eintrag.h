#pragma once

#include "namensraeume.h"
#include "ort.h"

namespace quillmar::katalog
{
/** One learned place: where the documents of a counterpart go. */
struct Eintrag {
    QString schluessel; ///< normalised counterpart
    QString anzeige;    ///< the counterpart as last written by the user
    Ort ort;
    qint64 anzahl = 0; ///< how often it was confirmed
    bool operator==(const Eintrag &) const = default;

    /** The non-empty levels of the place, joined with "/". */
    [[nodiscard]] QString ziel() const;
};

/** One name equation: the old spelling leads to the new one. */
struct Gleichung {
    QString von; ///< key of the old name
    QString nach;
    qint64 anzahl = 0;
    bool operator==(const Gleichung &) const = default;
};
} // namespace quillmar::katalog
