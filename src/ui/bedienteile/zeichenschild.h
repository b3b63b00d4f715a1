#pragma once

#include "namensraeume.h"
#include "zeichen.h"

class QLabel;
class QString;
class QWidget;

namespace quillmar::bedienteile
{
/** A mark of the size of an icon beside text; it follows the font. */
[[nodiscard]] QLabel *zeichenschild(Symbol symbol, QWidget *eltern);
} // namespace quillmar::bedienteile
