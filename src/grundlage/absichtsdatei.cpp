#include "absichtsdatei.h"

#include "nachschlagen.h"
#include "platte.h"

#include <QFile>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
QString nichtBegonnen() { return QUILLMAR_TEXT(u"Die Bewegung lässt sich nicht vormerken und beginnt daher nicht"_s); }
} // namespace

std::optional<Absichtsdatei> Absichtsdatei::oeffnen(const QString &pfad, std::chrono::milliseconds wartezeit)
{
    const QByteArray ort = QFile::encodeName(pfad);
    Dateigriff griff(::open(ort.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW));
    if (!griff.offen() && errno == ENOENT) {
        griff = Dateigriff(::open(ort.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
        if (griff.offen())
            Platte::ordnerSichern(ort); // a file that is gone after a crash announces nothing
    }
    if (!griff.offen())
        Platte::scheitern(nichtBegonnen(), errno);
    Platte::anderenVerschliessen(ort);
    if (!Platte::sperren(griff.nummer(), wartezeit))
        return std::nullopt;
    return Absichtsdatei(std::move(griff));
}

QList<QByteArray> Absichtsdatei::zeilen() const
{
    QByteArray inhalt;
    std::array<char, 65536> puffer = {};
    for (off_t stelle = 0;;) {
        const ssize_t n = ::pread(m_griff.nummer(), puffer.data(), puffer.size(), stelle);
        if (n < 0) // taken for empty, what stands there would be cleared
            Platte::scheitern(QUILLMAR_TEXT(u"Die vorgemerkten Bewegungen lassen sich nicht lesen"_s), errno);
        if (n == 0)
            break;
        inhalt.append(puffer.data(), n);
        stelle += n;
    }
    QList<QByteArray> zeilen = inhalt.split('\n');
    zeilen.removeLast(); // empty, or torn by a crash while it was written: that movement did not begin
    zeilen.removeAll(QByteArray());
    return zeilen;
}

void Absichtsdatei::schreiben(const QList<QByteArray> &zeilen)
{
    const QByteArray bytes = zeilen.join('\n') + '\n';
    const off_t ende = ::lseek(m_griff.nummer(), 0, SEEK_END);
    const ssize_t n = ::write(m_griff.nummer(), bytes.constData(), size_t(bytes.size()));
    if (n == bytes.size() && ::fdatasync(m_griff.nummer()) == 0)
        return;
    const int fehler = n < 0 || n == bytes.size() ? errno : ENOSPC;
    // What did not begin is not announced, and a torn line would swallow the next one.
    [[maybe_unused]] const int egal = ::ftruncate(m_griff.nummer(), ende);
    Platte::scheitern(nichtBegonnen(), fehler);
}

void Absichtsdatei::leeren(const QList<QByteArray> &bleibende)
{
    // What stays is written before the rest goes. If this does not reach the disk before a crash, the settling finds
    // everything recorded already.
    const QByteArray bytes = bleibende.isEmpty() ? QByteArray() : bleibende.join('\n') + '\n';
    if (::pwrite(m_griff.nummer(), bytes.constData(), size_t(bytes.size()), 0) == bytes.size()) {
        [[maybe_unused]] const int egal = ::ftruncate(m_griff.nummer(), bytes.size());
    }
}
} // namespace quillmar::grundlage
