#pragma once

#include "namensraeume.h"
#include "ort.h"

namespace quillmar::katalog
{
/** What is said of a document: by a model, the reviewer or the learning memory. Names and folders are made of it. */
struct Angaben {
    QString datum; ///< JJJJ-MM-TT or empty
    QString gegenueber;
    QString titel;
    Ort ort;
    QString jahr;
    bool operator==(const Angaben &) const = default;
};
} // namespace quillmar::katalog
