#pragma once

#include "namensraeume.h"

#include <QString>
#include <stop_token>

namespace quillmar::katalog
{
/**
 * Whether the file of a catalogue is whole. Looked at by a connection of its own that only reads, so that it may go on
 * beside all other work; it takes about a second for 100,000 documents.
 */
namespace Katalogpruefung
{
enum class Befund {
    Heil,
    Beschaedigt,
    Offen, ///< it could not be looked at, or was stopped
};
[[nodiscard]] Befund pruefen(const QString &pfad, const std::stop_token &ende = {});

/**
 * The file as it is now is known to be damaged. Remembered beside it by its size and time, so that the next program
 * does not write into it first.
 */
void vermerken(const QString &pfad);
void vermerkStreichen(const QString &pfad);
[[nodiscard]] bool istVermerkt(const QString &pfad);

/** A program that used the catalogue has died, or another one is using it right now. */
[[nodiscard]] bool istNachAbsturz(const QString &pfad);

/** Another program has the catalogue open. Only to be asked while this one has not: asking drops its locks. */
[[nodiscard]] bool istAnderswoOffen(const QString &pfad);
} // namespace Katalogpruefung
} // namespace quillmar::katalog
