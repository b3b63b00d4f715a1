#pragma once

#include "namensraeume.h"

namespace quillmar::ablage
{
struct Absicht;

/** What a crash has left of a movement, seen from the disk. */
namespace Klaerung
{
enum class Lage {
    Geschehen,
    NichtGeschehen,
    Unklar, ///< a drive is not there
};

/**
 * Looks at both ends, finishes the file's part of the movement where it was nearly done, and removes its temporary file
 * once the document is seen elsewhere. Throws Fehler.
 */
[[nodiscard]] Lage lage(const Absicht &absicht);

/** A file lies where it was before, and nothing of it where it was to go. */
[[nodiscard]] bool istUnberuehrt(const Absicht &absicht);
} // namespace Klaerung
} // namespace quillmar::ablage
