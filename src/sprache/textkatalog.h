#pragma once

#include "namensraeume.h"

#include <QStringList>

namespace quillmar::sprache
{
/** Every German text that the program looks up, each once, ascending. `scripts/texte` keeps the list. */
namespace Textkatalog
{
[[nodiscard]] QStringList alle();
} // namespace Textkatalog
} // namespace quillmar::sprache
