#pragma once

#include "fehler.h"
#include "namensraeume.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <chrono>
#include <stop_token>

namespace quillmar::katalog
{
/** A copy of a catalogue as it was. */
struct Sicherung {
    QString datei; ///< full path
    int nummer = 0;
    QDateTime zeit; ///< when it was made, in UTC
    bool operator==(const Sicherung &) const = default;
};

/** The copies that are kept of a catalogue, in "Sicherungen" beside it; for the user alone. */
namespace Sicherungen
{
inline constexpr qsizetype hoechstens = 7;

[[nodiscard]] QString ordner(const QString &katalog);

/** The last one made comes first, whatever the clock said. */
[[nodiscard]] QList<Sicherung> alle(const QString &katalog);

/** None of them was made on the day of @p jetzt. */
[[nodiscard]] bool istFaellig(const QString &katalog, const QDateTime &jetzt);

/**
 * Copies the catalogue as it is at this moment, beside all other work, and throws away what is more than seven. False
 * when @p ende stopped it, or another program is doing the same for longer than @p geduld. Throws Fehler when it cannot
 * be copied, also when the disk would be nearly full then; what was kept before stays.
 */
bool anlegen(const QString &katalog, const std::stop_token &ende = {}, std::chrono::milliseconds geduld = {});
} // namespace Sicherungen
} // namespace quillmar::katalog
