#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>

namespace quillmar::zustand
{
/** A program or library that the program is made of or calls. */
struct Bestandteil {
    QString name;
    QString fassung; ///< of what is in use now; empty where it is not known
    QString lizenz;
    QString helfer = {}; ///< the program that tells the version, as Diagnose::helfer() names it
};

/** In the user's language. */
[[nodiscard]] QList<Bestandteil> bestandteile();
} // namespace quillmar::zustand
