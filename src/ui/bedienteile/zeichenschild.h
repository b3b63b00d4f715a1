#pragma once

#include "namensraeume.h"

class QLabel;
class QString;
class QWidget;

namespace quillmar::bedienteile
{
/** A mark of the size of an icon beside text; it follows the font. */
[[nodiscard]] QLabel *zeichenschild(const QString &symbol, QWidget *eltern);
} // namespace quillmar::bedienteile
