#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::desktop
{
/** The desktop's file manager. Nothing here waits for it. */
namespace Dateiverwaltung
{
void ordnerOeffnen(const QString &ordner);
/** Opens the folder of @p datei with the file selected; where the desktop cannot do that, the folder alone. */
void zeigen(const QString &datei);
} // namespace Dateiverwaltung
} // namespace quillmar::desktop
