#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QString>
#include <memory>

namespace quillmar::grundlage
{
/** What tells one state of a file from another without reading it. */
struct Dateistand {
    qint64 groesse = -1;  ///< bytes
    qint64 geaendert = 0; ///< nanoseconds since 1970
    quint64 nummer = 0;   ///< of the file on its drive
    bool operator==(const Dateistand &) const = default;
};

/** A whole file, or why there is none. */
struct Dateiinhalt {
    enum class Befund { Gelesen, Unveraendert, Verschwunden, Unlesbar, ZuGross };

    Befund befund = Befund::Unlesbar;
    std::shared_ptr<const Dateigriff> bytes; ///< a copy in memory that nobody can change; null unless read
    Dateistand stand;
};

/**
 * Copies the regular file @p pfad (NFC) of at most @p hoechstens bytes; nothing when it is still in the state
 * @p bekannt. Blocks for as long as the drive takes, for ever on a network drive that hangs. Never throws.
 */
[[nodiscard]] Dateiinhalt dateiinhalt(const QString &pfad, qint64 hoechstens, const Dateistand &bekannt = {});
} // namespace quillmar::grundlage
