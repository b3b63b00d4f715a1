#include "textleser.h"

#include "bilderordner.h"
#include "datenbank.h"
#include "dubletten.h"
#include "fehlertext.h"
#include "lauf.h"
#include "paare.h"
#include "pfade.h"
#include "skizze.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "werkzeuge.h"

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace
{
constexpr auto schreibabstand = 1s;

/** What the reading of one document gave. */
struct Gelesen {
    qint64 id = 0;
    QString text;
    bool textebene = false;
    QString textHash;
    QString skizze;
    QString fehler; ///< empty when it was read
};

Gelesen lesen(const Lauf &lauf, qint64 id, const QString &pfad)
{
    const Profil &profil = lauf.profil();
    try {
        const Werkzeuge::Text text = Werkzeuge::text(pfad, profil.seiten, profil.ocrSprache, lauf.ende());
        const Skizze skizze(text.text);
        return {.id = id,
                .text = ersteZeichen(text.text, 3 * qsizetype(profil.maxZeichen)),
                .textebene = text.textebene,
                .textHash = skizze.textHash(),
                .skizze = Skizze::json(skizze.werte()),
                .fehler = {}};
    } catch (const Werkzeuge::Abgebrochen &) {
        throw;
    } catch (const Fehler &f) {
        Gelesen gelesen;
        gelesen.id = id;
        gelesen.fehler = Fehlertext::lesen(f.text());
        return gelesen;
    }
}

void schreiben(Datenbank &db, QList<Gelesen> &fertige)
{
    Stapel stapel(db);
    for (const Gelesen &g : std::as_const(fertige)) {
        if (!g.fehler.isEmpty()) {
            stapel.schreiben(u"UPDATE dokumente SET text_hash='', fehler=?\n"
                             "WHERE id=? AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                             {g.fehler, g.id});
            continue;
        }
        const int geschrieben =
            stapel.schreiben(u"UPDATE dokumente SET text_hash=?, hat_textebene=?, skizze=? WHERE id=?\n"
                             "AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                             {g.textHash, g.textebene, g.skizze, g.id});
        if (geschrieben > 0)
            stapel.schreiben(u"INSERT OR REPLACE INTO texte (dokument_id, text) VALUES (?,?)"_s, {g.id, g.text});
    }
    stapel.abschliessen();
    fertige.clear();
}

/** A drive that was pulled out is no fault of the documents: nothing is marked then. */
void herkunftPruefen(const Lauf &lauf)
{
    if (!istOrdner(lauf.profil().quelle))
        throw Fehler(
            gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {lauf.profil().quelle}));
}

/** Where the document lies now; none if it is not to be read any more. */
std::optional<QString> jetzigerPfad(Datenbank &db, qint64 id)
{
    const QList<Zeile> zeilen = db.abfragen(u"SELECT pfad FROM dokumente WHERE id=? AND text_hash IS NULL\n"
                                            "AND status IN ('neu','bereit') AND ausgenommen=0"_s,
                                            {id});
    return zeilen.isEmpty() ? std::nullopt : std::optional(zeilen.first().text(u"pfad"));
}

void alleLesen(Lauf &lauf)
{
    const QList<Zeile> offene = lauf.db().abfragen(
        u"SELECT id FROM dokumente WHERE text_hash IS NULL AND status IN ('neu','bereit') AND ausgenommen=0\n"
        "ORDER BY id"_s);
    QList<Gelesen> fertige;
    auto geschrieben = steady_clock::now();
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        const auto pfad = jetzigerPfad(lauf.db(), offene.at(i).ganz(u"id"));
        if (!pfad)
            continue; // handled or excluded since the list was made
        try {
            fertige << lesen(lauf, offene.at(i).ganz(u"id"), *pfad);
        } catch (const Werkzeuge::Abgebrochen &) {
            break; // the program ends; the document in hand stays open
        }
        if (!fertige.last().fehler.isEmpty())
            herkunftPruefen(lauf);
        // Small documents come faster than a disk flushes: some share one transaction.
        if (steady_clock::now() - geschrieben > schreibabstand) {
            schreiben(lauf.db(), fertige);
            geschrieben = steady_clock::now();
        }
        lauf.fortschritt(
            gefuellt(Sprache::text(u"%@ von %@ gelesen"_s), {QString::number(i + 1), QString::number(offene.size())}),
            i + 1, offene.size());
    }
    schreiben(lauf.db(), fertige);
}

qsizetype textgleicheMarkieren(Datenbank &db)
{
    Dubletten::Gruppen gruppen;
    db.durchlaufen(u"SELECT id, pfad, text_hash FROM dokumente\n"
                   "WHERE status='neu' AND text_hash IS NOT NULL AND text_hash!='' AND ausgenommen=0 ORDER BY id"_s,
                   {}, [&](const Zeile &z) {
                       gruppen[z.text(u"text_hash")]
                           << Dubletten::Mitglied{.id = z.ganz(u"id"), .pfad = z.text(u"pfad")};
                   });
    return Dubletten::dublettenMarkieren(db, gruppen, 0.99);
}

QList<Paare::Abdruck> abdruecke(Datenbank &db)
{
    QList<Paare::Abdruck> liste;
    db.durchlaufen(u"SELECT id, skizze FROM dokumente WHERE status='neu' AND skizze IS NOT NULL AND ausgenommen=0"_s,
                   {}, [&](const Zeile &z) {
                       // What does not parse counts as no sketch.
                       if (auto werte = Skizze::ausJson(z.text(u"skizze")))
                           liste << Paare::Abdruck{.id = z.ganz(u"id"), .werte = std::move(*werte)};
                   });
    return liste;
}

/** Number of documents that were linked to an earlier one. */
qsizetype aehnlicheVerbinden(Datenbank &db)
{
    Stapel stapel(db);
    qsizetype anzahl = 0;
    for (const Paare::Paar &paar : Paare::finden(abdruecke(db))) {
        const double gerundet = std::round(paar.aehnlichkeit * 1000) / 1000;
        anzahl += stapel.schreiben(
            u"UPDATE dokumente SET aehnlich_zu=?, aehnlichkeit=?\nWHERE id=? AND aehnlich_zu IS NULL"_s,
            {paar.partner, gerundet, paar.id});
    }
    stapel.abschliessen();
    return anzahl;
}
} // namespace

void Textleser::textLesen(Lauf &lauf)
{
    lauf.stufe(QUILLMAR_TEXT(u"Text lesen"_s));
    Bilderordner::verwaisteEntfernen();
    alleLesen(lauf);
    if (lauf.sollHalten())
        return;
    lauf.stufe(QUILLMAR_TEXT(u"Ähnliche Dokumente suchen"_s));
    const qsizetype textgleiche = textgleicheMarkieren(lauf.db());
    const qsizetype paare = aehnlicheVerbinden(lauf.db());
    lauf.fortschritt(gefuellt(Sprache::text(u"%@ textgleiche Dubletten, %@ ähnliche Paare"_s),
                              {QString::number(textgleiche), QString::number(paare)}),
                     1, 1);
}
