#pragma once

#include "befund.h"
#include "bereitschaft.h"
#include "einrichtungsstand.h"
#include "modellstand.h"
#include "namensraeume.h"

namespace quillmar::zustand
{
/** The sections of the setup card, in their order. */
enum class Abschnitt { Programme, Herkunft, Ziel, Namen, Eigentuemer, Modell, Gelernt, Oberflaeche };

[[nodiscard]] const QList<Abschnitt> &alleAbschnitte();
/** The raw word, and the title in the user's language. */
[[nodiscard]] QString rohwert(Abschnitt abschnitt);
[[nodiscard]] QString abschnittTitel(Abschnitt abschnitt);

/** How far a section is, and one line of what is set in it. */
struct Abschnittsstand {
    enum class Lage {
        Ohne,     ///< nothing can be missing here
        Prueft,   ///< being looked at
        Fehlt,    ///< not set yet, and no run without it
        Gestoert, ///< set, but not there; no run without it
        Offen,    ///< not set yet; a run works without it, but less well
        Warnung,  ///< set, but something is to be looked at
        Gut,
    };
    Lage lage = Lage::Ohne;
    QString zeile;
    bool operator==(const Abschnittsstand &) const = default;

    [[nodiscard]] bool hindert() const { return lage == Lage::Fehlt || lage == Lage::Gestoert; }
    /** The mark that stands for @p lage, and the same in words for who cannot see it; empty where it says nothing. */
    [[nodiscard]] Befund::Marke marke() const;
    [[nodiscard]] QString markenwort() const;
};

/** What is known of a profile's setup: what findings and the states of the sections are made of. */
struct Einrichtungslage {
    const Profil &profil;
    const std::optional<Bereitschaft> &bereitschaft; ///< none until it has been looked at
    const Einrichtungsstand &stand;
    const Modellstand &modell;
    QString umgebung = {};      ///< that the environment names a model server which is not asked; else empty
    qint64 ruhende = 0;         ///< documents that rest because of an exclusion
    bool ohneDokumente = false; ///< the catalogue has none
};
[[nodiscard]] Abschnittsstand abschnittsstand(Abschnitt abschnitt, const Einrichtungslage &lage);
} // namespace quillmar::zustand
