#pragma once

#include "bereitschaft.h"
#include "gesamtmass.h"
#include "laufbild.h"
#include "modelle.h"
#include "modellstand.h"
#include "nacharbeit.h"
#include "namensraeume.h"
#include "profil.h"

#include <optional>

namespace quillmar::zustand
{
/** What the run card says, made of what it looks at. Pure; all texts in the user's language. */
struct Lauflage {
    const Profil &profil;
    const std::optional<Bereitschaft> &bereitschaft; ///< none until it has been looked at
    bool laeuft = false;
    bool haeltAn = false;     ///< the run ends behind the document in hand
    bool startWartet = false; ///< for the answer of the model server
    bool gelaufen = false;    ///< a run has been seen
    bool beschaedigt = false; ///< the catalogue is, and is only read
    QString stufe;            ///< in which the last run ended

    /** Of a state with an active profile. */
    [[nodiscard]] static Lauflage von(const Zustand &zustand);
    [[nodiscard]] bool startbereit() const { return !beschaedigt && bereitschaft && bereitschaft->vollstaendig(); }
    [[nodiscard]] QString titel() const;
    /** The line below the title. */
    [[nodiscard]] QString zeile() const;
    /** What no run begins without; empty when nothing is missing or it is not known yet. */
    [[nodiscard]] QString fehlendes() const;
    /** What the stage @p nummer (from 0) is going to do. */
    [[nodiscard]] QString vorschau(int nummer) const;
};

/** What stood in the way of the last run, and what of its questions is still open; empty while one is running. */
[[nodiscard]] QString hindernissatz(const Durchgang &durchgang);
/** What the button for the duplicates does, and its help: while it sets aside (@p raeumt) it stops that. */
[[nodiscard]] std::pair<QString, QString> ausraeumtext(const Profil &profil, bool raeumt);
/** How long a stage took, in seconds, minutes or hours. */
[[nodiscard]] QString dauertext(std::chrono::milliseconds dauer);
/** The line of a stage: its message, or what it is going to do, and @p dauersatz of its document in hand. */
[[nodiscard]] QString stufenzeile(const Stufenbild &stufe, const QString &vorschau, const QString &dauersatz);
/** The time beside a stage: left or taken; empty where the run as a whole tells it. @p restzeit of the one under way.
 */
[[nodiscard]] QString stufenzeit(const Stufenbild &stufe, const Laufganzes &ganzes, const QString &restzeit);
/** How far a stage is, for who cannot see its mark. */
[[nodiscard]] QString standwort(Stufenbild::Stand stand);
/** What @p dublette repeats. */
[[nodiscard]] QString dublettensatz(const Nacharbeit::Dublette &dublette);
/** What a start without the model asks, @p meldung being what is wrong with it. */
[[nodiscard]] QString startfrage(Modellstand::Art art, const QString &meldung);
} // namespace quillmar::zustand
