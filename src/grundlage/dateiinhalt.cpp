#include "dateiinhalt.h"

#include "dateigriff.h"
#include "pfade.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace quillmar::grundlage
{
namespace
{
using Befund = Dateiinhalt::Befund;

bool lesen(int griff, QByteArray &bytes)
{
    qint64 stelle = 0;
    while (stelle < bytes.size()) {
        const ssize_t gelesen = ::read(griff, bytes.data() + stelle, size_t(bytes.size() - stelle));
        if (gelesen < 0 && errno == EINTR)
            continue;
        if (gelesen <= 0)
            break;
        stelle += gelesen;
    }
    bytes.truncate(stelle);
    return stelle > 0;
}

Dateistand standVon(const struct stat &auskunft)
{
    return {auskunft.st_size, qint64(auskunft.st_mtim.tv_sec) * 1'000'000'000 + auskunft.st_mtim.tv_nsec,
            auskunft.st_ino};
}
} // namespace

Dateiinhalt dateiinhalt(const QString &pfad, qint64 hoechstens, const Dateistand &bekannt)
{
    const QByteArray wirklich = aufDerPlatte(pfad);
    // Opening a pipe would wait for someone to write into it.
    const Dateigriff griff(wirklich.isEmpty() ? -1 : ::open(wirklich.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!griff.offen())
        return {wirklich.isEmpty() || errno == ENOENT ? Befund::Verschwunden : Befund::Unlesbar, {}, {}};
    struct stat auskunft = {};
    if (::fstat(griff.nummer(), &auskunft) != 0 || !S_ISREG(auskunft.st_mode))
        return {};
    Dateiinhalt inhalt{Befund::Gelesen, {}, standVon(auskunft)};
    if (inhalt.stand == bekannt)
        inhalt.befund = Befund::Unveraendert;
    else if (auskunft.st_size > hoechstens)
        inhalt.befund = Befund::ZuGross;
    else if (inhalt.bytes.resize(auskunft.st_size); !lesen(griff.nummer(), inhalt.bytes) && auskunft.st_size > 0)
        inhalt.befund = Befund::Unlesbar;
    return inhalt;
}
} // namespace quillmar::grundlage
