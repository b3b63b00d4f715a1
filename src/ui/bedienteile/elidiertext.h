#pragma once

#include "textschild.h"

namespace quillmar::bedienteile
{
/** One line of plain text that never widens the window. */
class Elidiertext : public Textschild
{
public:
    explicit Elidiertext(Qt::TextElideMode wo, QWidget *eltern = nullptr)
        : Textschild(wo == Qt::ElideMiddle ? Art::KurzMitte : Art::KurzEnde)
    {
        setParent(eltern);
    }
};
} // namespace quillmar::bedienteile
