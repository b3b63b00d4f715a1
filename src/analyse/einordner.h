#pragma once

#include "einordnung.h"
#include "gegenpruefung.h"
#include "lauf.h"
#include "modellantworten.h"
#include "namensraeume.h"
#include "ollama.h"
#include "rechnungsrichtung.h"
#include "regelwahl.h"
#include "vorschlaege.h"
#include "wortstimmen.h"

#include <functional>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
/** Asks the model for the other party of a document; none when there is none or it names the owner again. */
[[nodiscard]] std::optional<QString> nachfragen(const Gegenpruefung &pruefung, const QString &text,
                                                const Profil &profil, const Ollama &ollama,
                                                const std::stop_token &ende = {});

/** The third stage: a proposal for every read document. */
namespace Einordner
{
constexpr double mindestensNachRegel = 0.9; ///< confidence once the invoice rule has spoken

/** Gives @p e the invoice rubric that the owner's address in @p text proves. */
void richtungBerichtigen(const Rechnungsrichtung &richtung, Einordnungsergebnis &e, const QString &text,
                         const Profil &profil);

/** What the learning memory has put into a proposal, and what stood there before. */
struct Lernspur {
    QString von;                       ///< key of the place, else of the name equation; empty for neither
    bool ort = false;                  ///< the place is a taught one
    Wortstimmen::Ergebnis stimme = {}; ///< of the texts, where they decided
    Modellantwort antwort;             ///< of the model, before anything learned
};
/**
 * What the user has taught goes before what any model says: gives @p e the taught name and place. @p ortQuelle is the
 * source of its own place.
 */
[[nodiscard]] Lernspur gelerntesAnwenden(Datenbank &db, const Profil &profil, const QString &text,
                                         Einordnungsergebnis &e, const QString &ortQuelle,
                                         const Regelwahl &regeln = {});
/** Keeps the answer of a proposal that was stored, so that it can be reckoned anew. */
void antwortBehalten(Datenbank &db, qint64 dokument, const Lernspur &spur);

/**
 * Runs @p alle, which puts the documents of a stage to @p modell. A model that cannot be asked ends it and is noted as
 * what hinders the run; so does the program's end, in silence. Returns whether the model can be asked further.
 */
bool fragen(Lauf &lauf, const QString &modell, Laufhindernis::Art wennFehlt, const std::function<void()> &alle);

/** German name of the stage, and what it says of itself, for the user. */
[[nodiscard]] QString stufe();
[[nodiscard]] QString satz(qsizetype fertig, qsizetype gesamt);

/**
 * The stage. Returns whether the model can be asked further; else the documents that are left stay open. Throws Fehler
 * when the catalogue cannot be written.
 */
bool einordnen(Lauf &lauf);
} // namespace Einordner
} // namespace quillmar::analyse
