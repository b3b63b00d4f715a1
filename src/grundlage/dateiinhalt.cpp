#include "dateiinhalt.h"

#include "dateigriff.h"
#include "pfade.h"
#include "platte.h"
#include "speicherdatei.h"

#include <QByteArray>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace quillmar::grundlage
{
namespace
{
using Befund = Dateiinhalt::Befund;

constexpr qint64 stueckgroesse = 1 << 18;

/** Bytes that came from @p griff into @p bytes, at most so many; -1 when one of them refuses. */
ssize_t stueckLesen(int griff, char *bytes, size_t hoechstens)
{
    for (;;) {
        const ssize_t gelesen = ::read(griff, bytes, hoechstens);
        if (gelesen >= 0 || errno != EINTR)
            return gelesen;
    }
}

bool stueckSchreiben(int griff, const char *bytes, ssize_t anzahl)
{
    while (anzahl > 0) {
        const ssize_t geschrieben = ::write(griff, bytes, size_t(anzahl));
        if (geschrieben < 0 && errno == EINTR)
            continue;
        if (geschrieben <= 0)
            return false;
        bytes += geschrieben;
        anzahl -= geschrieben;
    }
    return true;
}

/** The first @p groesse bytes of @p griff, or as many as there are; null when it cannot be read or memory is short. */
std::shared_ptr<const Dateigriff> abzug(int griff, qint64 groesse)
{
    auto kopie = std::make_shared<Dateigriff>(Speicherdatei::neue());
    QByteArray stueck(stueckgroesse, Qt::Uninitialized);
    while (groesse > 0) {
        const ssize_t gelesen = stueckLesen(griff, stueck.data(), size_t(std::min(groesse, stueckgroesse)));
        if (gelesen < 0 || !stueckSchreiben(kopie->nummer(), stueck.constData(), gelesen))
            return {};
        if (gelesen == 0)
            break;
        groesse -= gelesen;
    }
    return Speicherdatei::versiegeln(*kopie, true) ? kopie : nullptr;
}

Dateistand standVon(const struct stat &auskunft)
{
    return {auskunft.st_size, Platte::zeitVon(auskunft), auskunft.st_ino};
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
    else if (inhalt.bytes = abzug(griff.nummer(), auskunft.st_size); !inhalt.bytes)
        inhalt.befund = Befund::Unlesbar;
    return inhalt;
}
} // namespace quillmar::grundlage
