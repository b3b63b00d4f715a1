#include "programmordner.h"

#include "platte.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
constexpr auto nurBesitzer = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

void vonFrueherUebernehmen(const QDir &daten, const QString &neu)
{
    for (const QString &alt : {u"Hollerbrand"_s, u"Ablage"_s}) {
        if (QFileInfo(daten.filePath(alt)).isDir()) {
            QDir().rename(daten.filePath(alt), neu);
            return;
        }
    }
}
} // namespace

QString programmOrdner()
{
    const QDir daten(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    QString ordner = daten.filePath(u"Quillmar"_s);
    if (!QFileInfo::exists(ordner)) {
        vonFrueherUebernehmen(daten, ordner);
        QDir().mkpath(ordner);
        QFile::setPermissions(ordner, nurBesitzer);
    }
    Platte::anderenVerschliessen(QFile::encodeName(ordner));
    return ordner;
}
} // namespace quillmar::grundlage
