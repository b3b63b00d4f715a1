#pragma once

#include "namensraeume.h"

#include <QString>
#include <functional>
#include <optional>

namespace quillmar::zustand
{
/** Asking the user for a folder or a file. The interface (or a test) answers through the choosers below. */
namespace Ordnerwahl
{
using Waehler = std::function<std::optional<QString>(const QString &titel, const QString &beginn)>;
extern Waehler ordnerwaehler;
extern Waehler protokollwaehler;

/**
 * Asks for a folder; none when cancelled. The question begins in the folder that was last chosen for @p zweck, else in
 * @p sonst, else where anything was chosen last.
 */
[[nodiscard]] std::optional<QString> ordnerWaehlen(const QString &titel, const QString &zweck = {},
                                                   const QString &sonst = {});
/** Asks for a log file, first where one was last chosen, else in @p sonst. */
[[nodiscard]] std::optional<QString> protokollWaehlen(const QString &titel, const QString &sonst);
} // namespace Ordnerwahl
} // namespace quillmar::zustand
