#include "bewegungspruefung.h"

#include "bewegungen.h"
#include "dateibewegung.h"
#include "pfade.h"
#include "sprache.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
/** The document is not where the movement has brought it, but has moved on since. */
bool istWeitergezogen(const Protokollzeile &z, const Bewegungspruefung::Verzeichnet &stand)
{
    if (stand.protokollId == 0)
        return false;
    // A copying profile leaves the document where it was; it may have lost that place since.
    if (z.kopiert || z.von == z.nach)
        return !stand.pfad.isEmpty() && stand.pfad != z.von;
    return stand.pfad != z.nach;
}

Bewegungspruefung::Verzeichnet aus(const Bewegungen::Stand &s)
{
    return {.protokollId = s.id,
            .zurueck = s.zurueck,
            .pfad = s.pfad,
            .platzVergeben = s.platzVergeben,
            .vonName = s.vonName};
}
} // namespace

bool Bewegungspruefung::istOhneWeg(const Protokollzeile &zeile)
{
    return Dateibewegung::istDerselbeEintrag(zeile.von, zeile.nach);
}

Bewegungspruefung::Verzeichnet Bewegungspruefung::verzeichnet(Datenbank &db, const Protokollzeile &zeile)
{
    const QList<Bewegungen::Stand> staende = Bewegungen(db).staende(zeile.dokument, zeile.von, zeile.nach);
    if (staende.isEmpty())
        return {}; // a log of another profile or computer
    // A later session may have moved it there again.
    const auto rang = [&zeile](const Bewegungen::Stand &s) {
        return std::tuple(s.zeit == zeile.zeit, !s.zurueck, s.id);
    };
    return aus(*std::max_element(staende.begin(), staende.end(),
                                 [&rang](const auto &a, const auto &b) { return rang(a) < rang(b); }));
}

Bewegungspruefung::Verzeichnet Bewegungspruefung::stand(Datenbank &db, qint64 protokollId)
{
    const auto stand = Bewegungen(db).stand(protokollId);
    return stand ? aus(*stand) : Verzeichnet();
}

QString Bewegungspruefung::hindernis(const Protokollzeile &zeile, const Verzeichnet &stand)
{
    if (istWeitergezogen(zeile, stand))
        return Sprache::text(u"Die Datei liegt nicht mehr am Zielort"_s);
    if (stand.platzVergeben)
        return Sprache::text(u"Am alten Platz ist inzwischen ein anderes Dokument verzeichnet"_s);
    if (istOhneWeg(zeile))
        return {};
    if (!istVorhanden(zeile.nach))
        return Sprache::text(u"Die Datei liegt nicht mehr am Zielort"_s);
    if (!zeile.kopiert)
        return istVorhanden(zeile.von) ? Sprache::text(u"Am alten Platz liegt schon eine andere Datei"_s) : QString();
    // The copy may be the last one of its content.
    return Dateibewegung::istGleich(zeile.von, zeile.nach)
               ? QString()
               : Sprache::text(u"Das Original fehlt oder ist nicht mehr wie die Kopie"_s);
}
} // namespace quillmar::ablage
