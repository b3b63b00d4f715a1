#pragma once

#include "namensraeume.h"

#include <unistd.h>
#include <utility>

namespace quillmar::grundlage
{
/** Owner of a file descriptor. */
class Dateigriff
{
public:
    explicit Dateigriff(int nummer = -1) : m_nummer(nummer) {}
    ~Dateigriff()
    {
        if (m_nummer >= 0)
            ::close(m_nummer);
    }
    Dateigriff(Dateigriff &&andere) noexcept : m_nummer(std::exchange(andere.m_nummer, -1)) {}
    Dateigriff &operator=(Dateigriff &&andere) noexcept
    {
        std::swap(m_nummer, andere.m_nummer);
        return *this;
    }
    Dateigriff(const Dateigriff &) = delete;
    Dateigriff &operator=(const Dateigriff &) = delete;

    [[nodiscard]] int nummer() const { return m_nummer; }
    [[nodiscard]] bool offen() const { return m_nummer >= 0; }

private:
    int m_nummer;
};
} // namespace quillmar::grundlage
