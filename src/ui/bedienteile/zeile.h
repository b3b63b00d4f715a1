#pragma once

#include "namensraeume.h"

#include <QList>

class QWidget;

namespace quillmar::bedienteile
{
/** A row of widgets without margins, with room left over at its end. */
[[nodiscard]] QWidget *zeile(QWidget *eltern, const QList<QWidget *> &teile);
} // namespace quillmar::bedienteile
