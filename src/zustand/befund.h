#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::zustand
{
/** What is to be said of a field of the setup card, as things stand. */
struct Befund {
    enum class Marke { Keine, Gut, Warnung, Laeuft, Hinweis, Offen };
    Marke marke = Marke::Keine; ///< none: an explanation, no state
    QString satz;               ///< for the user; empty: nothing beyond the field's own help
    bool operator==(const Befund &) const = default;
};
} // namespace quillmar::zustand
