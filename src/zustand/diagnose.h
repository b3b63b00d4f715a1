#pragma once

#include "namensraeume.h"

#include <QList>
#include <QStringList>

namespace quillmar::zustand
{
/** What somebody who helps needs to know about the installation; nothing about documents, folders or profiles. */
namespace Diagnose
{
/** A program beside this one. */
struct Helfer {
    QString name;
    QString fassung;   ///< or, in the user's language, why it is not known
    QString dazu = {}; ///< where it is, or what it has; may be empty
};

/** pdftotext, pdftoppm, tesseract and ollama. Runs the tools and asks the server, each with a limit of time: blocks. */
[[nodiscard]] QList<Helfer> helfer();

/** One line for each: program, Qt, SQLite, system, helpers. Blocks. */
[[nodiscard]] QStringList zeilen();
} // namespace Diagnose
} // namespace quillmar::zustand
