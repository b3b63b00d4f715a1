#pragma once

#include "eintrag.h"
#include "namensraeume.h"
#include "wortstimmen.h"

namespace quillmar::lernen
{
/** Which of a counterpart's places a document takes. Pure rules. */
namespace Ortswahl
{
/**
 * A clear vote of the texts; the model's place if it is one of @p orte; the most confirmed one, and of equals the
 * first. With @p nurKorrigierte the last only among those that were a correction. Returns its index in @p orte; -1: the
 * document keeps its own.
 */
[[nodiscard]] qsizetype waehlen(const QList<Ortszahl> &orte, const Wortstimmen::Ergebnis &stimme, const Ort &modell,
                                bool nurKorrigierte);

/** Branch, kind and category are there. */
[[nodiscard]] bool istVollstaendig(const Ort &ort);
} // namespace Ortswahl
} // namespace quillmar::lernen
