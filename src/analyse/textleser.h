#pragma once

class Lauf;

/** The second stage: the text of every document, and which documents say the same. */
namespace Textleser
{
/** The stage. Throws Fehler when the source folder vanishes or the catalogue cannot be written. */
void textLesen(Lauf &lauf);
} // namespace Textleser
