#include "zeit.h"

#include <QDateTime>

QString jetztIso() { return QDateTime::currentDateTimeUtc().toString(Qt::ISODate); }
