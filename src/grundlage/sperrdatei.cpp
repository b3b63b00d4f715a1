#include "sperrdatei.h"

#include "platte.h"

#include <QFile>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

std::optional<Sperrdatei> Sperrdatei::nehmen(const QString &pfad, std::chrono::milliseconds wartezeit)
{
    const int griff = ::open(QFile::encodeName(pfad).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (griff < 0)
        return std::nullopt;
    Sperrdatei sperre(griff);
    Platte::anderenVerschliessen(QFile::encodeName(pfad));
    if (!Platte::sperren(griff, wartezeit))
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
