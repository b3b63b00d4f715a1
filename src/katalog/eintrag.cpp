#include "eintrag.h"

#include <QStringList>

namespace quillmar::katalog
{
QString Eintrag::ziel() const
{
    QStringList ebenen = {ort.zweig, ort.ablage, ort.rubrik};
    ebenen.removeAll(QString());
    return ebenen.join(u'/');
}
} // namespace quillmar::katalog
