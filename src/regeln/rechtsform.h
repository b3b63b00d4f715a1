#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::regeln
{
/** Legal forms of companies and societies, such as "GmbH & Co. KG" and "e. V.". */
namespace Rechtsform
{
/** @p gefaltet, folded as a name, without those at its end; a name that is nothing else stays. */
[[nodiscard]] QString ohne(QString gefaltet);

/** @p name as it is written, without those at its end and what stands between. */
[[nodiscard]] QString ausgeschriebenOhne(const QString &name);

/** The folded word @p wort is one, or a part of one. */
[[nodiscard]] bool istTeil(const QString &wort);
} // namespace Rechtsform
} // namespace quillmar::regeln
