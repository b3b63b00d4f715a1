#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::profil
{
/** A place in the filing tree; levels that are not known are empty. */
struct Ort {
    QString zweig;
    QString ablage;
    QString rubrik;
    bool operator==(const Ort &) const = default;
};
} // namespace quillmar::profil
