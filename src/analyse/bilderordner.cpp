#include "bilderordner.h"

#include "sprache.h"
#include "text.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QUuid>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
/** The folder's lock; not open when another holds it or it is not the user's own folder. */
Dateigriff sperren(const QString &ort)
{
    Dateigriff griff(::open(QFile::encodeName(ort).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat s = {};
    const bool eigener = griff.offen() && ::fstat(griff.nummer(), &s) == 0 && s.st_uid == ::getuid();
    return eigener && ::flock(griff.nummer(), LOCK_EX | LOCK_NB) == 0 ? std::move(griff) : Dateigriff();
}
} // namespace

Platzmangel::Platzmangel(const QString &ordner)
    : Fehler(gefuellt(Sprache::text(u"Für die Seitenbilder der Texterkennung ist kein Platz mehr: %@"_s), {ordner}))
{
}

Bilderordner::Bilderordner()
    : m_ort(QDir::temp().filePath(u"ablage-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces)))
{
    const bool da = ::mkdir(QFile::encodeName(m_ort).constData(), 0700) == 0;
    if (!da && errno == ENOSPC)
        throw Platzmangel(QDir::tempPath());
    if (!da)
        throw Fehler(gefuellt(Sprache::text(u"Der Ordner %@ lässt sich nicht anlegen"_s), {m_ort}));
    m_sperre = sperren(m_ort);
}

Bilderordner::~Bilderordner() { QDir(m_ort).removeRecursively(); }

QStringList Bilderordner::bilder() const
{
    QStringList pfade;
    for (const QString &name : QDir(m_ort).entryList({u"*.png"_s}, QDir::Files, QDir::Unsorted))
        pfade << m_ort + u'/' + name;
    pfade.sort();
    return pfade;
}

void Bilderordner::leeren() const
{
    for (const QString &bild : bilder())
        QFile::remove(bild);
}

void Bilderordner::platzPruefen() const
{
    constexpr quint64 soGutWieNichts = 256 * 1024;
    struct statvfs platte = {};
    if (::statvfs(QFile::encodeName(m_ort).constData(), &platte) == 0 &&
        quint64(platte.f_bavail) * platte.f_frsize < soGutWieNichts)
        throw Platzmangel(QDir::tempPath());
}

void Bilderordner::verwaisteEntfernen()
{
    const QDir ablage = QDir::temp();
    for (const QString &name : ablage.entryList({u"ablage-*"_s}, QDir::Dirs | QDir::NoDotAndDotDot)) {
        const bool unserName = !QUuid::fromString(name.mid(7)).isNull();
        // A fresh one may be about to get its lock. One of tomorrow is not fresh: the clock has been set back since.
        const qint64 alter = QFileInfo(ablage.filePath(name)).lastModified().secsTo(QDateTime::currentDateTime());
        const bool alt = alter > 60 || alter < -60;
        if (unserName && alt && sperren(ablage.filePath(name)).offen())
            QDir(ablage.filePath(name)).removeRecursively();
    }
}
} // namespace quillmar::analyse
