#include "zaehlwerk.h"

#include "datenbank.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
struct Zuordnung {
    QStringView status;
    qint64 Zaehlwerk::*feld;
};

constexpr std::array<Zuordnung, 7> zuordnungen = {{
    {u"neu", &Zaehlwerk::neu},
    {u"laeuft", &Zaehlwerk::neu},
    {u"bereit", &Zaehlwerk::bereit},
    {u"erledigt", &Zaehlwerk::erledigt},
    {u"zurueckgestellt", &Zaehlwerk::zurueckgestellt},
    {u"dublette", &Zaehlwerk::dubletten},
    {u"aussortiert", &Zaehlwerk::aussortiert},
}};
} // namespace

Zaehlwerk Zaehlwerk::zaehlen(Datenbank &db)
{
    Zaehlwerk werk;
    for (const Zeile &zeile :
         db.abfragen(u"SELECT status, COUNT(*) n FROM dokumente WHERE ausgenommen=0 GROUP BY status"_s)) {
        const QString status = zeile.text(u"status");
        for (const Zuordnung &z : zuordnungen) {
            if (z.status == status)
                werk.*z.feld += zeile.ganz(u"n");
        }
    }
    return werk;
}
