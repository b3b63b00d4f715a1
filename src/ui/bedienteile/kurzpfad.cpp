#include "kurzpfad.h"

#include <QDir>

namespace quillmar::bedienteile
{
QString kurzpfad(const QString &pfad)
{
    const QString heim = QDir::homePath();
    if (pfad == heim)
        return QStringLiteral("~");
    return pfad.startsWith(heim + u'/') ? u'~' + pfad.mid(heim.size()) : pfad;
}
} // namespace quillmar::bedienteile
