#pragma once

#include "baumwissen.h"
#include "namensraeume.h"
#include "profil.h"

#include <QStringList>
#include <functional>
#include <stop_token>

namespace quillmar::ablage
{
/**
 * What the filing tree tells of the counterparts: its PDF files by their names and places alone. No file is opened,
 * links and the program's own folders are passed over.
 */
namespace Ablagelesung
{
/** Why a counterpart is better not learned unasked. */
enum class Vorbehalt { Keiner, EinzelnesDokument, EigenerName, NurZiffern, ZuKurz };

struct Zeile {
    lernen::Baumkenntnis kenntnis;
    qint64 dokumente = 0; ///< at all of its places
    QStringList zeugen;   ///< three of them or fewer, relative to the target root
    Vorbehalt vorbehalt = Vorbehalt::Keiner;
    bool angekreuzt = false; ///< proposed for learning: there is nothing against it
};

/** Files that tell nothing. */
struct Uebrige {
    qint64 anzahl = 0;
    QStringList beispiele; ///< a handful, relative to the target root
};

struct Ergebnis {
    QList<Zeile> zeilen; ///< those of most documents first, then by name
    Uebrige orte;        ///< lie where the structure knows no place
    Uebrige namen;       ///< lie at a place, but their names do not tell a counterpart
    qint64 dateien = 0;  ///< PDF files in all
    qint64 unlesbareOrdner = 0;
};

/** Hears of the number of files, a hundred times for each 100,000. */
using Fortschritt = std::function<void(qint64 dateien)>;

/**
 * Reads the tree below the target root of @p profil. Throws Fehler when that cannot be reached, is not the one that was
 * filed into (AndererZielordner), or when the name template tells no counterpart; Abbruch when @p ende is asked for.
 */
[[nodiscard]] Ergebnis lesen(Datenbank &db, const Profil &profil, const Fortschritt &fortschritt = {},
                             const std::stop_token &ende = {});

/**
 * Whether any PDF file lies below the target root of @p profil, the program's own folders apart; looks no further than
 * to the first one. False where nothing can be read. Throws Abbruch when @p ende is asked for.
 */
[[nodiscard]] bool hatDokumente(const Profil &profil, const std::stop_token &ende = {});

/** What the ticked ones of @p zeilen tell, for Baumwissen::uebernehmen(). */
[[nodiscard]] QList<lernen::Baumkenntnis> angekreuzte(const QList<Zeile> &zeilen);
} // namespace Ablagelesung
} // namespace quillmar::ablage
