#include "bewegungspruefung.h"

#include "dateibewegung.h"
#include "datenbank.h"
#include "pfade.h"
#include "sprache.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

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

QString auswahl()
{
    return u"SELECT p.id, p.rueckgaengig, p.zeit, d.pfad, n.name,\n"
           "EXISTS (SELECT 1 FROM dokumente o WHERE o.pfad=p.von_pfad AND o.id<>p.dokument_id\n"
           "AND o.status<>'fehlt' AND o.id NOT IN (SELECT dokument_id FROM abwesend)) AS vergeben\n"
           "FROM protokoll p LEFT JOIN dokumente d ON d.id=p.dokument_id\n"
           "LEFT JOIN schreibweisen n ON n.protokoll_id=p.id\n"_s;
}

Bewegungspruefung::Verzeichnet aus(const Zeile &z)
{
    return {.protokollId = z.ganz(u"id"),
            .zurueck = z.ganz(u"rueckgaengig") == 1,
            .pfad = z.text(u"pfad"),
            .platzVergeben = z.ganz(u"vergeben") == 1,
            .vonName = QByteArray::fromPercentEncoding(z.text(u"name").toLatin1())};
}
} // namespace

bool Bewegungspruefung::istOhneWeg(const Protokollzeile &zeile)
{
    return Dateibewegung::istDerselbeEintrag(zeile.von, zeile.nach);
}

Bewegungspruefung::Verzeichnet Bewegungspruefung::verzeichnet(Datenbank &db, const Protokollzeile &zeile)
{
    const QList<Zeile> zeilen = db.abfragen(auswahl() + u"WHERE p.dokument_id=? AND p.von_pfad=? AND p.nach_pfad=?"_s,
                                            {zeile.dokument, zeile.von, zeile.nach});
    if (zeilen.isEmpty())
        return {}; // a log of another profile or computer
    // A later session may have moved it there again.
    const auto rang = [&zeile](const Zeile &z) {
        return std::tuple(z.text(u"zeit") == zeile.zeit, z.ganz(u"rueckgaengig") == 0, z.ganz(u"id"));
    };
    return aus(*std::max_element(zeilen.begin(), zeilen.end(),
                                 [&rang](const Zeile &a, const Zeile &b) { return rang(a) < rang(b); }));
}

Bewegungspruefung::Verzeichnet Bewegungspruefung::stand(Datenbank &db, qint64 protokollId)
{
    const QList<Zeile> zeilen = db.abfragen(auswahl() + u"WHERE p.id=?"_s, {protokollId});
    return zeilen.isEmpty() ? Verzeichnet() : aus(zeilen.first());
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
