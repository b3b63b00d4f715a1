#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::zustand
{
/** Something to choose: what is kept, how it is shown, and why it cannot be chosen; that is empty if it can. */
struct Wahleintrag {
    QString wert;
    QString anzeige;
    QString mangel = {};
    bool operator==(const Wahleintrag &) const = default;
};
} // namespace quillmar::zustand
