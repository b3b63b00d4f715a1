#include "zweitmeinung.h"

#include "einordner.h"
#include "http.h"
#include "lauf.h"
#include "sprache.h"
#include "text.h"
#include "transaktion.h"
#include "vorschlaege.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
namespace
{
using Vorlage = Vorschlaege::Vorlage;

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
Einordnungsergebnis antwort(const Werkbank &bank, const Vorlage &vorlage)
{
    const Profil &profil = bank.lauf.profil();
    const std::stop_token &ende = bank.lauf.ende();
    const QString &dateiname = vorlage.dokument.dateiname;
    const QString frage = Einordnung::frage(bank.anweisung, dateiname, vorlage.text, profil.maxZeichen);
    const QJsonObject objekt = bank.ollama.fragen(bank.ollama.hiesiges(profil.modellGross, ende), frage, 600s, ende);
    Einordnungsergebnis ergebnis = Einordnung::auswerten(objekt, dateiname, profil);
    if (Einordnung::sagtNichts(objekt, ergebnis))
        throw Fehler(Sprache::text(u"Antwort des Modells nicht lesbar"_s));
    return ergebnis;
}

/** False when the document was taught, handled or excluded since it was read: then nothing is stored. */
bool speichern(const Werkbank &bank, const Vorlage &vorlage, Einordnungsergebnis ergebnis)
{
    Datenbank &db = bank.lauf.db();
    // One transaction, so that nothing is taught between the looking up and the storing.
    Transaktion transaktion(db);
    const auto richten = [&] {
        Einordner::richtungBerichtigen(bank.richtung, ergebnis, vorlage.text, bank.lauf.profil());
    };
    if (bank.gegenpruefung.istEigen(ergebnis.angaben.gegenueber))
        ergebnis.angaben.gegenueber = vorlage.dokument.angaben.gegenueber;
    richten();
    const auto gelernt =
        Einordner::gelerntesAnwenden(db, bank.lauf.profil(), vorlage.text, ergebnis, vorlage.dokument.ortQuelle);
    richten(); // also what was taught
    const auto gelerntVon = gelernt.ort ? std::optional(gelernt.von) : std::nullopt;
    if (!Vorschlaege(db).nachpruefen(vorlage.dokument.id, ergebnis.angaben, ergebnis.konfidenz, gelerntVon))
        return false;
    Einordner::antwortBehalten(db, vorlage.dokument.id, gelernt);
    transaktion.abschliessen();
    return true;
}

void einesNachpruefen(Werkbank &bank, const Vorlage &vorlage)
{
    Vorschlaege vorschlaege(bank.lauf.db());
    const qint64 id = vorlage.dokument.id;
    if (vorlage.text.isEmpty())
        return vorschlaege.nichtNachgeprueft(id, false);
    bank.lauf.dokument(vorlage.dokument.dateiname);
    std::optional<Einordnungsergebnis> ergebnis;
    try {
        ergebnis = antwort(bank, vorlage);
    } catch (const Modellmangel &) {
        throw; // ends the stage
    } catch (const Fehler &f) {
        // The first proposal stays.
        if (dynamic_cast<const Http::Unerreichbar *>(&f))
            bank.lauf.hindernis(Laufhindernis::Art::ServerWeg);
        return vorschlaege.nichtNachgeprueft(id, true);
    }
    bank.beantwortet += speichern(bank, vorlage, *ergebnis) ? 1 : 0;
}

void alleNachpruefen(Werkbank &bank)
{
    Lauf &lauf = bank.lauf;
    const Vorschlaege vorschlaege(lauf.db());
    const QList<qint64> offene = vorschlaege.strittige();
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        // Read again: an hour may have passed since, and the user was not idle.
        if (const auto vorlage = vorschlaege.strittiges(offene.at(i)))
            einesNachpruefen(bank, *vorlage);
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
    lauf.stufe(QUILLMAR_TEXT(u"Strittige Fälle nachprüfen"_s), Stufenart::Nachpruefen);
    Werkbank bank(lauf);
    Einordner::fragen(lauf, modell, Laufhindernis::Art::ModellFehlt, [&] { alleNachpruefen(bank); });
}
} // namespace quillmar::analyse
