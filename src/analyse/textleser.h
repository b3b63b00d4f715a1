#pragma once

#include "grenzen.h"
#include "namensraeume.h"

#include <QString>

namespace quillmar::profil
{
struct Profil;
} // namespace quillmar::profil

namespace quillmar::analyse
{
class Lauf;

/** What the comparison of texts has found. */
struct Textfunde {
    qsizetype dubletten = 0; ///< of the same text
    qsizetype paare = 0;     ///< documents that were linked to a similar one

    Textfunde &operator+=(const Textfunde &andere)
    {
        dubletten += andere.dubletten;
        paare += andere.paare;
        return *this;
    }
};

/** The second stage: the text of every document, and which documents say the same. */
namespace Textleser
{
/** How many characters of a text are stored. */
[[nodiscard]] qsizetype textgrenze(const Profil &profil);

/** German names of the two halves. */
[[nodiscard]] QString stufe();
[[nodiscard]] QString vergleichsstufe();
/** What they say of themselves, for the user. */
[[nodiscard]] QString lesesatz(qsizetype fertig, qsizetype gesamt);
[[nodiscard]] QString fundsatz(const Textfunde &funde);

/**
 * The stage; @p grenzen are those of each document. Throws Fehler when the source folder vanishes or the catalogue
 * cannot be written.
 */
Textfunde textLesen(Lauf &lauf, const Lesegrenzen &grenzen = {});
} // namespace Textleser
} // namespace quillmar::analyse
