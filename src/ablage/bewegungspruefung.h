#pragma once

#include "namensraeume.h"
#include "protokollzeile.h"

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/** Whether a recorded movement can be taken back, as catalogue and disk are now. */
namespace Bewegungspruefung
{
/** A movement without a way: both ends are one and the same entry, so that nothing lies anywhere else because of it. */
[[nodiscard]] bool istOhneWeg(const Protokollzeile &zeile);

/** What the catalogue says of a movement. */
struct Verzeichnet {
    qint64 protokollId = 0;     ///< its row; 0 if there is none
    bool zurueck = false;       ///< it is turned back already
    QString pfad;               ///< where its document is today; empty if it has no place
    bool platzVergeben = false; ///< another document has its old place, and is not known to be gone from there
    QByteArray vonName;         ///< see Protokollzeile
};
/** The row of the movement that a log line tells of: the one of the line's own time goes before others. */
[[nodiscard]] Verzeichnet verzeichnet(Datenbank &db, const Protokollzeile &zeile);

/** The same for the row with @p protokollId. */
[[nodiscard]] Verzeichnet stand(Datenbank &db, qint64 protokollId);

/** Why the disk or the catalogue do not allow to take it back, for the user; empty if they do. Blocks. */
[[nodiscard]] QString hindernis(const Protokollzeile &zeile, const Verzeichnet &stand);
} // namespace Bewegungspruefung
} // namespace quillmar::ablage
