#pragma once

#include <QByteArray>
#include <QList>

/**
 * PDF files that want to hold up, crash or bloat whoever reads them: a few KB each, made when they are first asked for,
 * always the same bytes. For the reading of the run as well as for the drawing of the preview.
 */
namespace FeindlichePdfs
{
struct Fall {
    QByteArray name; ///< of a file, without its ending
    QByteArray was;  ///< what it does, a line
    QByteArray bytes;
};

[[nodiscard]] QList<Fall> alle();
/** The bytes of the one called @p name; empty if there is none. */
[[nodiscard]] QByteArray bytesVon(const QByteArray &name);
} // namespace FeindlichePdfs
