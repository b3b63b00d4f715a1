#pragma once

#include "meldestelle.h"
#include "namensraeume.h"

#include <optional>

namespace quillmar::zustand
{
class Profilwahl;
class Zustand;

/** What the program is doing or waits for, in the line below the cards. */
struct Lage {
    QString stufe;
    QString rest = {};
    double anteil = -1; ///< 0 to 1; below 0: not known
    std::optional<Meldestelle::Ton> ton = {};
    bool operator==(const Lage &) const = default;
};
/** @p notiz is told while nothing is going on. */
[[nodiscard]] Lage lage(const Zustand &zustand, const QString &notiz);

/** What stands on a card that has nothing to show, and what its button does. */
struct Leerlage {
    enum class Tat { Keine, Einrichten, ErneutOeffnen, Starten, Vorlegen };
    QString titel;
    QString zeile = {};
    QString knopf = {}; ///< empty: none
    Tat tat = Tat::Keine;
    QStringList zusatz = {}; ///< lines below the button
    bool operator==(const Leerlage &) const = default;
};
/** Before there is any profile: what the program does. */
[[nodiscard]] Leerlage ohneProfil();
/** Without an open catalogue: none of the profile yet, or one that does not open. */
[[nodiscard]] Leerlage ohneKatalog(const Profilwahl &profilwahl);
/** Of the review card, while no document is under review. */
[[nodiscard]] Leerlage nichtsZuPruefen(const Zustand &zustand);
void weiter(Zustand &zustand, Leerlage::Tat tat);

/** That the list of profiles could not be read at the start, and where it is kept; empty if it could be. */
[[nodiscard]] QString profilverlust(const Profilwahl &profilwahl);
/** The catalogue that does not open, the reason and the way on, for the user. */
[[nodiscard]] QString katalogfehlersatz(const Profilwahl &profilwahl);
} // namespace quillmar::zustand
