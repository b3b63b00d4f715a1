#pragma once

#include "laufauftrag.h"
#include "namensraeume.h"

namespace quillmar::analyse
{
class Lauf;

/** Reading, similar documents and classification of what an inventory has left open. */
namespace Portionen
{
/**
 * Takes the open documents by their number through the stages, one portion after the other, each document once at most;
 * what a run takes in hand is fixed at its beginning, but for what becomes open again. What only has to be read is one
 * portion; so is all that is left once the model cannot be asked. With nothing open the stages go by empty. Throws
 * Fehler as the stages do.
 */
void durchlaufen(Lauf &lauf, const Laufauftrag &auftrag = {});
} // namespace Portionen
} // namespace quillmar::analyse
