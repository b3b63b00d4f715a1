#pragma once

#include "absichtsdatei.h"
#include "dateibewegung.h"
#include "dokument.h"
#include "namensraeume.h"
#include "protokollzeile.h"

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/** All that is needed to settle a movement that a crash has interrupted, and to record it. One line of the intent file.
 */
struct Absicht {
    enum class Art {
        Bewegung,   ///< von → nach, to be recorded as a movement
        Ruecknahme, ///< a movement turned back: from its "nach" to its "von", or to the trash if it was a copy
    };

    Art art = Art::Bewegung;
    QString vorgang;                   ///< one movement's lines share it; the last one counts
    Protokollzeile zeile;              ///< the movement; for a Ruecknahme the one that is turned back
    Status status = Status::Unbekannt; ///< after the movement
    qint64 protokollId = 0; ///< Bewegung: the newest row before; Ruecknahme: the row turned back, 0 if there is none
    QString temporaer;
    QString imKorb; ///< Ruecknahme of a copy: its place in the trash; empty until that is known, and in older lines
    qint64 groesse = 0;
    qint64 dateizeit = 0;
    std::optional<Angaben> werte;      ///< the user's final values
    qint64 tat = 0;                    ///< deed of many movements that this one is part of; 0 if none
    Profil profil;                     ///< for the learning memory; the text keeps of it what the invoice rule needs
    QString vorher;                    ///< the counterpart before his correction
    QString buch;                      ///< log file that is to hold the line; empty if none
    std::optional<Protokollkopf> kopf; ///< header of that log

    [[nodiscard]] QByteArray json() const;
    [[nodiscard]] static std::optional<Absicht> aus(const QByteArray &zeile);

    /** The two ends: where the file is before and where it goes; empty for the trash. */
    [[nodiscard]] QString anfang() const { return art == Art::Bewegung ? zeile.von : zeile.nach; }
    [[nodiscard]] QString ende() const;

    /** Takes over what the file movement announces. */
    void uebernehmen(const Dateibewegung::Schritt &schritt);
};

/** The status that a document has again once the movement of @p zeile is turned back. */
[[nodiscard]] Status statusZurueck(const Protokollzeile &zeile);

/** The intent file of a catalogue. */
[[nodiscard]] QString absichtsdatei(const Datenbank &db);
/** The same open and locked, so that nobody else moves. Throws Fehler when another holds it past @p geduld. */
[[nodiscard]] Absichtsdatei absichtenNehmen(const QString &katalog, std::chrono::milliseconds geduld);

/**
 * The movements that @p zeilen announce, in the order of beginning. One that had to try several names has a line for
 * each: the last one counts. Lines of a later version, or damaged ones, come to @p fremde: they are not ours to throw
 * away.
 */
[[nodiscard]] QList<Absicht> letzteAbsichten(const QList<QByteArray> &zeilen, QList<QByteArray> &fremde);
} // namespace quillmar::ablage
