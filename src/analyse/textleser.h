#pragma once

#include "grenzen.h"
#include "namensraeume.h"

#include <QtGlobal>

namespace quillmar::profil
{
struct Profil;
} // namespace quillmar::profil

namespace quillmar::analyse
{
class Lauf;

/** The second stage: the text of every document, and which documents say the same. */
namespace Textleser
{
/** How many characters of a text are stored. */
[[nodiscard]] qsizetype textgrenze(const Profil &profil);

/**
 * The stage; @p grenzen are those of each document. Throws Fehler when the source folder vanishes or the catalogue
 * cannot be written.
 */
void textLesen(Lauf &lauf, const Lesegrenzen &grenzen = {});
} // namespace Textleser
} // namespace quillmar::analyse
