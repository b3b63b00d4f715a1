#pragma once

#include <QString>
#include <functional>
#include <optional>

class Datenbank;
class Stapel;

/**
 * Whether a file is still the one that a document was read from. With every digest the size and modification time of
 * the file are noted: while they are the same the file is taken for the same, else its bytes decide.
 */
namespace Wiedererkennung
{
/** What the catalogue knows of a document's file. */
struct Notiz {
    QString sha256;        ///< 64 hexadecimal characters; empty if it was never read
    qint64 groesse = -1;   ///< bytes; negative if not even that is known
    qint64 geaendert = 0;  ///< nanoseconds since 1970
    bool notiert = false;  ///< size and time stand in the catalogue; else only the size does
    bool geprueft = false; ///< the digest was formed from a file in this state
};

enum class Vergleich {
    Dieselbe,
    Offen, ///< only its bytes can tell
};

/** By size and time alone. What was never read is taken for the same. */
[[nodiscard]] Vergleich vergleich(const Notiz &notiz, qint64 groesse, qint64 geaendert);

[[nodiscard]] std::optional<Notiz> notiz(Datenbank &db, qint64 id);

/** Notes the state in which the file was when its digest was formed (@p geprueft), or was merely seen. */
void notieren(Stapel &stapel, qint64 id, qint64 groesse, qint64 geaendert, bool geprueft);

/**
 * The file at @p pfad is the one that document @p id was read from; reads it where size and time do not tell, and notes
 * what it has found then. Throws Fehler when it cannot be read.
 */
[[nodiscard]] bool istDieselbe(Datenbank &db, qint64 id, const QString &pfad);

/**
 * Takes a document's path from it, since another file lies there: it keeps its history, where it was is remembered
 * apart, and if it waited it is "fehlt" from now on. False when it no longer has @p pfad: then nothing changes.
 */
bool pfadFreigeben(Stapel &stapel, qint64 id, const QString &pfad);

/** Takes in what lies at the path of document @p id now as a document of its own, which is still to be read. */
void ersetzen(Datenbank &db, qint64 id);
} // namespace Wiedererkennung
