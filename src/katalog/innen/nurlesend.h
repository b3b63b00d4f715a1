#pragma once

#include "namensraeume.h"

#include <QString>
#include <memory>

struct sqlite3;

namespace quillmar::katalog
{
struct Verbindungsende {
    void operator()(sqlite3 *griff) const noexcept;
};
using Nurlesend = std::unique_ptr<sqlite3, Verbindungsende>;

/** A connection to the catalogue at @p pfad that changes nothing of it, not even when it closes; null on failure. */
[[nodiscard]] Nurlesend nurLesendOeffnen(const QString &pfad);

/** SQLite's result code says that the file is damaged. */
[[nodiscard]] bool istSchaden(int code);
} // namespace quillmar::katalog
