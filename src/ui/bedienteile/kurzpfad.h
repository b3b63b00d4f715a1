#pragma once

#include <QString>

/** A path for the user's eye: the home folder as "~". */
[[nodiscard]] QString kurzpfad(const QString &pfad);
