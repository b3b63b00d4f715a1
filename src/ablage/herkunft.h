#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/** The source folder: whether it is there, or only the empty folder that its drive is mounted on. */
namespace Herkunft
{
/** Some PDF file lies in the folder @p ordner or, if wanted, below it, whatever its name or kind. Blocks. */
[[nodiscard]] bool hatPdf(const QString &ordner, bool mitUnterordnern);

/**
 * The catalogue knows at least @p mindestens documents below the source folder that are not filed yet, none of them is
 * there, and the folder holds no PDF file at all: its drive counts as gone. Blocks.
 */
[[nodiscard]] bool istLeererEinhaengepunkt(Datenbank &db, const Profil &profil, qsizetype mindestens = 1);

/** Notes what the source folder is, once documents were found in it. Throws Fehler. */
void merken(Datenbank &db, const Profil &profil);

/** The source folder is another one than when documents were found in it last, and holds no PDF file. Blocks. */
[[nodiscard]] bool istFremderLeererOrdner(Datenbank &db, const Profil &profil);

/** What comes back into the source folder would lie in the empty folder that its drive is mounted on. Blocks. */
[[nodiscard]] bool istFuerRueckkehrGesperrt(Datenbank &db, const Profil &profil);

/** The file @p pfad is missing since the whole source folder is. */
[[nodiscard]] bool istUnerreichbarFuer(Datenbank &db, const Profil &profil, const QString &pfad);
} // namespace Herkunft
} // namespace quillmar::ablage
