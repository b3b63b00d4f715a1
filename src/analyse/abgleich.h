#pragma once

#include "bestand.h"
#include "wiedererkennung.h"

#include <QHash>

class Datenbank;
class Lauf;

/**
 * Brings the catalogue up to what lies in the source folder: what is new is taken in, what another file has replaced
 * gives its path to that one, what had vanished and is back goes on where it was.
 */
namespace Abgleich
{
/** A document of the catalogue that claims a path. */
struct Bekanntes {
    qint64 id = 0;
    QString status;
    bool abwesend = false; ///< a stage has found its file missing
    Wiedererkennung::Notiz notiz;
};
using Verzeichnis = QHash<QString, Bekanntes>; ///< by path

/** What is to be done about a file that lies at a path. */
enum class Fall {
    Neu,       ///< nobody claims the path
    Bekannt,   ///< nothing
    Vermerken, ///< taken as it stands; size and time are noted
    Zurueck,   ///< the same file as before is back
    Offen,     ///< its bytes must tell whether it is still the same
};
[[nodiscard]] Fall fall(const Bekanntes *bekannt, const Bestand::Fund &fund);

/** All documents with a path. */
[[nodiscard]] Verzeichnis verzeichnis(Datenbank &db);

/**
 * Enters @p funde; also looks for vanished documents elsewhere on the disk. @p seit is the newest movement before the
 * walk: the review goes on meanwhile. Throws Fehler.
 */
void eintragen(Lauf &lauf, const QList<Bestand::Fund> &funde, qint64 seit);
} // namespace Abgleich
