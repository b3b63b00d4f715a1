#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QByteArray>

namespace quillmar::profil
{
/** The profile list as JSON: an array of objects, pretty-printed, keys sorted, every key of every profile written. */
namespace Profilformat
{
[[nodiscard]] QByteArray schreiben(const QList<Profil> &profile);

/** A list as it was read. */
struct Gelesen {
    QList<Profil> profile;
    QStringList anmerkungen; ///< what was not taken as it stands, for the user
};

/**
 * None when the text is no array of profiles: a key of the wrong type, or a branch or filing kind that lacks a key. A
 * profile's own keys may be missing and have their defaults then. Keys that are not known are kept for the next
 * writing. Numbers are brought into their range; of two profiles with one id the later one gets an id of its own,
 * always the same.
 */
[[nodiscard]] std::optional<Gelesen> auswerten(const QByteArray &json);
/** The same without what was remarked. */
[[nodiscard]] std::optional<QList<Profil>> lesen(const QByteArray &json);
} // namespace Profilformat
} // namespace quillmar::profil
