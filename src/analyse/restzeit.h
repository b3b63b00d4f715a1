#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>
#include <chrono>
#include <optional>

namespace quillmar::analyse
{
/**
 * Remaining-time text of work that took @p vergangen for @p fertig of @p gesamt items, extrapolated in a straight line.
 * Empty before the first item and after the last.
 */
[[nodiscard]] QString restzeitText(std::chrono::duration<double> vergangen, qsizetype fertig, qsizetype gesamt);
/** Seconds below 90 s, whole minutes below 90 min, then hours with one decimal. */
[[nodiscard]] QString restzeitText(std::chrono::duration<double> rest);

/** What is known of one of several stages. */
struct Stufenmass {
    std::chrono::duration<double> dauer{}; ///< taken so far
    qsizetype fertig = 0;                  ///< documents in that time
    qsizetype offen = 0;                   ///< documents to come
    bool operator==(const Stufenmass &) const = default;
};
/**
 * What all @p stufen will take yet, each at its own pace so far. None while one with open documents has done none, and
 * when nothing is open.
 */
[[nodiscard]] std::optional<std::chrono::duration<double>> restdauer(const QList<Stufenmass> &stufen);
} // namespace quillmar::analyse
