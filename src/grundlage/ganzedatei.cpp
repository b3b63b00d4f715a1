#include "ganzedatei.h"

#include <QSaveFile>
#include <cerrno>
#include <unistd.h>

namespace quillmar::grundlage
{
namespace
{
bool istDurchgeschrieben(int griff) { return ::fsync(griff) == 0 || errno == EINVAL || errno == EROFS; }
} // namespace

bool ganzSchreiben(const QString &pfad, const QByteArray &bytes, QFile::Permissions rechte)
{
    QSaveFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly))
        return false;
    datei.setPermissions(rechte);
    // What fits into its buffer is written with commit() only, which does not look whether that worked (Qt 6.4): on a
    // full disk an empty file would take the place.
    return datei.write(bytes) == bytes.size() && datei.flush() && istDurchgeschrieben(datei.handle()) && datei.commit();
}
} // namespace quillmar::grundlage
