#include "sperrdatei.h"

#include "platte.h"

#include <QFile>
#include <fcntl.h>

namespace quillmar::grundlage
{
std::optional<Sperrdatei> Sperrdatei::nehmen(const QString &pfad, std::chrono::milliseconds wartezeit)
{
    const QByteArray ort = QFile::encodeName(pfad);
    Dateigriff griff(::open(ort.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!griff.offen())
        return std::nullopt;
    Platte::anderenVerschliessen(ort);
    if (!Platte::sperren(griff.nummer(), wartezeit))
        return std::nullopt;
    return Sperrdatei(std::move(griff));
}
} // namespace quillmar::grundlage
