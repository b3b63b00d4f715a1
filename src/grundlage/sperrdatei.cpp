#include "sperrdatei.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace std::chrono_literals;

namespace
{
bool sperren(int griff, std::chrono::milliseconds wartezeit)
{
    const auto ende = std::chrono::steady_clock::now() + wartezeit;
    while (::flock(griff, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= ende)
            return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}
} // namespace

std::optional<Sperrdatei> Sperrdatei::nehmen(const QString &pfad, std::chrono::milliseconds wartezeit)
{
    const int griff = ::open(QFile::encodeName(pfad).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (griff < 0)
        return std::nullopt;
    Sperrdatei sperre(griff);
    if (!sperren(griff, wartezeit))
        return std::nullopt;
    return sperre;
}

Sperrdatei::Sperrdatei(Sperrdatei &&andere) noexcept : m_griff(std::exchange(andere.m_griff, -1)) {}

Sperrdatei &Sperrdatei::operator=(Sperrdatei &&andere) noexcept
{
    std::swap(m_griff, andere.m_griff);
    return *this;
}

Sperrdatei::~Sperrdatei()
{
    if (m_griff >= 0)
        ::close(m_griff);
}
