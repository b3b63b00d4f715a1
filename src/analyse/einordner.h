#pragma once

#include "einordnung.h"
#include "gegenpruefung.h"
#include "ollama.h"
#include "rechnungsrichtung.h"

#include <optional>

class Lauf;

/** Asks the model for the other party of a document; none when there is none or it names the owner again. */
[[nodiscard]] std::optional<QString> nachfragen(const Gegenpruefung &pruefung, const QString &text,
                                                const Profil &profil, const Ollama &ollama,
                                                const std::stop_token &ende = {});

/** The third stage: a proposal for every read document. */
namespace Einordner
{
constexpr double mindestensNachRegel = 0.9; ///< confidence once the invoice rule has spoken
constexpr double mindestensGelernt = 0.85;  ///< confidence of a place that the user has taught

/** Gives @p e the invoice rubric that the owner's address in @p text proves. */
void richtungBerichtigen(const Rechnungsrichtung &richtung, Einordnungsergebnis &e, const QString &text,
                         const Profil &profil);

/** The stage. Throws Fehler when the catalogue cannot be written. */
void einordnen(Lauf &lauf);
} // namespace Einordner
