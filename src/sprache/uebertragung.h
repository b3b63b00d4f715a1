#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace quillmar::sprache
{
/**
 * Says a sentence again that was made in one language: the text of the program that it was made of, with its arguments
 * as they are, in another one. A sentence that was put together of several ones is taken apart at its commas and
 * colons. What is of none of the program's texts stays as it is.
 *
 * @p texte: all texts of the program; @p von and @p nach: their translations in the two languages, none for German.
 */
[[nodiscard]] QString uebertragen(const QString &satz, const QStringList &texte, const QHash<QString, QString> &von,
                                  const QHash<QString, QString> &nach);
} // namespace quillmar::sprache
