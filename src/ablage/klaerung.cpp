#include "klaerung.h"

#include "absicht.h"
#include "pfade.h"

namespace
{
using Klaerung::Lage;

/** For file systems that need an empty placeholder to take a name without overwriting. */
void platzhalterEntfernen(const Absicht &a)
{
    if (a.groesse > 0 && Dateibewegung::istLeer(a.ende()))
        Dateibewegung::quelleEntfernen(a.ende());
}

/** A file like the announced one lies at both ends. */
Lage beideEnden(const Absicht &a, bool kopiePubliziert)
{
    const bool kopie = a.art == Absicht::Art::Bewegung && a.zeile.kopiert;
    // A rename leaves only one file, but for its way by a second name: another one has come to the target since.
    const bool zweiNamen = !kopie && Dateibewegung::sindZweiNamen(a.anfang(), a.ende());
    if (!zweiNamen && (!kopiePubliziert || !Dateibewegung::istGleich(a.anfang(), a.ende())))
        return Lage::NichtGeschehen;
    if (!kopie)
        Dateibewegung::quelleEntfernen(a.anfang());
    return Lage::Geschehen;
}

/** No file like the announced one lies at either end: it may have been changed since, or be gone with its drive. */
Lage keinEnde(const Absicht &a, bool rest, bool unvollendet)
{
    if (rest || !istOrdner(ordnerVon(a.anfang())) || !istOrdner(ordnerVon(a.ende())))
        return Lage::Unklar;
    const bool etwasAmAnfang = istVorhanden(a.anfang());
    const bool etwasAmZiel = !unvollendet && istVorhanden(a.ende());
    if (etwasAmAnfang && etwasAmZiel)
        return Lage::Unklar;
    return etwasAmZiel ? Lage::Geschehen : Lage::NichtGeschehen;
}

/** A published copy that somebody has changed since, while its original still lies there. */
bool istVeraenderteKopie(const Absicht &a, bool kopiePubliziert)
{
    return a.art == Absicht::Art::Bewegung && kopiePubliziert && istVorhanden(a.ende()) &&
           !Dateibewegung::istLeer(a.ende());
}
} // namespace

Klaerung::Lage Klaerung::lage(const Absicht &a)
{
    const bool amAnfang = Dateibewegung::istDieselbe(a.anfang(), a.groesse, a.dateizeit);
    const bool inDenKorb = a.ende().isEmpty();
    // Until it is complete a copy is announced under its temporary name alone.
    const bool unvollendet = !inDenKorb && a.ende() == a.temporaer;
    const bool amZiel = !inDenKorb && !unvollendet && Dateibewegung::istDieselbe(a.ende(), a.groesse, a.dateizeit);
    const bool rest = !a.temporaer.isEmpty() && istVorhanden(a.temporaer);
    const bool kopiePubliziert =
        !a.temporaer.isEmpty() && (!rest || Dateibewegung::sindZweiNamen(a.temporaer, a.ende()));
    // A temporary file may be the last copy: it goes only when the document is seen elsewhere.
    if (rest && (amAnfang || amZiel))
        Dateibewegung::temporaeresEntfernen(a.temporaer);
    if (a.anfang() == a.ende() || (amAnfang && (inDenKorb || unvollendet)))
        return amAnfang && !inDenKorb && !unvollendet ? Lage::Geschehen : Lage::NichtGeschehen;
    if (inDenKorb && istVorhanden(a.anfang())) // changed since, but not gone
        return Lage::NichtGeschehen;
    if (inDenKorb) // gone there, unless its whole drive is
        return istOrdner(ordnerVon(a.anfang())) ? Lage::Geschehen : Lage::Unklar;
    if (amZiel)
        return amAnfang ? beideEnden(a, kopiePubliziert) : Lage::Geschehen;
    if (!amAnfang)
        return keinEnde(a, rest, unvollendet);
    if (istVeraenderteKopie(a, kopiePubliziert))
        return a.zeile.kopiert ? Lage::Geschehen : Lage::Unklar;
    platzhalterEntfernen(a);
    return Lage::NichtGeschehen;
}

bool Klaerung::istUnberuehrt(const Absicht &a)
{
    const bool rest = !a.temporaer.isEmpty() && istVorhanden(a.temporaer);
    const bool amZiel =
        a.ende() != a.anfang() && !a.ende().isEmpty() && Dateibewegung::istDieselbe(a.ende(), a.groesse, a.dateizeit);
    return istVorhanden(a.anfang()) && !rest && !amZiel;
}
