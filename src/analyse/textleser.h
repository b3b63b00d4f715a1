#pragma once

#include <QtGlobal>

class Lauf;
struct Profil;

/** The second stage: the text of every document, and which documents say the same. */
namespace Textleser
{
/** How many characters of a text are stored. */
[[nodiscard]] qsizetype textgrenze(const Profil &profil);

/** The stage. Throws Fehler when the source folder vanishes or the catalogue cannot be written. */
void textLesen(Lauf &lauf);
} // namespace Textleser
