#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <chrono>
#include <optional>

namespace quillmar::zustand
{
/**
 * Decides when new files may start a run by themselves: once all of them have lain unchanged for a while, or some of
 * them while others keep coming for long. Each file, as it is, does so once, whatever comes of the run. Pure: told what
 * was seen and when, by whatever clock; only a file that two looks have found the same counts as unchanged.
 */
class Neuzugang
{
public:
    using Zeitpunkt = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::seconds ruhe{10};        ///< so long a file must have lain unchanged
    static constexpr std::chrono::seconds laengstens{120}; ///< some wait so long for others that still come

    struct Datei {
        QString pfad;
        qint64 groesse = 0;
        qint64 geaendert = 0; ///< nanoseconds since 1970
        bool operator==(const Datei &) const = default;
    };

    /** All files that a run would take in and that the catalogue does not know as they are at @p jetzt. */
    void gesehen(const QList<Datei> &neue, Zeitpunkt jetzt);
    /** The program itself has put files there: what the next look finds at these paths is no new scan. */
    void eigene(const QStringList &pfade);
    /** How many have come and have not started a run. */
    [[nodiscard]] qsizetype wartende() const;
    [[nodiscard]] bool istSoweit(Zeitpunkt jetzt) const;
    /** When the next look can find that it is time; none while nothing waits. */
    [[nodiscard]] std::optional<Zeitpunkt> naechsterBlick() const;
    /** A run has begun, for all that wait. */
    void aufgenommen();

private:
    struct Stand {
        Datei datei;
        Zeitpunkt seit; ///< first seen like this
        bool erledigt = false;
    };
    [[nodiscard]] Stand standVon(const Datei &datei, Zeitpunkt jetzt) const;

    QHash<QString, Stand> m_dateien; ///< by path
    QSet<QString> m_eigene;
};
} // namespace quillmar::zustand
