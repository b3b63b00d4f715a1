#include "blick.h"

#include "ablagewerk.h"
#include "datenbank.h"
#include "tatruecknahme.h"

using namespace Qt::StringLiterals;

namespace
{
std::optional<Dokument> wartendes(Datenbank &db, std::optional<qint64> id)
{
    if (!id)
        return std::nullopt;
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT * FROM dokumente WHERE id=? AND status='bereit' AND ausgenommen=0"_s, {*id});
    return zeilen.isEmpty() ? std::nullopt : std::optional(Dokument::aus(zeilen.first()));
}

std::optional<Dokument> gewaehltes(Datenbank &db, const Ablagewerk &werk, const Wunsch &wunsch)
{
    if (wunsch.art == Wunsch::Art::Weiter)
        return werk.naechstes(wunsch.id, wunsch.richtung);
    if (auto dieses = wartendes(db, wunsch.id))
        return dieses;
    if (auto sonst = wartendes(db, wunsch.sonst))
        return sonst;
    return werk.naechstes(wunsch.id, u"weiter"_s);
}

Pruefstueck vollstaendig(Datenbank &db, const Ablagewerk &werk, const Dokument &dokument)
{
    Pruefstueck stueck{.dokument = dokument, .ohneGegenueber = dokument.gegenueber.isEmpty(), .aehnlich = std::nullopt};
    stueck.hatText = !db.abfragen(u"SELECT 1 FROM texte WHERE dokument_id=? AND text<>''"_s, {dokument.id}).isEmpty();
    stueck.nachgeprueft = !db.abfragen(u"SELECT 1 FROM nachgeprueft WHERE dokument_id=?"_s, {dokument.id}).isEmpty();
    if (dokument.aehnlichZu)
        stueck.aehnlich = werk.dokument(*dokument.aehnlichZu);
    return stueck;
}

/** What an accept and the right arrow show next: the one behind @p id, at the end the first. */
QStringList folgende(Datenbank &db, qint64 id)
{
    for (const QString &wo : {u"id>?"_s, u"id<?"_s}) {
        const QList<Zeile> zeilen =
            db.abfragen(u"SELECT pfad FROM dokumente WHERE status='bereit' AND ausgenommen=0 AND "_s + wo +
                            u" ORDER BY id LIMIT 1"_s,
                        {id});
        if (!zeilen.isEmpty())
            return {zeilen.first().text(u"pfad")};
    }
    return {};
}
} // namespace

Blick Blick::auf(const std::shared_ptr<Datenbank> &db, const Profil &profil, const Wunsch &wunsch)
{
    const Ablagewerk werk(db, profil);
    Blick blick;
    if (const auto dokument = gewaehltes(*db, werk, wunsch)) {
        blick.aktuelles = vollstaendig(*db, werk, *dokument);
        blick.voraus = folgende(*db, dokument->id);
    }
    blick.zaehlwerk = werk.zaehlen();
    const QList<Zeile> ruhende = db->abfragen(u"SELECT COUNT(*) n FROM dokumente WHERE ausgenommen=1"_s);
    blick.ausgenommen = ruhende.isEmpty() ? 0 : ruhende.first().ganz(u"n");
    blick.umkehrbar = Tatruecknahme::istMoeglich(*db);
    blick.bewegt = Taten::letzteBewegung(*db).has_value();
    return blick;
}
