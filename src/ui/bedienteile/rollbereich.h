#pragma once

#include "namensraeume.h"

class QScrollArea;
class QWidget;

namespace quillmar::bedienteile
{
/** @p inhalt, which scrolls up and down where it is too high: without a frame or a ground of its own. */
[[nodiscard]] QScrollArea *rollbereich(QWidget *inhalt, QWidget *eltern);
} // namespace quillmar::bedienteile
