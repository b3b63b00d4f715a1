#pragma once

#include "bereitschaft.h"
#include "einrichtungsstand.h"
#include "modellstand.h"

/** The sections of the setup card, in their order. */
enum class Abschnitt { programme, herkunft, ziel, namen, eigentuemer, modell, gelernt, oberflaeche };

[[nodiscard]] const QList<Abschnitt> &alleAbschnitte();
/** The raw word, and the title in the user's language. */
[[nodiscard]] QString rohwert(Abschnitt abschnitt);
[[nodiscard]] QString abschnittTitel(Abschnitt abschnitt);

/** How far a section is, and one line of what is set in it. */
struct Abschnittsstand {
    enum class Lage {
        ohne,     ///< nothing can be missing here
        prueft,   ///< being looked at
        fehlt,    ///< not set yet, and no run without it
        gestoert, ///< set, but not there; no run without it
        offen,    ///< not set yet; a run works without it, but less well
        warnung,  ///< set, but something is to be looked at
        gut,
    };
    Lage lage = Lage::ohne;
    QString zeile;
    bool operator==(const Abschnittsstand &) const = default;

    [[nodiscard]] bool hindert() const { return lage == Lage::fehlt || lage == Lage::gestoert; }
};

/** What the state of a section is made of. */
struct Einrichtungslage {
    const Profil &profil;
    const std::optional<Bereitschaft> &bereitschaft; ///< none until it has been looked at
    const Einrichtungsstand &stand;
    const Modellstand &modell;
    bool ohneDokumente = false; ///< the catalogue has none
};
[[nodiscard]] Abschnittsstand abschnittsstand(Abschnitt abschnitt, const Einrichtungslage &lage);
