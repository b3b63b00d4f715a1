#pragma once

#include "abschnittszeile.h"
#include "namensraeume.h"

namespace quillmar::zustand
{
class Fenstersprache;
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::einrichtung
{
/** The rows of a section of the setup card, from the top down. A new setting is one row here. */
[[nodiscard]] QList<Abschnittszeile> abschnittszeilen(Abschnitt abschnitt, Zustand *zustand, Fenstersprache *sprache);

// What only one section has.
/** The exclusions with a field for a new one; the files that they leave out. */
[[nodiscard]] Teile ausnahmen(Abschnittsseite &seite, const Abschnittszeile &zeile);
[[nodiscard]] Teile ausgelassene(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** The filing tree with what is new or gone. */
[[nodiscard]] Teile strukturbaum(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** What was learned, in two lists, and how it is forgotten. */
[[nodiscard]] Teile gelerntes(Abschnittsseite &seite, const Abschnittszeile &zeile);
} // namespace quillmar::einrichtung
