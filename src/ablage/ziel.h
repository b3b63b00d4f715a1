#pragma once

#include "dokument.h"
#include "profil.h"

/** Where an accepted document goes and what it is called there. Pure rules. */
namespace Ziel
{
/** Room that a file name leaves for a counter such as " (2)" within the 255 bytes of a file system. */
constexpr qsizetype hoechstensBytes = 255;

/** New file name from the profile's name template, ".pdf" included; "unbenannt.pdf" when all blocks are empty. */
[[nodiscard]] QString dateiname(const Dokument &dokument, const Profil &profil);

/**
 * Target folder from the profile's path template. A place that the structure does not know, a missing rubric or a
 * missing year of a kind with years lead to the catch folder. Without a target root: the system's temporary folder.
 */
[[nodiscard]] QString ordner(const Ort &ort, const QString &jahr, const Profil &profil);

/** Shortens the part of @p name before its extension so that name and @p zusatz (put before it) fit 255 bytes. */
[[nodiscard]] QString gekuerzt(const QString &name, const QString &zusatz = {});
} // namespace Ziel
