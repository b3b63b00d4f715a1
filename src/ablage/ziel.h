#pragma once

#include "angaben.h"
#include "namensraeume.h"
#include "profil.h"
#include "vorlage.h"

namespace quillmar::ablage
{
/** Where an accepted document goes and what it is called there. Pure rules. */
namespace Ziel
{
/** The name template filled with @p werte as a file name, without ".pdf"; empty when all of them are. */
[[nodiscard]] QString stamm(const Vorlage::Werte &werte, const QString &namensVorlage);

/**
 * New name of the file @p altName from the profile's name template, ".pdf" included; "unbenannt.pdf" when all blocks
 * are empty.
 */
[[nodiscard]] QString dateiname(const Angaben &angaben, const QString &altName, const Profil &profil);

/**
 * Target folder from the profile's path template. A place that the structure does not know, a missing rubric or a
 * missing year of a kind with years lead to the catch folder. Without a target root: the system's temporary folder.
 * Each level of the template is filled by itself: one that stays empty drops out, two are never joined.
 */
[[nodiscard]] QString ordner(const Ort &ort, const QString &jahr, const Profil &profil);

/** The profile's duplicates folder. Throws Fehler when its name leads out of the target root. */
[[nodiscard]] QString dublettenordner(const Profil &profil);
} // namespace Ziel
} // namespace quillmar::ablage
