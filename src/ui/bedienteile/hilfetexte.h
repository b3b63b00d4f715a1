#pragma once

namespace quillmar::bedienteile
{
/**
 * What the user reads of the program is plain text, wherever it comes from: a label does not take a text for markup,
 * and neither does a tool tip, which wraps instead. A help text is the accessible description of its widget too, and
 * goes on being it when it changes, unless the widget has another one. For the whole application; once is enough.
 */
void hilfetexteAnwenden();
} // namespace quillmar::bedienteile
