#include "fenster.h"
#include "reihe.h"

#include <array>

namespace
{
constexpr std::array<Reihe, 7> reihen = {{
    {"eingabe", Fensterreihen::eingabe},
    {"marken", Fensterreihen::marken},
    {"taste", Fensterreihen::taste},
    {"schleife", Fensterreihen::schleife},
    {"protokollkarte", Fensterreihen::protokollkarte},
    {"einrichtungskarte", Fensterreihen::einrichtungskarte},
    {"fensterstart", Fensterreihen::fensterstart},
}};
} // namespace

/** Measures the row that is named; without a name lists them. */
int main(int anzahl, char **argumente)
{
    const std::string_view gesucht = anzahl > 1 ? argumente[1] : "";
    if (gesucht == "--voll")
        return Fensterreihen::startVoll();
    if (gesucht == "--leer")
        return Fensterreihen::startLeer();
    return reiheMessen(reihen, gesucht);
}
