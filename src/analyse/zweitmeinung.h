#pragma once

#include "namensraeume.h"

namespace quillmar::analyse
{
class Lauf;

/** The fourth stage: doubtful proposals are put to the larger model, each document once. */
namespace Zweitmeinung
{
/** The stage. Does nothing when the profile names no larger model. Throws Fehler when the catalogue cannot be written.
 */
void einholen(Lauf &lauf);
} // namespace Zweitmeinung
} // namespace quillmar::analyse
