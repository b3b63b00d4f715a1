#pragma once

#include <QList>

class QWidget;

/** A row of widgets without margins, with room left over at its end. */
[[nodiscard]] QWidget *zeile(QWidget *eltern, const QList<QWidget *> &teile);
