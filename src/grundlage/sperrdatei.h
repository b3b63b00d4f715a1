#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QString>
#include <chrono>
#include <optional>

namespace quillmar::grundlage
{
/**
 * Exclusive lock between programs, held on an open file (flock) while the object lives; the kernel frees it when the
 * holder dies. The file is created for the user alone and stays.
 */
class Sperrdatei
{
public:
    /** The lock, or none when another holds it past @p wartezeit or the file cannot be made. Follows no link. */
    [[nodiscard]] static std::optional<Sperrdatei> nehmen(const QString &pfad, std::chrono::milliseconds wartezeit);

    /** Leaves @p wort in the file for those who find it locked; on a full disk nothing. */
    void beschriften(const QByteArray &wort) const;
    /** What the last holder of the lock @p pfad has left there, if it has left anything. */
    [[nodiscard]] static QByteArray aufschrift(const QString &pfad);

private:
    explicit Sperrdatei(Dateigriff griff) : m_griff(std::move(griff)) {}
    Dateigriff m_griff;
};
} // namespace quillmar::grundlage
