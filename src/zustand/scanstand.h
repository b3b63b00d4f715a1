#pragma once

#include "namensraeume.h"

#include <QtGlobal>

namespace quillmar::zustand
{
/** Whether new scans are taken in by themselves, and what waits for that. */
struct Scanstand {
    bool an = false;
    qsizetype wartende = 0;  ///< new files that have not been taken in yet
    bool ohneModell = false; ///< they wait since no model can be asked
    bool operator==(const Scanstand &) const = default;
};
} // namespace quillmar::zustand
