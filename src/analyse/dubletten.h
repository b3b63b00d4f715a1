#pragma once

#include "dateien.h"
#include "namensraeume.h"

namespace quillmar::analyse
{
/** Marking of documents that are the same. */
namespace Dubletten
{
struct Mitglied {
    qint64 id = 0;
    QString pfad;
    bool neu = true; ///< may be marked; else the catalogue knew it before
    bool da = true;  ///< its file is there
};
using Gruppen = QMap<QString, QList<Mitglied>>; ///< by the hash that the members share

/**
 * @p a is the better copy to keep: a settled place before one that waits to be checked ("prüfen" or "Inbox" in the
 * path), then the shorter path.
 */
[[nodiscard]] bool istBesser(const Mitglied &a, const Mitglied &b);

/**
 * Marks all new members but the best member of each group as duplicates of that one, with the similarity @p guete (0 to
 * 1). One whose file is there goes before one whose file is not, and one that the catalogue knew before new ones.
 * Returns how many members were marked. Throws Fehler when the catalogue cannot be written.
 */
qsizetype dublettenMarkieren(Datenbank &db, const Gruppen &gruppen, double guete);

/**
 * New documents with those that share their hash and whose file is there, whatever has become of these: groups of at
 * least two with one new member at least. Looks at the disk.
 */
[[nodiscard]] Gruppen gruppen(Datenbank &db, Dateien::Gleichheit gleichheit);
} // namespace Dubletten
} // namespace quillmar::analyse
