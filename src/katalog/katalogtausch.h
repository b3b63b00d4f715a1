#pragma once

#include "fehler.h"
#include "namensraeume.h"

#include <QString>

namespace quillmar::katalog
{
/** Another file takes the place of a catalogue; the former one is kept beside it. */
namespace Katalogtausch
{
/** Where the one is made that is to take the place of @p katalog. */
[[nodiscard]] QString entstehender(const QString &katalog);
/** Forgets what was made there. */
void verwerfen(const QString &katalog);

/** One is under way, or was interrupted. */
[[nodiscard]] bool istImGange(const QString &katalog);
/** Throws the Fehler for one that another program has open. */
[[noreturn]] void wirdBenutzt();

/**
 * What was made takes the place; from the first step on the exchange is finished, if need be by klaeren(). Returns
 * where the former catalogue lies, empty if there was none. This program may not have it open, and it is refused while
 * another one has. Throws Fehler; nothing has changed then.
 */
QString vollziehen(const QString &katalog);

/** Finishes an exchange that was interrupted. Throws Fehler when it can neither be finished nor left as it is. */
void klaeren(const QString &katalog);
} // namespace Katalogtausch
} // namespace quillmar::katalog
