#pragma once

#include "katalog.h"
#include "namensraeume.h"
#include "sicherungen.h"

namespace quillmar::zustand
{
/** What is known of the file of a catalogue and of its copies. */
struct Katalogstand {
    Zugang zugang = Zugang::Schreiben;
    QList<Sicherung> sicherungen{}; ///< the last one made comes first
    QString mangel{};               ///< why it was not copied today, for the user; empty if it was
    bool operator==(const Katalogstand &) const = default;
};

/** What is to be said of a catalogue that does not open or may only be read, and whether a copy can take its place. */
struct Katalograt {
    QString satz;          ///< empty: nothing is wrong
    QString knopf;         ///< that puts the newest copy in place; empty: there is none
    bool nochmals = false; ///< opening it can be tried again
};
[[nodiscard]] Katalograt katalograt(const QString &katalogfehler, const Katalogstand &stand);

/** "Sicherung vom … einsetzen" */
[[nodiscard]] QString einsetzensatz(const Sicherung &sicherung);
/** When it was made, for the user. */
[[nodiscard]] QString zeitpunkt(const Sicherung &sicherung);
} // namespace quillmar::zustand
