#include "lesung.h"

#include "pfade.h"
#include "platte.h"

namespace quillmar::zustand
{
namespace
{
/** Nothing but zeros if there is no such file. */
struct stat standVon(const QString &pfad)
{
    struct stat stand {
    };
    if (!Platte::angaben(aufDerPlatte(pfad), stand))
        stand = {};
    return stand;
}

/** Pages as they are to be read: with lines that run to the right, however somebody has turned them. */
QList<Wortfolge> aufrechte(QList<Seitenworte> worte)
{
    for (Seitenworte &seite : worte)
        seite = gedreht(seite, leserichtung(seite));
    return wortfolgen(worte);
}
} // namespace

Lesung::Lesung(const Leseauftrag &auftrag, const Wortspeicher &speicher, const std::stop_token &ende)
    : m_auftrag(auftrag), m_stand(standVon(auftrag.quelle.pfad)), m_worte(auftrag.quelle.lesen(speicher, ende)),
      m_folgen(aufrechte(m_worte)), m_angebote{{Feld::Datum, Angebote::daten(m_folgen)},
                                               {Feld::Gegenueber, Angebote::namen(m_folgen, auftrag.eigene)},
                                               {Feld::Titel, Angebote::titel(m_folgen)}}
{
}

bool Lesung::istAktuell() const
{
    return m_stand.st_ino != 0 && Platte::unveraendert(m_stand, standVon(m_auftrag.quelle.pfad));
}

Seitenmarke Lesung::marke(const Fundstelle &stelle, Feld feld) const
{
    const Wortfolge &folge = m_folgen.at(stelle.seite);
    Seitenmarke marke{.seite = stelle.seite, .orte = {}, .feld = feld};
    for (qsizetype i = stelle.wort; i < stelle.wort + stelle.worte; ++i) {
        const QRectF &ort = m_worte.at(stelle.seite).at(i).ort;
        if (i > stelle.wort && folge.zeile(i) == folge.zeile(i - 1))
            marke.orte.last() |= ort;
        else
            marke.orte << ort;
    }
    return marke;
}
} // namespace quillmar::zustand
