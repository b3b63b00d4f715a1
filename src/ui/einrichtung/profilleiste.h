#pragma once

#include "namensraeume.h"

class QWidget;

namespace quillmar::zustand
{
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::einrichtung
{
/** Renames or removes the active profile; what it asks takes the place of its buttons. */
[[nodiscard]] QWidget *profilleiste(Profilwahl *profilwahl);
} // namespace quillmar::einrichtung
