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

void Sperrdatei::beschriften(const QByteArray &wort) const
{
    if (::ftruncate(m_griff.nummer(), 0) != 0 ||
        ::pwrite(m_griff.nummer(), wort.constData(), size_t(wort.size()), 0) != wort.size())
        qWarning("The lock file cannot be written");
}

QByteArray Sperrdatei::aufschrift(const QString &pfad)
{
    constexpr qint64 laengste = 64;
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.read(laengste) : QByteArray();
}
} // namespace quillmar::grundlage
