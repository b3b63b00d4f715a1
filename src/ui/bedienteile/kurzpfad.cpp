#include "kurzpfad.h"

#include <QDir>

QString kurzpfad(const QString &pfad)
{
    const QString heim = QDir::homePath();
    if (pfad == heim)
        return QStringLiteral("~");
    return pfad.startsWith(heim + u'/') ? u'~' + pfad.mid(heim.size()) : pfad;
}
