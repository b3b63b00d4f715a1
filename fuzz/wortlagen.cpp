#include "wortlagen.h"
#include "angebote.h"
#include "belege.h"
#include "fehler.h"
#include "pruefziel.h"

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;
using namespace quillmar::fundstellen;

namespace
{
constexpr qsizetype meisteWorte = 500; // what is done with them takes longer than reading them

/** Whatever is found stands among the words. */
void regelnAnwenden(const Seitenworte &worte)
{
    const QList<Wortfolge> seiten = wortfolgen({worte.first(std::min(meisteWorte, worte.size()))});
    const qsizetype anzahl = seiten.first().worte().size();
    const auto liegtDrin = [anzahl](const Fundstelle &s) {
        verlangen(s.seite == 0 && s.wort >= 0 && s.worte > 0 && s.wort + s.worte <= anzahl);
    };
    for (const Beleg &beleg : belege(seiten, u"2024-01-31"_s, u"Stadtwerke Meißen"_s, u"Rechnung 4711"_s).stellen)
        liegtDrin(beleg.stelle);
    for (const auto &angebote : {Angebote::daten(seiten), Angebote::namen(seiten, {}), Angebote::titel(seiten)}) {
        for (const Angebot &angebot : angebote)
            liegtDrin(angebot.stelle);
    }
}
} // namespace

/** What pdftotext and tesseract say of a page, and what the rules make of it. */
void pruefen(const QByteArray &eingabe)
{
    try {
        for (const auto &seite : Wortlagen::ebenenseiten(eingabe)) {
            static_cast<void>(seite.lage());
            regelnAnwenden(seite.worte);
        }
    } catch (const Fehler &) {
        // said to the user
    }
    regelnAnwenden(Wortlagen::ausTsv(eingabe, {.bild = {1000, 1400}, .neigung = 2}));
}
