#include "fenster.h"

#include <array>
#include <cstdio>
#include <exception>
#include <string_view>

namespace
{
struct Reihe {
    std::string_view name;
    void (*messen)();
};

constexpr std::array<Reihe, 6> reihen = {{
    {"eingabe", Fensterreihen::eingabe},
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
    try {
        for (const Reihe &reihe : reihen) {
            if (gesucht.empty())
                std::puts(reihe.name.data());
            else if (reihe.name == gesucht)
                reihe.messen();
        }
    } catch (const std::exception &e) {
        std::fprintf(stderr, "bench: %s\n", e.what());
        return 1;
    }
    return 0;
}
