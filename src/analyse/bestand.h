#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QSet>
#include <functional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
class Lauf;

/** The first stage: which PDF files there are, and which of them are the same to the byte. */
namespace Bestand
{
struct Fund {
    QString pfad;   ///< full path, NFC
    QString ordner; ///< relative to the source folder, NFC
    qint64 groesse = 0;
    qint64 geaendert = 0; ///< modification time, nanoseconds since 1970
};

/** What the program itself has put somewhere: a walk that comes there, on whatever way, leaves it out. */
struct Eigenes {
    QSet<QString> kopien;   ///< paths of copies that were made and not taken back
    QSet<QString> abgelegt; ///< paths of documents that lie outside the source folder
};

/** A PDF file that an exclusion covers. */
struct Ausgenommene {
    QString pfad; ///< relative to the source folder, NFC
    QString regel;
    bool operator==(const Ausgenommene &) const = default;
};

/** What a walk through the source folder found, and what it had to leave out. */
struct Ergebnis {
    QList<Fund> funde;       ///< ascending by path
    QStringList ordner = {}; ///< that were walked through, the source folder first; as they are called on the disk
    qsizetype ausgenommen = 0;
    QList<Ausgenommene> ausgenommene; ///< the first of them, ascending by path
    qsizetype unlesbareNamen = 0;
    qsizetype verweise = 0;
    qsizetype doppelteNamen = 0; ///< in the second of two paths that differ only in NFC and NFD
    qsizetype unlesbareOrdner = 0;
};

/**
 * The PDF files of the profile's source folder, without hidden entries, links, what an exclusion covers, the
 * duplicates folders, and what the program has put there itself. Stops early when @p halt turns true.
 */
[[nodiscard]] Ergebnis suchen(const Profil &profil, const Eigenes &eigenes, const std::function<bool()> &halt);

/** Copies that were made and not taken back, and documents that lie outside the folder @p quelle. */
[[nodiscard]] Eigenes eigenesVon(Datenbank &db, const QString &quelle);

/** First half of the stage: brings the catalogue up to what lies in the source folder. Throws as the stage does. */
void verzeichnen(Lauf &lauf);

/** The stage. Throws Fehler when the source folder is not there or the catalogue cannot be written. */
void aufnehmen(Lauf &lauf);
} // namespace Bestand
} // namespace quillmar::analyse
