#pragma once

#include "teile.h"

class QWidget;

namespace quillmar::einrichtung
{
/** Renames or removes the active profile; what it asks takes the place of its buttons. */
[[nodiscard]] QWidget *profilleiste(Profilwahl *profilwahl);
} // namespace quillmar::einrichtung
