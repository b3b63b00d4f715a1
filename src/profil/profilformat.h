#pragma once

#include "profil.h"

#include <QByteArray>

/** The profile list as JSON: an array of objects, pretty-printed, keys sorted, every key of every profile written. */
namespace Profilformat
{
[[nodiscard]] QByteArray schreiben(const QList<Profil> &profile);

/**
 * None when the text is no array of profiles: a key of the wrong type, or a branch or filing kind that lacks a key. A
 * profile's own keys may be missing and have their defaults then, as have numbers of pages and characters below 1;
 * unknown keys are passed over.
 */
[[nodiscard]] std::optional<QList<Profil>> lesen(const QByteArray &json);
} // namespace Profilformat
