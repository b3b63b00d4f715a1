#pragma once

#include "namensraeume.h"

#include <QString>
#include <QVariant>

namespace quillmar::sprache
{
/**
 * The user's few settings outside the profiles: one text file in $XDG_CONFIG_HOME (else ~/.config) that all programs of
 * the user share. The callers name the keys. May be called from any thread; what cannot be written is lost silently.
 */
namespace Einstellungen
{
/** The stored value, or @p vorgabe if there is none. */
[[nodiscard]] QVariant wert(const QString &schluessel, const QVariant &vorgabe = {});

/** Stores @p wert at once. An invalid value removes the key. */
void setzen(const QString &schluessel, const QVariant &wert);

void entfernen(const QString &schluessel);
} // namespace Einstellungen
} // namespace quillmar::sprache
