#include "zeit.h"

#include <QDateTime>

namespace quillmar::grundlage
{
QString jetztIso() { return QDateTime::currentDateTimeUtc().toString(Qt::ISODate); }
} // namespace quillmar::grundlage
