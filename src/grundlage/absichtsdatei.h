#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <chrono>
#include <optional>

namespace quillmar::grundlage
{
/**
 * The file in which a movement is announced before it begins, one line each, and cleared when it is recorded. Whoever
 * holds this object is the only one who moves files for the catalogue.
 */
class Absichtsdatei
{
public:
    /** The lock and the open file; none when another holds it past @p wartezeit. Throws Plattenfehler if it cannot be
     * made. */
    [[nodiscard]] static std::optional<Absichtsdatei> oeffnen(const QString &pfad, std::chrono::milliseconds wartezeit);

    /** What an earlier holder left, line by line; a last line without its end does not count. Throws
     * Plattenfehler. */
    [[nodiscard]] QList<QByteArray> zeilen() const;
    /** Appends @p zeilen (each without line feed) and flushes them. Throws Plattenfehler; none of them counts then. */
    void schreiben(const QList<QByteArray> &zeilen);
    /** Leaves only @p bleibende. */
    void leeren(const QList<QByteArray> &bleibende = {});

private:
    explicit Absichtsdatei(Dateigriff griff) : m_griff(std::move(griff)) {}
    Dateigriff m_griff;
};
} // namespace quillmar::grundlage
