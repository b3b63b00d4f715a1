#pragma once

#include "fehler.h"
#include "nachschlagen.h"
#include "namensraeume.h"

namespace quillmar::grundlage
{
/** A failure of the disk. */
class Plattenfehler : public Fehler
{
public:
    /** @p satz says what did not work, @p ursache why (may be empty): marked German texts, which are looked up here. */
    explicit Plattenfehler(const QString &satz, const QString &ursache = {});
};
} // namespace quillmar::grundlage
