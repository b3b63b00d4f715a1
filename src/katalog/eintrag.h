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

/** What speaks for one place of a counterpart. */
struct Ortszahl {
    qint64 id = 0; ///< of its row; 0 for one that was never counted by itself
    Ort ort;
    qint64 anzahl = 0;      ///< how often the reviewer has confirmed it
    qint64 korrekturen = 0; ///< how many of these were corrections
    qint64 baum = 0;        ///< documents of the counterpart that lie there in the filing tree
    qint64 belesen = -1;    ///< filed documents whose words are counted; -1: none was looked at yet
    bool operator==(const Ortszahl &) const = default;
};

/** One name equation: the old spelling leads to the new one. */
struct Gleichung {
    QString von; ///< key of the old name
    QString nach;
    qint64 anzahl = 0;
    bool operator==(const Gleichung &) const = default;
};
} // namespace quillmar::katalog
