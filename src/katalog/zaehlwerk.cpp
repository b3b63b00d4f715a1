#include "zaehlwerk.h"

#include "datenbank.h"
#include "status.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
/** The counter of a status; none for one that is not counted. */
qint64 Zaehlwerk::*zaehler(Status status)
{
    switch (status) {
    case Status::Neu:
    case Status::Laeuft:
        return &Zaehlwerk::neu;
    case Status::Bereit:
        return &Zaehlwerk::bereit;
    case Status::Erledigt:
        return &Zaehlwerk::erledigt;
    case Status::Zurueckgestellt:
        return &Zaehlwerk::zurueckgestellt;
    case Status::Dublette:
        return &Zaehlwerk::dubletten;
    case Status::Aussortiert:
        return &Zaehlwerk::aussortiert;
    case Status::Fehlt:
    case Status::Unbekannt:
        break;
    }
    return nullptr;
}
} // namespace

Zaehlwerk Zaehlwerk::zaehlen(Datenbank &db)
{
    Zaehlwerk werk;
    for (const Zeile &zeile :
         db.lesen(u"SELECT status, COUNT(*) n FROM dokumente WHERE ausgenommen=0 GROUP BY status"_s)) {
        if (const auto feld = zaehler(statusAus(zeile.text(u"status"))))
            werk.*feld += zeile.ganz(u"n");
    }
    return werk;
}
} // namespace quillmar::katalog
