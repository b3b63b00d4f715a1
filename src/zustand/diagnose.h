#pragma once

#include <QStringList>

/** What somebody who helps needs to know about the installation; nothing about documents, folders or profiles. */
namespace Diagnose
{
/** One line for each: program, Qt, SQLite, tools, model server. Runs the tools and asks the server: blocks. */
[[nodiscard]] QStringList zeilen();
} // namespace Diagnose
