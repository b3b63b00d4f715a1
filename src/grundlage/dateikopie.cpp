#include "dateikopie.h"

#include "platte.h"
#include "plattenfehler.h"
#include "sha256.h"

#include <QUuid>
#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/xattr.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
constexpr size_t stueck = 1024 * 1024;

QString praefix() { return u".quillmar-"_s; }

QString nichtKopiert() { return QUILLMAR_TEXT(u"Die Datei ließ sich nicht kopieren"_s); }

void ganzSchreiben(int griff, const char *bytes, size_t anzahl)
{
    while (anzahl > 0) {
        const ssize_t n = ::write(griff, bytes, anzahl);
        if (n < 0 && errno != EINTR)
            Platte::scheitern(nichtKopiert(), errno);
        bytes += n > 0 ? n : 0;
        anzahl -= n > 0 ? size_t(n) : 0;
    }
}
} // namespace

Dateikopie::Dateikopie(QByteArray quelle, const struct stat &angaben, QByteArray ordner)
    : m_quelle(std::move(quelle)), m_angaben(angaben), m_ordner(std::move(ordner)),
      m_name(praefix() + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

Dateikopie::~Dateikopie()
{
    if (m_angelegt)
        ::unlink(pfad().constData());
}

bool Dateikopie::istEigenerName(const QString &name)
{
    return name.startsWith(praefix()) && !name.contains(u'/') &&
           !QUuid::fromString(name.mid(praefix().size())).isNull();
}

void Dateikopie::anlegen()
{
    const Dateigriff von(::open(m_quelle.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat jetzt = {};
    if (!von.offen() || ::fstat(von.nummer(), &jetzt) != 0)
        Platte::scheitern(nichtKopiert(), errno);
    const Dateigriff nach(::open(pfad().constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!nach.offen())
        Platte::scheitern(nichtKopiert(), errno);
    m_angelegt = true;
    const QString summe = uebertragen(von, nach);
    attribute(von, nach);
    eigenschaften(nach);
    if (::fsync(nach.nummer()) != 0)
        Platte::scheitern(nichtKopiert(), errno);
    struct stat danach = {};
    if (::fstat(von.nummer(), &danach) != 0 || !Platte::unveraendert(m_angaben, jetzt) ||
        !Platte::unveraendert(jetzt, danach))
        throw Plattenfehler(nichtKopiert(), QUILLMAR_TEXT(u"sie wurde währenddessen verändert"_s));
    vergleichen(summe);
}

/** Copies the bytes and returns their digest. */
QString Dateikopie::uebertragen(const Dateigriff &von, const Dateigriff &nach) const
{
    ::posix_fadvise(von.nummer(), 0, 0, POSIX_FADV_SEQUENTIAL);
    Sha256 digest;
    std::vector<char> puffer(stueck);
    for (;;) {
        const ssize_t n = ::read(von.nummer(), puffer.data(), puffer.size());
        if (n == 0)
            return Sha256::hex(digest.ende());
        if (n < 0 && errno != EINTR)
            Platte::scheitern(nichtKopiert(), errno);
        if (n > 0) {
            digest.dazu(QByteArrayView(puffer.data(), n));
            ganzSchreiben(nach.nummer(), puffer.data(), size_t(n));
        }
    }
}

/** Tags and comments that the user gave the file. A file system without them refuses: the content is what matters. */
void Dateikopie::attribute(const Dateigriff &von, const Dateigriff &nach)
{
    QByteArray namen(std::max<ssize_t>(0, ::flistxattr(von.nummer(), nullptr, 0)), '\0');
    const ssize_t laenge = namen.isEmpty() ? 0 : ::flistxattr(von.nummer(), namen.data(), size_t(namen.size()));
    if (laenge <= 0)
        return;
    for (const QByteArray &name : namen.first(laenge).split('\0')) {
        if (!name.startsWith("user."))
            continue; // the system's own are made by the system
        QByteArray wert(std::max<ssize_t>(0, ::fgetxattr(von.nummer(), name.constData(), nullptr, 0)), '\0');
        const ssize_t groesse = ::fgetxattr(von.nummer(), name.constData(), wert.data(), size_t(wert.size()));
        if (groesse >= 0) [[maybe_unused]]
            const int egal = ::fsetxattr(nach.nummer(), name.constData(), wert.constData(), size_t(groesse), 0);
    }
}

void Dateikopie::eigenschaften(const Dateigriff &nach) const
{
    // File systems without modes refuse this; the content is what matters.
    [[maybe_unused]] const int egal = ::fchmod(nach.nummer(), m_angaben.st_mode & 07777);
    const std::array<struct timespec, 2> zeiten = {m_angaben.st_atim, m_angaben.st_mtim};
    if (::futimens(nach.nummer(), zeiten.data()) != 0)
        Platte::scheitern(nichtKopiert(), errno);
}

/** Reads what was written back and compares size and digest. */
void Dateikopie::vergleichen(const QString &summe) const
{
    struct stat s = {};
    {
        // Out of the cache, so that the disk is asked and not the memory.
        const Dateigriff kopie(::open(pfad().constData(), O_RDONLY | O_CLOEXEC));
        if (kopie.offen())
            ::posix_fadvise(kopie.nummer(), 0, 0, POSIX_FADV_DONTNEED);
    }
    if (!Platte::angaben(pfad(), s) || s.st_size != m_angaben.st_size || sha256Datei(pfad()) != summe)
        throw Plattenfehler(nichtKopiert(), QUILLMAR_TEXT(u"die Kopie stimmt nicht mit dem Original überein"_s));
}
} // namespace quillmar::grundlage
