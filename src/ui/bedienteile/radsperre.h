#pragma once

#include "namensraeume.h"

class QWidget;

namespace quillmar::bedienteile
{
/** Scrolling past a choice or a number must not change it unnoticed: over @p feld the wheel goes on to what scrolls. */
void radsperre(QWidget *feld);
} // namespace quillmar::bedienteile
