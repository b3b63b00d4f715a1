#include "reihe.h"

#include <cstdio>
#include <exception>

int reiheMessen(std::span<const Reihe> reihen, std::string_view gesucht)
{
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
