#pragma once

#include "namensraeume.h"

#include <QString>
#include <QVariant>
#include <functional>

namespace quillmar::sprache
{
/**
 * The user's few settings outside the profiles: one text file in $XDG_CONFIG_HOME (else ~/.config) that all programs of
 * the user share. The callers name the keys. May be called from any thread. What cannot be written holds for this
 * program, is complained of once, and is written with the next value that can be.
 */
namespace Einstellungen
{
/** The stored value, or @p vorgabe if there is none. */
[[nodiscard]] QVariant wert(const QString &schluessel, const QVariant &vorgabe = {});

/** Stores @p wert at once. An invalid value removes the key. */
void setzen(const QString &schluessel, const QVariant &wert);

void entfernen(const QString &schluessel);

/** Called when values can no longer be written, once until they can again; by whoever sets one. Empty: nobody is. */
void setzeBeschwerde(const std::function<void()> &beschwerde);
} // namespace Einstellungen
} // namespace quillmar::sprache
