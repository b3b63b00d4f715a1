#pragma once

#include <span>
#include <string_view>

/** A row of the table; it prints itself. */
struct Reihe {
    std::string_view name;
    void (*messen)();
};

/** Measures the row called @p gesucht, or lists all of them when that is empty. Returns the exit status. */
int reiheMessen(std::span<const Reihe> reihen, std::string_view gesucht);
