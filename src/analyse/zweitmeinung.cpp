#include "zweitmeinung.h"

#include "datenbank.h"
#include "einordner.h"
#include "http.h"
#include "lauf.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "transaktion.h"
#include "zeit.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
/** What stays the same for all documents of the stage. */
struct Werkbank {
    Lauf &lauf;
    Ollama ollama;
    QString anweisung;
    Gegenpruefung gegenpruefung;
    Rechnungsrichtung richtung;
    qsizetype beantwortet = 0;

    explicit Werkbank(Lauf &l)
        : lauf(l), anweisung(Einordnung::anweisung(l.profil())), gegenpruefung(l.profil()),
          richtung(l.profil().eigeneAnschriften)
    {
    }
};

/** The larger model's checked answer. Throws Fehler when there is none. */
Einordnungsergebnis antwort(const Werkbank &bank, const Zeile &zeile)
{
    const Profil &profil = bank.lauf.profil();
    const std::stop_token &ende = bank.lauf.ende();
    const QString dateiname = zeile.text(u"dateiname");
    const QString frage = Einordnung::frage(bank.anweisung, dateiname, zeile.text(u"text"), profil.maxZeichen);
    const QJsonObject objekt = bank.ollama.fragen(bank.ollama.hiesiges(profil.modellGross, ende), frage, 600s, ende);
    Einordnungsergebnis ergebnis = Einordnung::auswerten(objekt, dateiname, profil);
    if (Einordnung::sagtNichts(objekt, ergebnis))
        throw Fehler(Sprache::text(u"Antwort des Modells nicht lesbar"_s));
    return ergebnis;
}

/** False when the document was taught, handled or excluded since it was read: then nothing is stored. */
bool ergebnisSchreiben(Datenbank &db, qint64 id, const Einordnungsergebnis &e, const Einordner::Gelerntes &gelernt)
{
    Stapel stapel(db);
    const int geschrieben =
        stapel.schreiben(u"UPDATE dokumente SET datum=?, gegenueber=?, titel=?, zweig=?, ablage=?, rubrik=?,\n"
                         "jahr=?, konfidenz=?, zweitmeinung=1, fehler=NULL WHERE id=? AND status='bereit'\n"
                         "AND ausgenommen=0 AND (ort_quelle IS NULL OR ort_quelle<>'gelernt')"_s,
                         {e.datum, e.gegenueber, e.titel, e.zweig, e.ablage, e.rubrik, e.jahr(), e.konfidenz, id});
    if (geschrieben > 0)
        stapel.schreiben(u"INSERT OR IGNORE INTO nachgeprueft (dokument_id) VALUES (?)"_s, {id});
    if (geschrieben > 0 && gelernt.ort)
        stapel.schreiben(u"UPDATE dokumente SET ort_quelle='gelernt', gelernt_von=? WHERE id=?"_s, {gelernt.von, id});
    if (geschrieben > 0)
        stapel.schreiben(u"DELETE FROM zweitfragen WHERE dokument_id=?"_s, {id});
    stapel.abschliessen();
    return geschrieben > 0;
}

bool speichern(const Werkbank &bank, const Zeile &zeile, Einordnungsergebnis ergebnis)
{
    Datenbank &db = bank.lauf.db();
    // One transaction, so that nothing is taught between the looking up and the storing.
    Transaktion transaktion(db);
    if (bank.gegenpruefung.istEigen(ergebnis.gegenueber))
        ergebnis.gegenueber = zeile.text(u"gegenueber");
    const auto gelernt = Einordner::gelerntesAnwenden(db, ergebnis);
    Einordner::richtungBerichtigen(bank.richtung, ergebnis, zeile.text(u"text"), bank.lauf.profil());
    const bool geschrieben = ergebnisSchreiben(db, zeile.ganz(u"id"), ergebnis, gelernt);
    transaktion.abschliessen();
    return geschrieben;
}

/** The document is not asked about again by itself; @p unbeantwortet: but where the user wishes it. */
void nurVermerken(Datenbank &db, qint64 id, bool unbeantwortet)
{
    Stapel stapel(db);
    const int geschrieben = stapel.schreiben(
        u"UPDATE dokumente SET zweitmeinung=1 WHERE id=? AND status='bereit' AND ausgenommen=0"_s, {id});
    if (geschrieben > 0 && unbeantwortet)
        stapel.schreiben(u"INSERT OR REPLACE INTO zweitfragen (dokument_id, zeit) VALUES (?,?)"_s, {id, jetztIso()});
    stapel.abschliessen();
}

void einesNachpruefen(Werkbank &bank, const Zeile &zeile)
{
    if (zeile.text(u"text").isEmpty())
        return nurVermerken(bank.lauf.db(), zeile.ganz(u"id"), false);
    std::optional<Einordnungsergebnis> ergebnis;
    try {
        ergebnis = antwort(bank, zeile);
    } catch (const Modellmangel &) {
        throw; // ends the stage
    } catch (const Fehler &f) {
        // The first proposal stays.
        if (dynamic_cast<const Http::Unerreichbar *>(&f))
            bank.lauf.hindernis(Laufhindernis::Art::ServerWeg);
        return nurVermerken(bank.lauf.db(), zeile.ganz(u"id"), true);
    }
    bank.beantwortet += speichern(bank, zeile, *ergebnis) ? 1 : 0;
}

const QString nochZuFragen = u"d.status='bereit' AND (d.zweitmeinung IS NULL OR d.zweitmeinung=0)\n"
                             "AND (d.ort_quelle='umsortierung' OR d.konfidenz < 0.75)\n"
                             "AND (d.ort_quelle IS NULL OR d.ort_quelle<>'gelernt') AND d.ausgenommen=0"_s;

void alleNachpruefen(Werkbank &bank)
{
    Lauf &lauf = bank.lauf;
    const QList<Zeile> offene =
        lauf.db().abfragen(u"SELECT d.id FROM dokumente d WHERE "_s + nochZuFragen + u" ORDER BY d.id"_s);
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        // Read again: an hour may have passed since, and the user was not idle.
        const QList<Zeile> zeilen = lauf.db().abfragen(
            u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id WHERE d.id=? AND "_s +
                nochZuFragen,
            {offene.at(i).ganz(u"id")});
        if (!zeilen.isEmpty())
            einesNachpruefen(bank, zeilen.first());
        lauf.fortschritt(gefuellt(Sprache::text(u"%@ von %@ nachgeprüft"_s),
                                  {QString::number(bank.beantwortet), QString::number(offene.size())}),
                         i + 1, offene.size());
    }
}
} // namespace

void Zweitmeinung::einholen(Lauf &lauf)
{
    const QString modell = lauf.profil().modellGross;
    if (modell.isEmpty())
        return;
    lauf.stufe(QUILLMAR_TEXT(u"Strittige Fälle nachprüfen"_s));
    Werkbank bank(lauf);
    Einordner::fragen(lauf, modell, Laufhindernis::Art::ModellFehlt, [&] { alleNachpruefen(bank); });
}
