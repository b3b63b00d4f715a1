#pragma once

#include "textschild.h"

namespace quillmar::bedienteile
{
/** A sentence that wraps, with a mark before it when there is something to mark; without one it is secondary text. */
class Marktext : public Textschild
{
public:
    explicit Marktext(QWidget *eltern = nullptr) { setParent(eltern); }
    void setzen(Symbol symbol, const QString &text) { befund(symbol, text); }
    void erklaeren(const QString &text) { befund(Symbol::Keines, text); }
    [[nodiscard]] QString text() const { return ganzerText(); }
};
} // namespace quillmar::bedienteile
