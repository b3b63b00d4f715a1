#include "seitenprotokoll.h"

#include "pruefziel.h"

using namespace quillmar::seiten;

/** What another process sends: a message is within its bounds and comes out as it would be sent again, or it is none.
 */
void pruefen(const QByteArray &eingabe)
{
    if (const auto antwort = Seitenprotokoll::antwortAus(eingabe)) {
        verlangen(Seitenprotokoll::verpackt(*antwort) == eingabe);
        if (const auto *geoeffnet = std::get_if<Seitenprotokoll::Geoeffnet>(&*antwort)) {
            verlangen(geoeffnet->seiten >= 0 && geoeffnet->seiten <= Seitenprotokoll::meisteSeiten);
            verlangen(geoeffnet->groessen.size() <= geoeffnet->seiten);
        }
    }
    if (const auto auftrag = Seitenprotokoll::auftragAus(eingabe))
        verlangen(Seitenprotokoll::verpackt(*auftrag) == eingabe);
}
