#include "zweitmeinung.h"

#include "datenbank.h"
#include "einordnung.h"
#include "gegenpruefung.h"
#include "lauf.h"
#include "lernspeicher.h"
#include "ollama.h"
#include "sprache.h"
#include "stapel.h"
#include "werkzeuge.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
/** The larger model's checked answer; none when there is no text or it failed. */
std::optional<Einordnungsergebnis> antwort(const Lauf &lauf, const QString &anweisung, const Zeile &zeile)
{
    const Profil &profil = lauf.profil();
    const QString text = zeile.text(u"text");
    const QString dateiname = zeile.text(u"dateiname");
    if (text.isEmpty())
        return std::nullopt;
    try {
        const QJsonObject objekt = Ollama().fragen(
            profil.modellGross, Einordnung::frage(anweisung, dateiname, text, profil.maxZeichen), 600s, lauf.ende());
        return Einordnung::auswerten(objekt, dateiname, profil);
    } catch (const Werkzeuge::Abgebrochen &) {
        throw;
    } catch (const Fehler &) {
        return std::nullopt; // the first proposal stays
    }
}

/** What the user has taught goes before what any model says. Returns the entry that gave the place. */
std::optional<Eintrag> gelerntesAnwenden(Datenbank &db, Einordnungsergebnis &e)
{
    const Lernspeicher speicher(db);
    e.gegenueber = speicher.gleichwertig(e.gegenueber).value_or(e.gegenueber);
    auto eintrag = speicher.vorschlag(e.gegenueber);
    if (!eintrag)
        return std::nullopt;
    if (Lernregeln::darfErsetzen(eintrag->anzeige, e.gegenueber))
        e.gegenueber = eintrag->anzeige;
    e.zweig = eintrag->zweig;
    e.ablage = eintrag->ablage;
    e.rubrik = eintrag->rubrik;
    return eintrag;
}

void speichern(Datenbank &db, qint64 id, const Einordnungsergebnis &e, const std::optional<Eintrag> &gelernt)
{
    Stapel stapel(db);
    stapel.schreiben(u"UPDATE dokumente SET datum=?, gegenueber=?, titel=?, zweig=?, ablage=?, rubrik=?,\n"
                     "jahr=?, konfidenz=?, zweitmeinung=1, fehler=NULL WHERE id=? AND status='bereit'"_s,
                     {e.datum, e.gegenueber, e.titel, e.zweig, e.ablage, e.rubrik, e.jahr(), e.konfidenz, id});
    stapel.schreiben(u"INSERT OR IGNORE INTO nachgeprueft (dokument_id) VALUES (?)"_s, {id});
    if (gelernt)
        stapel.schreiben(u"UPDATE dokumente SET ort_quelle='gelernt', gelernt_von=? WHERE id=? AND status='bereit'"_s,
                         {gelernt->schluessel, id});
    stapel.abschliessen();
}

void nurVermerken(Datenbank &db, qint64 id)
{
    Stapel stapel(db);
    stapel.schreiben(u"UPDATE dokumente SET zweitmeinung=1 WHERE id=?"_s, {id});
    stapel.abschliessen();
}

void einesNachpruefen(const Lauf &lauf, const QString &anweisung, const Gegenpruefung &pruefung, const Zeile &zeile)
{
    const qint64 id = zeile.ganz(u"id");
    auto ergebnis = antwort(lauf, anweisung, zeile);
    if (!ergebnis) {
        nurVermerken(lauf.db(), id);
        return;
    }
    if (pruefung.istEigen(ergebnis->gegenueber))
        ergebnis->gegenueber = zeile.text(u"gegenueber");
    const auto gelernt = gelerntesAnwenden(lauf.db(), *ergebnis);
    speichern(lauf.db(), id, *ergebnis, gelernt);
}
} // namespace

void Zweitmeinung::einholen(Lauf &lauf)
{
    if (lauf.profil().modellGross.isEmpty())
        return;
    lauf.stufe(QUILLMAR_TEXT(u"Strittige Fälle nachprüfen"_s));
    const QList<Zeile> offene = lauf.db().abfragen(
        u"SELECT id FROM dokumente WHERE status='bereit' AND (zweitmeinung IS NULL OR zweitmeinung=0)\n"
        "AND (ort_quelle='umsortierung' OR konfidenz < 0.75)\n"
        "AND (ort_quelle IS NULL OR ort_quelle<>'gelernt') AND ausgenommen=0 ORDER BY id"_s);
    const QString anweisung = Einordnung::anweisung(lauf.profil());
    const Gegenpruefung pruefung(lauf.profil());
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        const QList<Zeile> zeilen = lauf.db().abfragen(
            u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id WHERE d.id=?"_s,
            {offene.at(i).ganz(u"id")});
        try {
            if (!zeilen.isEmpty() && zeilen.first().text(u"status") == u"bereit"_s)
                einesNachpruefen(lauf, anweisung, pruefung, zeilen.first());
        } catch (const Werkzeuge::Abgebrochen &) {
            return; // the program ends; the document in hand stays open
        }
        lauf.fortschritt(QString::number(i + 1) + Sprache::text(u" von "_s) + QString::number(offene.size()) +
                             Sprache::text(u" nachgeprüft"_s),
                         i + 1, offene.size());
    }
}
