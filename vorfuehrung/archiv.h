#pragma once

#include <QString>

namespace vorfuehrung
{

/**
 * Writes the sample archive into @p ordner, which is made if it is missing:
 *   Scans           the source folder with about forty German documents,
 *   Ablage          an empty filing tree,
 *   erwartet.json   what an analysis with the demonstration model must find.
 * Files of the same name are overwritten, others are left alone. The same program and poppler write the same bytes
 * every time. Throws Fehlschlag.
 */
void archivSchreiben(const QString &ordner);

/** The source folder and the filing tree of an archive in @p ordner. */
[[nodiscard]] QString quelleVon(const QString &ordner);
[[nodiscard]] QString zielVon(const QString &ordner);

} // namespace vorfuehrung
