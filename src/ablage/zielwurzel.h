#pragma once

#include "fehler.h"
#include "namensraeume.h"
#include "profil.h"

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/**
 * A folder stands at the target root, but nothing of what was filed there last: the drive may not be mounted, and what
 * is filed now would lie in the empty folder below it.
 */
class AndererZielordner : public Fehler
{
public:
    using Fehler::Fehler;
};

/** The root of the filing tree, looked at before anything is filed into it. Nothing is ever written there for that. */
namespace Zielwurzel
{
/**
 * Throws Fehler when there is no root or it cannot be reached, AndererZielordner when none of the last twenty documents
 * that were filed below it lies there.
 */
void pruefen(Datenbank &db, const Profil &profil);

/** None of the last twenty documents filed below the root lies there, and the user has not said that this is right. */
[[nodiscard]] bool istAndere(Datenbank &db, const Profil &profil);

/** The user has moved his tree by hand: what was filed until now is no sign any more. Throws Fehler. */
void bestaetigen(Datenbank &db, const Profil &profil);
} // namespace Zielwurzel
} // namespace quillmar::ablage
