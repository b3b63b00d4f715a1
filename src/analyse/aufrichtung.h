#pragma once

#include "grenzen.h"
#include "namensraeume.h"

#include <QString>
#include <future>
#include <optional>
#include <stop_token>

namespace quillmar::analyse
{
/**
 * Page images are made upright and straight by quillmar-aufrichten, a process of its own with limits. An image that it
 * cannot deal with stays as it is.
 */
namespace Aufrichtung
{
/** What was done to an image. */
struct Lage {
    double neigung = 0;    ///< degrees clockwise by which it was straightened
    bool hochkant = false; ///< its lines ran up or down the page
};

/** Turns the image by @p drehung, a multiple of 90, and straightens it. Blocks. None if nothing was done or known. */
[[nodiscard]] std::optional<Lage> aufrichten(const QString &bild, int drehung, const Grenzen &grenzen,
                                             const std::stop_token &ende);
} // namespace Aufrichtung

/** One image is straightened while this program does something else. Ends with the object at the latest. */
class Vorrichtung
{
public:
    Vorrichtung(const QString &bild, const Grenzen &grenzen);
    ~Vorrichtung();
    Vorrichtung(const Vorrichtung &) = delete;
    Vorrichtung &operator=(const Vorrichtung &) = delete;

    /** Waits for the end; @p ende does not wait for it. Once. */
    [[nodiscard]] Aufrichtung::Lage lage(const std::stop_token &ende);

private:
    std::stop_source m_ende;
    std::future<std::optional<Aufrichtung::Lage>> m_lage;
};
} // namespace quillmar::analyse
