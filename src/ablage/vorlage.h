#pragma once

#include "baustein.h"
#include "namensraeume.h"

#include <QMap>

namespace quillmar::ablage
{
/** Filling of templates: text with building blocks in curly braces. Pure functions that never fail. */
namespace Vorlage
{
using Werte = QMap<Baustein, QString>;

/** Replaces the blocks by their values; an empty or unknown block vanishes with its separators. */
[[nodiscard]] QString fuellen(const Werte &werte, const QString &vorlage);

/** The levels of a path template: what stands between "/", those inside of braces apart. */
[[nodiscard]] QStringList ebenen(const QString &vorlage);

/** Takes the marks of empty blocks (NUL) and surplus separators out. */
[[nodiscard]] QString aufraeumen(const QString &text);

/** @p text without characters that nobody sees, such as marks that turn the direction of writing; joiners stay. */
[[nodiscard]] QString ohneUnsichtbares(const QString &text);

/**
 * @p text as a part of a file name: NFC, no characters that a file system refuses or nobody sees, at most @p grenze
 * characters.
 */
[[nodiscard]] QString saeubern(const QString &text, qsizetype grenze);
} // namespace Vorlage
} // namespace quillmar::ablage
