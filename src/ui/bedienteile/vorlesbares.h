#pragma once

#include "namensraeume.h"

#include <QLabel>

namespace quillmar::bedienteile
{
/** A label that shows nothing and hears no mouse: what its parent paints below it, as an object for a screen reader. */
inline QLabel *vorlesbares(const QString &name, QWidget *eltern)
{
    auto *teil = new QLabel(eltern);
    teil->setObjectName(name);
    teil->setAttribute(Qt::WA_TransparentForMouseEvents);
    return teil;
}
} // namespace quillmar::bedienteile
