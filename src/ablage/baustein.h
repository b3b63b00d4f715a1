#pragma once

#include <QString>
#include <array>
#include <optional>

/** The building blocks of the name and path templates, in the order in which they are offered. */
enum class Baustein { datum, jahr, monat, gegenueber, titel, zweig, ablage, rubrik, altname };

inline constexpr std::array alleBausteine = {
    Baustein::datum, Baustein::jahr,   Baustein::monat,  Baustein::gegenueber, Baustein::titel,
    Baustein::zweig, Baustein::ablage, Baustein::rubrik, Baustein::altname,
};

/** The word between the braces. */
[[nodiscard]] QString bausteinWort(Baustein baustein);
/** The block of that exact word. */
[[nodiscard]] std::optional<Baustein> bausteinAus(QStringView wort);
/** Display name and explanation, in the user's language. */
[[nodiscard]] QString bausteinAnzeige(Baustein baustein);
[[nodiscard]] QString bausteinErklaerung(Baustein baustein);
