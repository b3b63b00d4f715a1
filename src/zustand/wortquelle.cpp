#include "wortquelle.h"

namespace quillmar::zustand
{
QList<Seitenworte> Wortquelle::lesen(const Wortspeicher &speicher, const std::stop_token &ende) const
{
    Lesegrenzen grenzen;
    grenzen.nachrangig = !textebene;
    return Wortlagen::lesen(pfad, textebene, wie, speicher, grenzen, ende);
}
} // namespace quillmar::zustand
