#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>

namespace quillmar::zustand
{
/** The cards of the main window, in their order. */
enum class Reiter { Einrichtung, Ablauf, Pruefen, Protokoll };

[[nodiscard]] const QList<Reiter> &alleReiter();
[[nodiscard]] QString rohwert(Reiter reiter);

/** Title and help text in the user's language, and the name of the symbol. */
[[nodiscard]] QString reiterTitel(Reiter reiter);
[[nodiscard]] QString reiterHilfe(Reiter reiter);
[[nodiscard]] QString reiterSymbol(Reiter reiter);
} // namespace quillmar::zustand
