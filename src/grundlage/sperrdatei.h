#pragma once

#include <QString>
#include <chrono>
#include <optional>

/**
 * Exclusive lock between programs, held on an open file (flock) while the object lives; the kernel frees it when the
 * holder dies. The file is created for the user alone and stays.
 */
class Sperrdatei
{
public:
    /** The lock, or none when another holds it past @p wartezeit or the file cannot be made. Follows no link. */
    [[nodiscard]] static std::optional<Sperrdatei> nehmen(const QString &pfad, std::chrono::milliseconds wartezeit);

    Sperrdatei(Sperrdatei &&andere) noexcept;
    Sperrdatei &operator=(Sperrdatei &&andere) noexcept;
    Sperrdatei(const Sperrdatei &) = delete;
    Sperrdatei &operator=(const Sperrdatei &) = delete;
    ~Sperrdatei();

private:
    explicit Sperrdatei(int griff) : m_griff(griff) {}
    int m_griff = -1;
};
