#pragma once

#include "namensraeume.h"
#include "status.h"

#include <QList>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;

/**
 * The deeds of the review in their order, so that each can be taken back, also after a restart. A movement is a deed by
 * itself; what changes no file, or many at once, is taken down here with what it did to which document. Speaks for the
 * tables taten, tatposten and uebergangen. Throws Katalogfehler.
 */
namespace Taten
{
/** One deed, as long as it lasts. */
struct Tat {
    bool bewegung = false; ///< a movement by itself
    qint64 id = 0;         ///< of its row: in protokoll for a movement, else in taten
    bool operator==(const Tat &) const = default;
};

/** What a deed did to one document. */
struct Posten {
    qint64 dokument = 0;
    Status altStatus = Status::Unbekannt;
    Status neuStatus = Status::Unbekannt; ///< of a movement: unknown, its record says more
    qint64 protokollId = 0;               ///< the movement; 0 when only the status changed
};

/** Begins a deed of many movements; each joins it as it is recorded. Throws Fehler. */
[[nodiscard]] Tat beginnen(Datenbank &db, const QString &art);
/** Takes an item down. Part of the transaction that records it. Throws Fehler. */
void eintragen(Datenbank &db, qint64 tat, const Posten &posten);

/** Changes the status of one document, all or nothing; none when its status is no longer @p alt. Throws Fehler. */
[[nodiscard]] std::optional<Tat> statusWechseln(Datenbank &db, const QString &art, qint64 dokument, Status alt,
                                                Status neu);
/** Changes the status of all documents that have @p alt and are not excluded; none when there are none. */
[[nodiscard]] std::optional<Tat> alleWechseln(Datenbank &db, const QString &art, Status alt, Status neu);

/** Goes through the deeds that last, newest first. */
class Folge
{
public:
    explicit Folge(Datenbank &db) : m_db(db) {}
    [[nodiscard]] std::optional<Tat> naechste();

private:
    Datenbank &m_db;
    std::optional<qint64> m_vorTat;
    std::optional<qint64> m_vorBewegung;
};

/** What of a deed still stands as it has left it; empty when all of it was taken back on other ways. */
[[nodiscard]] QList<Posten> offene(Datenbank &db, const Tat &tat);
/** Nothing of a deed of many stands any more. */
[[nodiscard]] bool istErledigt(Datenbank &db, const Tat &tat);

/** Takes changes of the status back. Throws Fehler. */
void statusZurueck(Datenbank &db, const QList<Posten> &posten);
/** Nothing of the deed is left. */
void schliessen(Datenbank &db, const Tat &tat);

/** It could not be taken back once, and that was said: the next time it is passed over. */
void uebergehen(Datenbank &db, const Tat &tat);
[[nodiscard]] bool istUebergangen(Datenbank &db, const Tat &tat);
} // namespace Taten
} // namespace quillmar::katalog
