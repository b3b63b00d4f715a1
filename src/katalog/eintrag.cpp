#include "eintrag.h"

#include <QStringList>

QString Eintrag::ziel() const
{
    QStringList ebenen = {ort.zweig, ort.ablage, ort.rubrik};
    ebenen.removeAll(QString());
    return ebenen.join(u'/');
}
