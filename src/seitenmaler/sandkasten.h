#pragma once

#include "namensraeume.h"

#include <QtGlobal>
#include <chrono>

namespace quillmar::seitenmaler
{
/** What keeps the process that opens foreign documents from everything but its memory. */
namespace Sandkasten
{
/**
 * Closes every descriptor but the three channels and @p bleibt. The channels lead to nowhere, unless a sanitizer has
 * something to tell.
 */
void dateienSchliessen(int bleibt);

/** Ends this process as soon as the one that has started it has ended; nobody looks into it, it leaves no core. */
void binden();

/**
 * From now on: at most @p adressraum bytes (0: as much as there is; never more than before) and few files; no new file
 * has a byte. What cannot be had ends the process with exit status @p speicherVoll rather than with a signal, where
 * that can be told.
 */
void begrenzen(quint64 adressraum, int speicherVoll);

/** Ends this process by SIGXCPU when it has used so much of the processor from now on; full seconds. */
void fristSetzen(std::chrono::seconds rechenzeit);

/**
 * The rest of this process's life it can compute, use the descriptors that it has or is sent over the socket @p kanal,
 * and open files for reading; where the kernel knows Landlock, only fonts. No other file, no network, no other process.
 * False when the kernel does not grant that: then nothing foreign may be touched.
 */
[[nodiscard]] bool schliessen(int kanal);
} // namespace Sandkasten
} // namespace quillmar::seitenmaler
