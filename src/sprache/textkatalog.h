#pragma once

#include <QStringList>

/** Every German text that the program looks up, each once, ascending. `scripts/texte` keeps the list. */
namespace Textkatalog
{
[[nodiscard]] QStringList alle();
} // namespace Textkatalog
