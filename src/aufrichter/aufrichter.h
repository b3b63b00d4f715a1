#pragma once

#include <optional>
#include <string>

/** Page images are made upright and straight. Nothing but leptonica: a process of its own uses it. */
namespace quillmar::aufrichter
{
/** What was done to an image. */
struct Lage {
    double neigung = 0;    ///< degrees clockwise by which it was straightened; 0 if it was straight
    bool hochkant = false; ///< its lines run up or down the page
};

constexpr double kleinsteNeigung = 1.0 / 3; ///< degrees; less does not hinder text recognition
constexpr double groessteNeigung = 15;      ///< degrees that are looked for to either side

/**
 * Turns the image @p pfad by @p drehung degrees, a multiple of 90, and straightens it where leptonica is sure of its
 * skew. It is replaced in one step, in grey and with its resolution, and left alone where nothing is to be done. None
 * if it cannot be read or written.
 */
[[nodiscard]] std::optional<Lage> aufrichten(const std::string &pfad, int drehung);
} // namespace quillmar::aufrichter
