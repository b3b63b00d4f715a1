#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <functional>
#include <optional>

namespace quillmar::grundlage
{
/**
 * The one place that moves and copies the user's files. Nothing is ever overwritten; a failure leaves the source whole
 * and no fragment; the source of a move goes only when the target is safe on its disk.
 */
namespace Dateibewegung
{
enum class Art { Verschieben, Kopieren };

/** Told before every step that changes the disk, so that a crash can be settled afterwards. */
struct Schritt {
    QString nach;      ///< full path, NFC, that the file is about to get
    QString temporaer; ///< full path of the hidden file beside it that may be left behind; empty if none
    qint64 groesse = 0;
    qint64 zeit = 0; ///< modification time of the source in nanoseconds since 1970
};
using Ankuendigung = std::function<void(const Schritt &)>;

/** How the target's name is to be taken. */
enum class Name {
    Eindeutig, ///< with the next free number: "Brief (2).pdf"
    Genau,     ///< just this one; a taken one is a failure. Its other spellings are the caller's to look for
};

struct Auftrag {
    QString von;    ///< full path of the file
    QString ordner; ///< full path of the existing target folder
    QString name;   ///< wanted file name, NFC
    Art art = Art::Verschieben;
    Name nameArt = Name::Eindeutig;
    QByteArray plattenname = {};                ///< for Name::Genau: the bytes on disk where they are not the name's
    std::optional<Schritt> erwartet = {};       ///< what was looked at; another file in its place is not moved
    QSet<QByteArray> *spaeterSichern = nullptr; ///< collects the folders that the caller flushes himself, many at once
};

/**
 * Moves or copies a regular file; modification time and mode survive. @p ankuendigung is called before each attempt and
 * may throw to prevent it. Returns the full path of the target, which is the source itself where it lies right already.
 * Throws Fehler.
 */
QString ausfuehren(const Auftrag &auftrag, const Ankuendigung &ankuendigung);

/**
 * @p name with the counter @p n put before its extension (none for 1); what comes before is shortened at a character,
 * so that the whole fits into the 255 bytes of a file system, less @p reserve.
 */
[[nodiscard]] QString nummeriert(const QString &name, int n, qsizetype reserve = 0);

/**
 * Makes a folder with its missing parents, flushed to the disk; existing ones are reused whatever the spelling of their
 * umlauts. Only below @p wurzel, which must exist itself (a drive may not be mounted). Throws Fehler.
 */
void ordnerAnlegen(const QString &ordner, const QString &wurzel);

/** Flushes folders that were collected. Throws Fehler. */
void ordnerSichern(const QSet<QByteArray> &ordner);

/** A regular file of that size and modification time lies at @p pfad. */
[[nodiscard]] bool istDieselbe(const QString &pfad, qint64 groesse, qint64 zeit);
/** An empty regular file lies at @p pfad. */
[[nodiscard]] bool istLeer(const QString &pfad);
/** Size and modification time of the regular file at @p pfad as a step; none if there is none. */
[[nodiscard]] std::optional<Schritt> angabenVon(const QString &pfad);
/** Two regular files of the same size and content. */
[[nodiscard]] bool istGleich(const QString &a, const QString &b);
/** One entry of one folder, on one way or on two: what is done to the one is done to the other. */
[[nodiscard]] bool istDerselbeEintrag(const QString &a, const QString &b);
/** The name of the entry at @p pfad as it lies on disk, if it is not that of @p pfad; else empty. */
[[nodiscard]] QByteArray andererPlattenname(const QString &pfad);
/** Two names (hard links) of one file; not one name on two ways. */
[[nodiscard]] bool sindZweiNamen(const QString &a, const QString &b);
/** Removes the file at @p pfad if its name is one of a temporary file of this program. */
void temporaeresEntfernen(const QString &pfad);
/** Removes the source of a move whose target is safe; used when a crash came in between. */
void quelleEntfernen(const QString &pfad);
} // namespace Dateibewegung
} // namespace quillmar::grundlage
