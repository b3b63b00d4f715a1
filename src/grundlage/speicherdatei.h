#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QtGlobal>

namespace quillmar::grundlage
{
/** Files that lie in memory alone and have no name, to be handed to another process by their descriptor. */
namespace Speicherdatei
{
/** An empty file of @p groesse bytes, all zero; not open when there is none to be had. */
[[nodiscard]] Dateigriff neue(qint64 groesse = 0);

/** From now on nobody can change its size, nor, with @p inhalt, what it holds. False when the kernel refuses. */
bool versiegeln(const Dateigriff &datei, bool inhalt);
} // namespace Speicherdatei
} // namespace quillmar::grundlage
