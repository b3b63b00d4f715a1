#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>
#include <functional>

namespace quillmar::analyse
{
/** Digests of many files, two threads at a time. */
namespace Pruefsummen
{
struct Datei {
    qint64 id = 0;
    QString pfad;
};
struct Ergebnis {
    qint64 id = 0;
    QString sha256;       ///< 64 hexadecimal characters; null when the file could not be read
    qint64 groesse = 0;   ///< bytes, when its reading began
    qint64 geaendert = 0; ///< nanoseconds since 1970, when its reading began
};

/**
 * Calls @p fertig on the calling thread with the results as they come, some at a time, until all files are done or
 * @p halt (called from several threads) turns true.
 */
void berechnen(const QList<Datei> &dateien, const std::function<bool()> &halt,
               const std::function<void(const QList<Ergebnis> &)> &fertig);
} // namespace Pruefsummen
} // namespace quillmar::analyse
