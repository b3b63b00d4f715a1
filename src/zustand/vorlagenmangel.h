#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>

namespace quillmar::zustand
{
/** Something in a template that will not do what its writer means. */
struct Vorlagenmangel {
    QString satz;  ///< for the user
    QString block; ///< the block with its braces that can be taken out; empty if there is none
    bool operator==(const Vorlagenmangel &) const = default;
};

/** Unknown blocks, a brace left open, a missing name, and in a path (@p istPfad) blocks that are always empty there. */
[[nodiscard]] QList<Vorlagenmangel> vorlagenmaengel(const QString &vorlage, bool istPfad);

/** @p vorlage without @p block, with at most one of the separators that stood around it. */
[[nodiscard]] QString ohneBlock(const QString &vorlage, const QString &block);
} // namespace quillmar::zustand
