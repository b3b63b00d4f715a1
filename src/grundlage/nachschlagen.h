#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::grundlage
{
/** Marks a literal that reaches the text lookup later, through a variable: it belongs to the text catalogue all the
 * same. */
#ifndef QUILLMAR_TEXT
#define QUILLMAR_TEXT(literal) literal
#endif

/**
 * What lies below the language files says its sentences in the user's language, too: whoever has the files sets the
 * lookup, once and before there is a second thread that might fail. Until then every text is German.
 */
using Nachschlagewerk = QString (*)(const QString &deutsch);
void setzeNachschlagewerk(Nachschlagewerk werk);

/** @p deutsch, a marked text, in the user's language. */
[[nodiscard]] QString nachgeschlagen(const QString &deutsch);
} // namespace quillmar::grundlage
