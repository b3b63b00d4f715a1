#include "klaerung.h"

#include "absicht.h"
#include "papierkorb.h"
#include "pfade.h"

#include <algorithm>

namespace quillmar::ablage
{
namespace
{
using Klaerung::Lage;

// What a crash may have left, as bits, so that a rule can name several.

/** How the file was to go. */
enum Weg : unsigned {
    Verschieben = 1,
    Kopieren = 2,
    Zurueck = 4,
    InDenKorb = 8,
    AmOrt = 16,       ///< lies right already
    Unvollendet = 32, ///< a copy that is announced under its temporary name alone, until it is complete
};

/** What lies at an end. */
enum Fund : unsigned {
    Nichts = 1,
    KeinOrdner = 2, ///< the drive may not be there
    Leeres = 4,
    Anderes = 8,        ///< something else than was announced, or changed since
    Angekuendigte = 16, ///< by size and time
    Gleiche = 32,       ///< the target only: with the bytes of the source as well
    ZweiterName = 64,   ///< the target only: of the source
};

/** What became of the temporary file. */
enum Zwischen : unsigned {
    Keine = 1, ///< none was announced
    Fort = 2,
    Liegt = 4,
    Veroeffentlicht = 8, ///< a second name of the target
};

enum class Folge {
    Nichts,
    QuelleEntfernen,      ///< the file is safe at the target
    PlatzhalterEntfernen, ///< file systems without another way need an empty file to take a name
    AnfangEntfernen,      ///< the same where the file came from: it was on its way back
};

struct Anblick {
    Weg weg;
    Fund anfang;
    Fund ende;
    Zwischen zwischen;
};

struct Regel {
    unsigned weg;
    unsigned anfang;
    unsigned ende;
    unsigned zwischen;
    Lage lage;
    Folge folge = Folge::Nichts;

    [[nodiscard]] bool passt(const Anblick &a) const
    {
        return (weg & a.weg) != 0 && (anfang & a.anfang) != 0 && (ende & a.ende) != 0 && (zwischen & a.zwischen) != 0;
    }
};

constexpr unsigned egal = ~0U;
constexpr unsigned Umbenannt = Verschieben | Zurueck;
constexpr unsigned NichtDieDatei = Nichts | KeinOrdner | Leeres | Anderes;
constexpr unsigned DieDatei = Angekuendigte | Gleiche | ZweiterName;
constexpr unsigned IrgendeineDatei = Leeres | Anderes | DieDatei;

// clang-format off
/** The first rule that fits decides. */
constexpr Regel regeln[] = {
    // how            source           target               temporary file          answer
    {AmOrt,           DieDatei,        egal,                egal,                   Lage::Geschehen},
    {AmOrt,           egal,            egal,                egal,                   Lage::NichtGeschehen},

    // Gone into the trash, unless its whole drive is; what lies there may have been changed since. An older intent does
    // not tell its place there: then nothing counts as lying there.
    {InDenKorb,       Leeres,          DieDatei,            egal,                   Lage::Geschehen, Folge::AnfangEntfernen},
    {InDenKorb,       DieDatei,        Leeres,              egal,                   Lage::NichtGeschehen, Folge::PlatzhalterEntfernen},
    {InDenKorb,       Nichts,          egal,                egal,                   Lage::Geschehen},
    {InDenKorb,       KeinOrdner,      egal,                egal,                   Lage::Unklar},
    {InDenKorb,       egal,            egal,                egal,                   Lage::NichtGeschehen},

    // The file lies at the target.
    {egal,            NichtDieDatei,   DieDatei,            egal,                   Lage::Geschehen},

    // It lies at both. A renaming leaves one file only, but for its way by a second name: another one has come since.
    {Umbenannt,       DieDatei,        Gleiche|ZweiterName, egal,                   Lage::Geschehen, Folge::QuelleEntfernen},
    {Kopieren,        DieDatei,        Gleiche,             egal,                   Lage::Geschehen},
    {egal,            DieDatei,        DieDatei,            egal,                   Lage::NichtGeschehen},

    // It lies where it was. A published copy that somebody has changed since is one all the same.
    {Kopieren,        DieDatei,        Anderes,             Fort|Veroeffentlicht,   Lage::Geschehen},
    {Verschieben,     DieDatei,        Anderes,             Fort|Veroeffentlicht,   Lage::Unklar},
    {egal,            DieDatei,        Leeres,              egal,                   Lage::NichtGeschehen, Folge::PlatzhalterEntfernen},
    {egal,            DieDatei,        egal,                egal,                   Lage::NichtGeschehen},

    // It lies at neither end: it may have been changed since, or be gone with its drive.
    {egal,            egal,            egal,                Liegt|Veroeffentlicht,  Lage::Unklar},
    {egal,            KeinOrdner,      egal,                egal,                   Lage::Unklar},
    {egal,            egal,            KeinOrdner,          egal,                   Lage::Unklar},
    {egal,            IrgendeineDatei, IrgendeineDatei,     egal,                   Lage::Unklar},
    {egal,            Nichts,          IrgendeineDatei,     egal,                   Lage::Geschehen},
    {egal,            egal,            egal,                egal,                   Lage::NichtGeschehen},
};
// clang-format on

/** Where the file was to go, also in the trash. */
QString zielVon(const Absicht &a) { return a.ende().isEmpty() ? a.imKorb : a.ende(); }

Weg wegVon(const Absicht &a)
{
    if (a.anfang() == a.ende())
        return AmOrt;
    if (a.ende().isEmpty())
        return InDenKorb;
    if (a.ende() == a.temporaer)
        return Unvollendet;
    if (a.art == Absicht::Art::Ruecknahme)
        return Zurueck;
    return a.zeile.kopiert ? Kopieren : Verschieben;
}

Fund fundAn(const QString &pfad, const Absicht &a)
{
    if (Dateibewegung::istDieselbe(pfad, a.groesse, a.dateizeit))
        return Angekuendigte;
    if (istVorhanden(pfad))
        return Dateibewegung::istLeer(pfad) ? Leeres : Anderes;
    return istOrdner(ordnerVon(pfad)) ? Nichts : KeinOrdner;
}

/** The target, compared with the source where that decides. */
Fund fundAmEnde(const Absicht &a, Weg weg, Fund anfang, Zwischen zwischen)
{
    // Under its temporary name it is no target yet.
    if (weg == Unvollendet)
        return istOrdner(ordnerVon(a.ende())) ? Nichts : KeinOrdner;
    if (weg == InDenKorb)
        return a.imKorb.isEmpty() ? Nichts : fundAn(a.imKorb, a);
    const Fund ende = fundAn(a.ende(), a);
    if (anfang != Angekuendigte || ende != Angekuendigte)
        return ende;
    if (weg != Kopieren && Dateibewegung::sindZweiNamen(a.anfang(), a.ende()))
        return ZweiterName;
    const bool veroeffentlicht = zwischen == Fort || zwischen == Veroeffentlicht;
    return veroeffentlicht && Dateibewegung::istGleich(a.anfang(), a.ende()) ? Gleiche : ende;
}

Zwischen zwischenstandVon(const Absicht &a)
{
    if (a.temporaer.isEmpty())
        return Keine;
    if (!istVorhanden(a.temporaer))
        return Fort;
    return Dateibewegung::sindZweiNamen(a.temporaer, zielVon(a)) ? Veroeffentlicht : Liegt;
}

Anblick anblickVon(const Absicht &a)
{
    const Weg weg = wegVon(a);
    const Fund anfang = fundAn(a.anfang(), a);
    const Zwischen zwischen = zwischenstandVon(a);
    return {.weg = weg, .anfang = anfang, .ende = fundAmEnde(a, weg, anfang, zwischen), .zwischen = zwischen};
}

void ausfuehren(Folge folge, const Absicht &a)
{
    const bool platzhalter = a.groesse > 0; // an empty document is none
    if (folge == Folge::QuelleEntfernen || (folge == Folge::AnfangEntfernen && platzhalter))
        Dateibewegung::quelleEntfernen(a.anfang());
    if (folge == Folge::PlatzhalterEntfernen && platzhalter)
        Dateibewegung::quelleEntfernen(zielVon(a));
}

/** The note is written before the file comes into the trash, and taken away after it has left it. */
void vermerkKlaeren(const Absicht &a, Lage lage)
{
    const bool zwischendatei = !a.temporaer.isEmpty() && istVorhanden(a.temporaer);
    if (!a.imKorb.isEmpty() && lage != Lage::Unklar && !zwischendatei)
        Papierkorb::verwaistenVermerkEntfernen(a.imKorb, a.anfang());
}
} // namespace

Klaerung::Lage Klaerung::lage(const Absicht &a)
{
    const Anblick anblick = anblickVon(a);
    // A temporary file may be the last copy: it goes only when the document is seen elsewhere.
    if ((anblick.zwischen & (Liegt | Veroeffentlicht)) != 0 && ((anblick.anfang | anblick.ende) & DieDatei) != 0)
        Dateibewegung::temporaeresEntfernen(a.temporaer);
    const auto *regel =
        std::find_if(std::begin(regeln), std::end(regeln), [&](const Regel &r) { return r.passt(anblick); });
    ausfuehren(regel->folge, a);
    vermerkKlaeren(a, regel->lage);
    return regel->lage;
}

bool Klaerung::istUnberuehrt(const Absicht &a)
{
    const bool rest = !a.temporaer.isEmpty() && istVorhanden(a.temporaer);
    const QString ziel = zielVon(a);
    const bool amZiel =
        ziel != a.anfang() && !ziel.isEmpty() && Dateibewegung::istDieselbe(ziel, a.groesse, a.dateizeit);
    return istVorhanden(a.anfang()) && !rest && !amZiel;
}
} // namespace quillmar::ablage
