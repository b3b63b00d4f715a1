#pragma once

#include "namensraeume.h"

#include <QStringList>

namespace quillmar::zustand
{
/** The languages of the text recognition as the user reads them. Codes are those of tesseract: "deu", "deu+eng". */
namespace Ocrsprachen
{
/** In the user's language where it has a word for it, else the language's own name, else the code. */
[[nodiscard]] QString name(const QString &code);
[[nodiscard]] QStringList namen(const QStringList &codes);
/** What can be chosen: all installed ones, German with English where both are there, and @p jetzige in any case. */
[[nodiscard]] QStringList auswahl(const QStringList &installierte, const QString &jetzige);
/** The package that brings the data of @p code. */
[[nodiscard]] QString paket(const QString &code);
} // namespace Ocrsprachen
} // namespace quillmar::zustand
