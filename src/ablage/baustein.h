#pragma once

#include "namensraeume.h"

#include <QString>
#include <array>
#include <optional>

namespace quillmar::ablage
{
/** The building blocks of the name and path templates, in the order in which they are offered. */
enum class Baustein { Datum, Jahr, Monat, Gegenueber, Titel, Zweig, Ablage, Rubrik, Altname };

inline constexpr std::array alleBausteine = {
    Baustein::Datum, Baustein::Jahr,   Baustein::Monat,  Baustein::Gegenueber, Baustein::Titel,
    Baustein::Zweig, Baustein::Ablage, Baustein::Rubrik, Baustein::Altname,
};

/** The word between the braces. */
[[nodiscard]] QString bausteinWort(Baustein baustein);
/** The block of that exact word. */
[[nodiscard]] std::optional<Baustein> bausteinAus(QStringView wort);
/** Display name and explanation, in the user's language. */
[[nodiscard]] QString bausteinAnzeige(Baustein baustein);
[[nodiscard]] QString bausteinErklaerung(Baustein baustein);
} // namespace quillmar::ablage
