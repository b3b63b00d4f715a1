#pragma once

#include "namensraeume.h"

#include <QStringList>

namespace quillmar::bedienteile
{
/** One line of the table of symbols. */
struct Zeichenzeile {
    enum class Farbe { Schrift, Warnung, Gut, Fehler, Akzent };

    const char *name;   ///< what the callers ask for
    const char *thema;  ///< name in the desktop's icon theme; empty: ours alone
    const char *eigene; ///< our drawing, without folder and ending
    Farbe farbe = Farbe::Schrift;
};

namespace Zeichentafel
{
/** The line of @p name, or nullptr. */
[[nodiscard]] const Zeichenzeile *zeile(const QString &name);

[[nodiscard]] QStringList namen();
} // namespace Zeichentafel
} // namespace quillmar::bedienteile
