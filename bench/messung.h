#pragma once

#include <functional>

/** Timing of the program against a bare tool. */
namespace Messung
{
/** One measurement: does its work once and returns the seconds that count, without what only prepares it. */
using Lauf = std::function<double()>;

/** Seconds that @p arbeit takes by the clock. */
[[nodiscard]] double dauer(const std::function<void()> &arbeit);

struct Paar {
    double unser = 0; ///< median of the seconds
    double blank = 0;
    double verhaeltnis = 0; ///< median over the pairs
};

/**
 * Measures both @p runden times, in turn and with the order changing from pair to pair, so that a busy machine slows
 * both alike. One run of each goes before and counts nothing.
 */
[[nodiscard]] Paar paarweise(int runden, const Lauf &unser, const Lauf &blank);

/** Prints one row of the table. */
void drucken(const char *was, const Paar &paar, double grenze);
/** A row for an amount that has a bar of its own, not a tool to compare with. */
void drucken(const char *was, double wert, const char *einheit, double grenze);
/** A figure without a bar. */
void mitteilen(const char *was, double wert, const char *einheit);
} // namespace Messung
