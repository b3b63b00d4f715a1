#pragma once

#include "namensraeume.h"

#include <QString>
#include <functional>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::lernen
{
/** Name equations one after the other. Rules over @p gleichung, which gives the name that a key leads to. */
namespace Namenskette
{
using Gleichung = std::function<std::optional<QString>(const QString &schluessel)>;

/** The equations that @p db holds, each read when it is asked for. */
[[nodiscard]] Gleichung gelernte(Datenbank &db);

/** Where @p name leads in the end; none if that is itself, as written, or equations go round in a circle. */
[[nodiscard]] std::optional<QString> ende(const QString &name, const Gleichung &gleichung);
/** From @p name equations lead to the key @p schluessel. */
[[nodiscard]] bool fuehrtZu(const QString &name, const QString &schluessel, const Gleichung &gleichung);
} // namespace Namenskette
} // namespace quillmar::lernen
