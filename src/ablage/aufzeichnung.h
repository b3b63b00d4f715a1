#pragma once

#include "absicht.h"
#include "namensraeume.h"

namespace quillmar::katalog
{
struct Bewegung;
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/** Writing of finished movements into the catalogue. */
namespace Aufzeichnung
{
struct Ergebnis {
    qint64 protokollId = 0; ///< its row
    qint64 angepasst = 0;   ///< waiting documents that the learning memory adjusted
};
/**
 * Records a movement with the values it was accepted with and what is learned from them, in one transaction. Throws
 * Fehler; nothing is recorded then.
 */
Ergebnis bewegung(Datenbank &db, const Absicht &absicht);

/** Records movements turned back, all in one transaction. Those without a row are passed over. Throws Fehler. */
void ruecknahmen(Datenbank &db, const QList<Absicht> &absichten);

/** The catalogue knows of the movement, or of its being turned back, already. */
[[nodiscard]] bool istErfolgt(Datenbank &db, const Absicht &absicht);

/** Enters the movement itself and nothing else; returns its row. To be part of a transaction. */
qint64 zeileSchreiben(Datenbank &db, const Protokollzeile &zeile);
/** The movement as a log line tells it. */
[[nodiscard]] Protokollzeile zeileAus(const Bewegung &bewegung);
} // namespace Aufzeichnung
} // namespace quillmar::ablage
