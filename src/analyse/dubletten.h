#pragma once

#include <QList>
#include <QMap>
#include <QString>

class Datenbank;

/** Marking of documents that are the same. */
namespace Dubletten
{
struct Mitglied {
    qint64 id = 0;
    QString pfad;
};
using Gruppen = QMap<QString, QList<Mitglied>>; ///< by the hash that the members share

/**
 * @p a is the better copy to keep: a settled place before one that waits to be checked ("prüfen" or "Inbox" in the
 * path), then the shorter path.
 */
[[nodiscard]] bool istBesser(const Mitglied &a, const Mitglied &b);

/**
 * Marks all but the best member of each group as duplicates of the best one, with the similarity @p guete (0 to 1).
 * Returns how many members that were. Throws Fehler when the catalogue cannot be written.
 */
qsizetype dublettenMarkieren(Datenbank &db, const Gruppen &gruppen, double guete);
} // namespace Dubletten
