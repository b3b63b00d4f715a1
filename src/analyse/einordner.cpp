#include "einordner.h"

#include "abbruch.h"
#include "fehlertext.h"
#include "http.h"
#include "lauf.h"
#include "sprache.h"
#include "text.h"
#include "transaktion.h"
#include "urteiler.h"
#include "ziel.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
namespace
{
using Vorlage = Vorschlaege::Vorlage;

/** A checked answer with what the learning memory made of it. */
struct Vorschlag {
    Einordnungsergebnis ergebnis;
    Ort modellOrt;
    QString ortQuelle;
    Einordner::Lernspur gelernt;
};

/** What stays the same for all documents of the stage. */
struct Werkbank {
    Lauf &lauf;
    Ollama ollama;
    QString anweisung;
    Gegenpruefung gegenpruefung;
    Rechnungsrichtung richtung;

    explicit Werkbank(Lauf &l)
        : lauf(l), anweisung(Einordnung::anweisung(l.profil())), gegenpruefung(l.profil()),
          richtung(l.profil().eigeneAnschriften)
    {
    }
};

void gegenueberPruefen(const Werkbank &bank, Einordnungsergebnis &e, const QString &text)
{
    if (!bank.gegenpruefung.istEigen(e.angaben.gegenueber))
        return;
    e.angaben.gegenueber.clear();
    try {
        const auto name = nachfragen(bank.gegenpruefung, text, bank.lauf.profil(), bank.ollama, bank.lauf.ende());
        e.angaben.gegenueber = name.value_or(QString());
    } catch (const Modellmangel &) {
        throw; // the whole document is asked about again
    } catch (const Fehler &) {
        // The rest of the proposal stands; the review says that no counterpart was found.
    }
}

QString ortQuelle(const Profil &profil, const QString &altOrdner, const Ort &ort)
{
    const Ort heute = profil.zerlegen(altOrdner);
    return profil.kennt(heute) && heute != ort ? u"umsortierung"_s : u"modell"_s;
}

Vorschlag vorschlagen(const Werkbank &bank, const Vorlage &vorlage)
{
    const Profil &profil = bank.lauf.profil();
    const QString &text = vorlage.text;
    const QString &dateiname = vorlage.dokument.dateiname;
    if (text.isEmpty())
        throw Fehler(Sprache::text(u"kein Text"_s));
    const std::stop_token &ende = bank.lauf.ende();
    const QString frage = Einordnung::frage(bank.anweisung, dateiname, text, profil.maxZeichen);
    const QJsonObject antwort = bank.ollama.fragen(bank.ollama.hiesiges(profil.modell, ende), frage, 300s, ende);
    Vorschlag v;
    v.ergebnis = Einordnung::auswerten(antwort, dateiname, profil);
    Einordner::richtungBerichtigen(bank.richtung, v.ergebnis, text, profil);
    gegenueberPruefen(bank, v.ergebnis, text);
    v.modellOrt = v.ergebnis.angaben.ort;
    return v;
}

/** What the user has taught, and last of all what the owner's address proves. */
void wissenAnwenden(const Werkbank &bank, const Vorlage &vorlage, Vorschlag &v)
{
    const Profil &profil = bank.lauf.profil();
    const QString eigene = ortQuelle(profil, vorlage.dokument.altOrdner, v.ergebnis.angaben.ort);
    v.gelernt = Einordner::gelerntesAnwenden(bank.lauf.db(), profil, vorlage.text, v.ergebnis, eigene);
    Einordner::richtungBerichtigen(bank.richtung, v.ergebnis, vorlage.text, profil);
    v.ortQuelle = v.gelernt.ort ? u"gelernt"_s : ortQuelle(profil, vorlage.dokument.altOrdner, v.ergebnis.angaben.ort);
}

void speichern(const Werkbank &bank, const Vorlage &vorlage, Vorschlag v, const QString &dauer)
{
    // One transaction, so that nothing is taught between the looking up and the storing.
    Datenbank &db = bank.lauf.db();
    Transaktion transaktion(db);
    wissenAnwenden(bank, vorlage, v);
    const Angaben &angaben = v.ergebnis.angaben;
    const Dokument &dokument = vorlage.dokument;
    const Vorschlaege::Vorschlag vorschlag{.angaben = angaben,
                                           .konfidenz = v.ergebnis.konfidenz,
                                           .name = Ziel::dateiname(angaben, dokument.dateiname, bank.lauf.profil()),
                                           .dauer = dauer,
                                           .modellOrt = v.modellOrt,
                                           .ortQuelle = v.ortQuelle,
                                           .gelerntVon = v.gelernt.von};
    if (!Vorschlaege(db).speichern(dokument.id, vorschlag))
        return;
    Einordner::antwortBehalten(db, dokument.id, v.gelernt);
    transaktion.abschliessen();
}

/** The reason for a failure: why the document could not be read if that was it, else what the attempt ran into. */
QString grund(const Dokument &dokument, const Fehler &f)
{
    const QString bisher = Fehlertext::grundDesLesens(dokument.fehler.value_or(QString()));
    return bisher.isNull() ? f.text() : bisher;
}

void scheitern(const Werkbank &bank, const Dokument &dokument, const Fehler &f, const QString &dauer)
{
    const QString warum = grund(dokument, f);
    if (dynamic_cast<const Http::Unerreichbar *>(&f))
        bank.lauf.hindernis(Laufhindernis::Art::ServerWeg);
    if (Vorschlaege(bank.lauf.db()).scheitern(dokument.id, dokument.dateiname, Fehlertext::einordnen(warum), dauer))
        bank.lauf.gescheitert(warum);
}

void einesEinordnen(const Werkbank &bank, const Vorlage &vorlage)
{
    bank.lauf.dokument(vorlage.dokument.dateiname);
    QElapsedTimer uhr;
    uhr.start();
    const auto dauer = [&uhr] { return QString::number(double(uhr.elapsed()) / 1000, 'f', 1); };
    Vorschlag vorschlag;
    try {
        vorschlag = vorschlagen(bank, vorlage);
    } catch (const Modellmangel &) {
        throw; // ends the stage
    } catch (const Fehler &f) {
        scheitern(bank, vorlage.dokument, f, dauer());
        return;
    }
    speichern(bank, vorlage, vorschlag, dauer());
}

void alleEinordnen(const Werkbank &bank)
{
    Lauf &lauf = bank.lauf;
    const Vorschlaege vorschlaege(lauf.db());
    const QList<qint64> offene = lauf.inPortion(vorschlaege.einzuordnende());
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        if (const auto vorlage = vorschlaege.einzuordnendes(offene.at(i)))
            einesEinordnen(bank, *vorlage);
        lauf.fortschritt(Einordner::satz(i + 1, offene.size()), i + 1, offene.size());
    }
}
} // namespace

std::optional<QString> nachfragen(const Gegenpruefung &pruefung, const QString &text, const Profil &profil,
                                  const Ollama &ollama, const std::stop_token &ende)
{
    const QString modell = ollama.hiesiges(profil.modell, ende);
    const QJsonObject antwort = ollama.fragen(modell, Gegenpruefung::frage(text, profil), 300s, ende);
    const QString name = nfc(antwort.value("gegenueber"_L1).toString()).trimmed();
    return name.isEmpty() || pruefung.istEigen(name) ? std::nullopt : std::optional(name);
}

void Einordner::richtungBerichtigen(const Rechnungsrichtung &richtung, Einordnungsergebnis &e, const QString &text,
                                    const Profil &profil)
{
    const auto rubrik = richtung.berichtigt(e.angaben.ort.rubrik, text, profil);
    if (!rubrik)
        return;
    e.angaben.ort.rubrik = *rubrik;
    e.konfidenz = std::max(e.konfidenz, mindestensNachRegel);
}

Einordner::Lernspur Einordner::gelerntesAnwenden(Datenbank &db, const Profil &profil, const QString &text,
                                                 Einordnungsergebnis &e, const QString &ortQuelle,
                                                 const Regelwahl &regeln)
{
    Angaben &a = e.angaben;
    Modellantwort antwort{.gegenueber = a.gegenueber,
                          .ort = a.ort,
                          .konfidenz = e.konfidenz,
                          .ortQuelle = ortQuelle,
                          .worte = Wortstimmen::worte(text)};
    Urteiler urteiler(db, profil, regeln);
    const auto urteil = urteiler.urteilen(antwort, Urteiler::Anlass::Einordnen, [&] { return antwort.worte; });
    antwort.sicher = !urteil.ortGelernt && urteiler.istSicher(a.ort, e.konfidenz);
    a.gegenueber = urteil.gegenueber;
    a.ort = urteil.ort;
    e.konfidenz = urteil.konfidenz;
    return {.von = urteil.von, .ort = urteil.ortGelernt, .stimme = urteil.stimme, .antwort = antwort};
}

void Einordner::antwortBehalten(Datenbank &db, qint64 dokument, const Lernspur &spur)
{
    Modellantworten(db).speichern(dokument, spur.antwort);
    Modellantworten(db).setzeStimme(dokument, spur.stimme.wort, spur.stimme.dokumente);
}

bool Einordner::fragen(Lauf &lauf, const QString &modell, Laufhindernis::Art wennFehlt,
                       const std::function<void()> &alle)
{
    try {
        alle();
        return true;
    } catch (const Abbruch &) {
        return false; // the program ends; the document in hand stays open
    } catch (const ModellFehlt &) {
        // No document can be asked about: all that are left wait for the next run.
        lauf.hindernis(wennFehlt, modell);
    } catch (const ModellAnderswo &) {
        lauf.hindernis(Laufhindernis::Art::ModellAnderswo, modell);
    }
    return false;
}

QString Einordner::stufe() { return QUILLMAR_TEXT(u"Dokumente einordnen"_s); }

QString Einordner::satz(qsizetype fertig, qsizetype gesamt)
{
    return gefuellt(Sprache::text(u"%@ von %@ eingeordnet"_s), {QString::number(fertig), QString::number(gesamt)});
}

bool Einordner::einordnen(Lauf &lauf)
{
    lauf.stufe(stufe(), Stufenart::Einordnen);
    return fragen(lauf, lauf.profil().modell, Laufhindernis::Art::ErstesModellFehlt,
                  [&] { alleEinordnen(Werkbank(lauf)); });
}
} // namespace quillmar::analyse
