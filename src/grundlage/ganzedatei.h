#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QFile>
#include <QString>

namespace quillmar::grundlage
{
/**
 * Replaces the file @p pfad by one that holds @p bytes, or makes it; all or nothing, whatever happens to disk or
 * program. False when it could not be: the former one stays. For files of the program's own.
 */
[[nodiscard]] bool ganzSchreiben(const QString &pfad, const QByteArray &bytes,
                                 QFile::Permissions rechte = QFile::ReadOwner | QFile::WriteOwner);
} // namespace quillmar::grundlage
