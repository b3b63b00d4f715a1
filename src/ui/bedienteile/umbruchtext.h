#pragma once

#include "textschild.h"

namespace quillmar::bedienteile
{
/** Plain text that wraps wherever it must. */
class Umbruchtext : public Textschild
{
public:
    explicit Umbruchtext(QWidget *eltern = nullptr) { setParent(eltern); }
};
} // namespace quillmar::bedienteile
