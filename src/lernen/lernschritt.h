#pragma once

#include "eintrag.h"
#include "namensraeume.h"

#include <QByteArray>
#include <optional>

namespace quillmar::lernen
{
/** What one accept taught, with what it took the place of: enough to take it back. One text in the catalogue. */
struct Lernschritt {
    /** A place was counted; @p vorher is the entry before, if there was one. */
    struct Zuordnung {
        std::optional<Eintrag> vorher;
        Eintrag nachher;
        bool korrektur = false;
        qint64 dokument = 0;
        qint64 bestaetigungen = 0; ///< of all places of the counterpart, with this one
        bool operator==(const Zuordnung &) const = default;
    };
    /** An equation was stored; @p gestrichen had to give way. With an empty one it was only struck. */
    struct Gleichsetzung {
        std::optional<Gleichung> vorher;
        Gleichung nachher;
        std::optional<Gleichung> gestrichen;
        bool operator==(const Gleichsetzung &) const = default;
    };
    std::optional<Zuordnung> zuordnung;
    std::optional<Gleichsetzung> gleichsetzung;

    [[nodiscard]] bool istLeer() const { return !zuordnung && !gleichsetzung; }
    [[nodiscard]] QByteArray json() const;
    /** Empty for a text of a later version, or none. */
    [[nodiscard]] static Lernschritt aus(const QByteArray &json);
    bool operator==(const Lernschritt &) const = default;
};
} // namespace quillmar::lernen
