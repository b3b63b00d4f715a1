#include "platte.h"

#include "plattenfehler.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::grundlage
{
namespace
{
bool nichtUnterstuetzt(int fehler)
{
    return fehler == EINVAL || fehler == ENOSYS || fehler == EOPNOTSUPP || fehler == ENOTSUP;
}

/** For file systems without links as well: an exclusive empty file takes the name, the rename goes over it. */
int ueberPlatzhalter(const QByteArray &von, const QByteArray &nach)
{
    const Dateigriff platz(::open(nach.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!platz.offen())
        return errno;
    if (::rename(von.constData(), nach.constData()) == 0)
        return 0;
    const int fehler = errno;
    ::unlink(nach.constData());
    return fehler;
}

/** What errors of the operating system mean for the user. */
struct Fehlerursache {
    QList<int> nummern;
    QString satz;
};

const QList<Fehlerursache> &fehlerursachen()
{
    static const QList<Fehlerursache> liste = {
        {{ENOSPC, EDQUOT}, QUILLMAR_TEXT(u"kein Platz mehr auf dem Datenträger"_s)},
        {{EACCES, EPERM}, QUILLMAR_TEXT(u"keine Berechtigung"_s)},
        {{EROFS}, QUILLMAR_TEXT(u"der Datenträger ist schreibgeschützt"_s)},
        {{ENOENT, ENOTDIR}, QUILLMAR_TEXT(u"nicht gefunden"_s)},
        {{EEXIST}, QUILLMAR_TEXT(u"der Name ist schon vergeben"_s)},
        {{ENAMETOOLONG}, QUILLMAR_TEXT(u"der Name ist zu lang"_s)},
        {{EFBIG}, QUILLMAR_TEXT(u"die Datei ist zu groß für diesen Datenträger"_s)},
        {{EIO}, QUILLMAR_TEXT(u"der Datenträger meldet einen Fehler"_s)},
        {{EBUSY, ETXTBSY}, QUILLMAR_TEXT(u"ein anderes Programm benutzt es gerade"_s)},
        {{ENODEV, ENXIO, ENOTCONN, ESTALE, EHOSTDOWN, ETIMEDOUT},
         QUILLMAR_TEXT(u"der Datenträger ist nicht mehr erreichbar"_s)},
        {{EMFILE, ENFILE}, QUILLMAR_TEXT(u"zu viele Dateien sind geöffnet"_s)},
        {{ENOMEM}, QUILLMAR_TEXT(u"der Arbeitsspeicher reicht nicht"_s)}};
    return liste;
}
} // namespace

QString Platte::ursache(int fehler)
{
    for (const Fehlerursache &ursache : fehlerursachen()) {
        if (ursache.nummern.contains(fehler))
            return ursache.satz;
    }
    return QString::fromLocal8Bit(std::strerror(fehler));
}

void Platte::scheitern(const QString &satz, int fehler) { throw Plattenfehler(satz, ursache(fehler)); }

bool Platte::angaben(const QByteArray &pfad, struct stat &s)
{
    return !pfad.isEmpty() && ::lstat(pfad.constData(), &s) == 0;
}

qint64 Platte::zeitVon(const struct stat &s)
{
    constexpr qint64 jeSekunde = 1000000000;
    constexpr qint64 aeusserste = std::numeric_limits<qint64>::max() / jeSekunde - 1;
    return std::clamp(qint64(s.st_mtim.tv_sec), -aeusserste, aeusserste) * jeSekunde + s.st_mtim.tv_nsec;
}

bool Platte::unveraendert(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size && zeitVon(a) == zeitVon(b);
}

QByteArray Platte::ordnerTeil(const QByteArray &pfad) { return pfad.first(pfad.lastIndexOf('/') + 1); }

void Platte::ordnerSichern(const QByteArray &pfad)
{
    const Dateigriff ordner(::open(ordnerTeil(pfad).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (ordner.offen() && ::fsync(ordner.nummer()) != 0 && !nichtUnterstuetzt(errno) && errno != EROFS)
        scheitern(QUILLMAR_TEXT(u"Der Ordner ließ sich nicht sichern"_s), errno);
}

void Platte::anderenVerschliessen(const QByteArray &pfad)
{
    constexpr mode_t andere = S_IRWXG | S_IRWXO;
    struct stat s = {};
    if (::stat(pfad.constData(), &s) == 0 && (s.st_mode & andere) != 0) [[maybe_unused]]
        const int egal = ::chmod(pfad.constData(), s.st_mode & ~andere & 07777);
}

int Platte::umbenennen(const QByteArray &von, const QByteArray &nach)
{
    if (::renameat2(AT_FDCWD, von.constData(), AT_FDCWD, nach.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (!nichtUnterstuetzt(errno))
        return errno;
    // Without it: a second name that must be new, then the first one goes.
    if (::link(von.constData(), nach.constData()) == 0) {
        if (::unlink(von.constData()) == 0)
            return 0;
        const int geblieben = errno;
        ::unlink(nach.constData());
        return geblieben;
    }
    const int fehler = errno;
    return nichtUnterstuetzt(fehler) || fehler == EPERM ? ueberPlatzhalter(von, nach) : fehler;
}

bool Platte::sperren(int griff, std::chrono::milliseconds wartezeit)
{
    const auto ende = std::chrono::steady_clock::now() + wartezeit;
    while (::flock(griff, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= ende)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}
} // namespace quillmar::grundlage
