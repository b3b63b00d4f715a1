#pragma once

#include <QString>
#include <exception>

/** The sentence for the user of what was thrown; empty if nothing was. */
[[nodiscard]] QString fehlersatz(const std::exception_ptr &fehler);
