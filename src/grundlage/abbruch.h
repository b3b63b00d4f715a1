#pragma once

#include "namensraeume.h"

#include <exception>

namespace quillmar::grundlage
{
/** Work is given up since its end was asked for: no failure of anything, and nothing to tell the user. */
class Abbruch : public std::exception
{
public:
    [[nodiscard]] const char *what() const noexcept override { return "abgebrochen"; }
};
} // namespace quillmar::grundlage
