#pragma once

#include "namensraeume.h"

#include <QString>
#include <QStringList>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
/** Duplicates and the documents that they repeat. */
namespace Originale
{
/**
 * Where a document's content lies: its own file, and copies of it that were filed and not taken back. Only what is
 * there; blocks while it looks.
 */
[[nodiscard]] QStringList orte(Datenbank &db, qint64 id);

/**
 * Document @p id, marked as a duplicate, still repeats its original: that is there, is not excluded, and has the same
 * bytes, or the same words where only the text was compared. @p textgrenze as below. Throws Fehler when a file cannot
 * be read.
 */
[[nodiscard]] bool istNochDublette(Datenbank &db, qint64 id, qsizetype textgrenze);

/**
 * The whole stored texts of two documents have the same words; where one has none, that does not decide: true. Texts of
 * @p textgrenze characters were cut off there, perhaps within a word.
 */
[[nodiscard]] bool habenGleicheWorte(Datenbank &db, qint64 a, qint64 b, qsizetype textgrenze);
/** Jaccard index of the words of two documents, as far as their sketches tell; 0 where one has none. */
[[nodiscard]] double aehnlichkeit(Datenbank &db, qint64 a, qint64 b);
} // namespace Originale
} // namespace quillmar::analyse
