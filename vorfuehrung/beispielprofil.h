#pragma once

#include <QString>

namespace vorfuehrung
{

/** Name under which the demonstration server offers its rules. */
[[nodiscard]] QString modellDerVorfuehrung();

/**
 * Writes a profile list with the one profile "Vorführung" for the archive in @p ordner to @p datei. An empty @p modell
 * means the demonstration model, which is asked for the second opinion as well; with any other no second opinion is
 * sought. Throws Fehlschlag.
 */
void profilSchreiben(const QString &datei, const QString &ordner, const QString &modell = {});

} // namespace vorfuehrung
