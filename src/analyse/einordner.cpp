#include "einordner.h"

#include "abbruch.h"
#include "datenbank.h"
#include "dokument.h"
#include "fehlertext.h"
#include "http.h"
#include "lauf.h"
#include "lernspeicher.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "transaktion.h"
#include "ziel.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
/** A checked answer with what the learning memory made of it. */
struct Vorschlag {
    Einordnungsergebnis ergebnis;
    Ort modellOrt;
    QString ortQuelle;
    QString gelerntVon;
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
    if (!bank.gegenpruefung.istEigen(e.gegenueber))
        return;
    e.gegenueber.clear();
    try {
        const auto name = nachfragen(bank.gegenpruefung, text, bank.lauf.profil(), bank.ollama, bank.lauf.ende());
        e.gegenueber = name.value_or(QString());
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

Vorschlag vorschlagen(const Werkbank &bank, const Zeile &zeile)
{
    const Profil &profil = bank.lauf.profil();
    const QString text = zeile.text(u"text");
    const QString dateiname = zeile.text(u"dateiname");
    if (text.isEmpty())
        throw Fehler(Sprache::text(u"kein Text"_s));
    const std::stop_token &ende = bank.lauf.ende();
    const QString frage = Einordnung::frage(bank.anweisung, dateiname, text, profil.maxZeichen);
    const QJsonObject antwort = bank.ollama.fragen(bank.ollama.hiesiges(profil.modell, ende), frage, 300s, ende);
    Vorschlag v;
    v.ergebnis = Einordnung::auswerten(antwort, dateiname, profil);
    Einordner::richtungBerichtigen(bank.richtung, v.ergebnis, text, profil);
    gegenueberPruefen(bank, v.ergebnis, text);
    v.modellOrt = v.ergebnis.ort();
    return v;
}

/** What the user has taught, and last of all what the owner's address proves. */
void wissenAnwenden(const Werkbank &bank, const Zeile &zeile, Vorschlag &v)
{
    const Profil &profil = bank.lauf.profil();
    const Einordner::Gelerntes gelernt = Einordner::gelerntesAnwenden(bank.lauf.db(), v.ergebnis);
    v.gelerntVon = gelernt.von;
    if (gelernt.ort) {
        v.ergebnis.konfidenz = std::max(v.ergebnis.konfidenz, Einordner::mindestensGelernt);
        v.ortQuelle = u"gelernt"_s;
    }
    Einordner::richtungBerichtigen(bank.richtung, v.ergebnis, zeile.text(u"text"), profil);
    if (v.ortQuelle.isEmpty())
        v.ortQuelle = ortQuelle(profil, zeile.text(u"alt_ordner"), v.ergebnis.ort());
}

Dokument mitErgebnis(const Zeile &zeile, const Einordnungsergebnis &e)
{
    Dokument d = Dokument::aus(zeile);
    d.datum = e.datum;
    d.gegenueber = e.gegenueber;
    d.titel = e.titel;
    d.zweig = e.zweig;
    d.ablage = e.ablage;
    d.rubrik = e.rubrik;
    d.jahr = e.jahr();
    return d;
}

void speichern(const Werkbank &bank, const Zeile &zeile, Vorschlag v, const QString &dauer)
{
    // One transaction, so that nothing is taught between the looking up and the storing.
    Transaktion transaktion(bank.lauf.db());
    wissenAnwenden(bank, zeile, v);
    const Einordnungsergebnis &e = v.ergebnis;
    const QString name = Ziel::dateiname(mitErgebnis(zeile, e), bank.lauf.profil());
    Stapel stapel(bank.lauf.db());
    stapel.schreiben(u"UPDATE dokumente SET status='bereit', datum=?, gegenueber=?, titel=?, zweig=?,\n"
                     "ablage=?, rubrik=?, jahr=?, konfidenz=?, vorschlag=?, zeit=?,\n"
                     "modell_zweig=?, modell_ablage=?, modell_rubrik=?, ort_quelle=?,\n"
                     "gelernt_von=? WHERE id=? AND status='neu' AND ausgenommen=0"_s,
                     {e.datum, e.gegenueber, e.titel, e.zweig, e.ablage, e.rubrik, e.jahr(), e.konfidenz, name, dauer,
                      v.modellOrt.zweig, v.modellOrt.ablage, v.modellOrt.rubrik, v.ortQuelle, v.gelerntVon,
                      zeile.ganz(u"id")});
    stapel.abschliessen();
    transaktion.abschliessen();
}

/** The reason for a failure: why the document could not be read if that was it, else what the attempt ran into. */
QString grund(const Zeile &zeile, const Fehler &f)
{
    const QString bisher = Fehlertext::grundDesLesens(zeile.text(u"fehler"));
    return bisher.isNull() ? f.text() : bisher;
}

void scheitern(const Werkbank &bank, const Zeile &zeile, const Fehler &f, const QString &dauer)
{
    const QString warum = grund(zeile, f);
    if (dynamic_cast<const Http::Unerreichbar *>(&f))
        bank.lauf.hindernis(Laufhindernis::Art::ServerWeg);
    Stapel stapel(bank.lauf.db());
    const int geschrieben =
        stapel.schreiben(u"UPDATE dokumente SET status='bereit', konfidenz=0, vorschlag=?, fehler=?, zeit=?\n"
                         "WHERE id=? AND status='neu' AND ausgenommen=0"_s,
                         {zeile.text(u"dateiname"), Fehlertext::einordnen(warum), dauer, zeile.ganz(u"id")});
    stapel.abschliessen();
    if (geschrieben > 0)
        bank.lauf.gescheitert(warum);
}

void einesEinordnen(const Werkbank &bank, const Zeile &zeile)
{
    QElapsedTimer uhr;
    uhr.start();
    const auto dauer = [&uhr] { return QString::number(double(uhr.elapsed()) / 1000, 'f', 1); };
    Vorschlag vorschlag;
    try {
        vorschlag = vorschlagen(bank, zeile);
    } catch (const Modellmangel &) {
        throw; // ends the stage
    } catch (const Fehler &f) {
        scheitern(bank, zeile, f, dauer());
        return;
    }
    speichern(bank, zeile, vorschlag, dauer());
}

void alleEinordnen(const Werkbank &bank)
{
    Lauf &lauf = bank.lauf;
    const QList<Zeile> offene = lauf.db().abfragen(
        u"SELECT id FROM dokumente WHERE status='neu' AND vorschlag IS NULL AND ausgenommen=0 ORDER BY id"_s);
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        const QList<Zeile> zeilen =
            lauf.db().abfragen(u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id\n"
                               "WHERE d.id=? AND d.status='neu' AND d.vorschlag IS NULL AND d.ausgenommen=0"_s,
                               {offene.at(i).ganz(u"id")});
        if (!zeilen.isEmpty())
            einesEinordnen(bank, zeilen.first());
        lauf.fortschritt(gefuellt(Sprache::text(u"%@ von %@ eingeordnet"_s),
                                  {QString::number(i + 1), QString::number(offene.size())}),
                         i + 1, offene.size());
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
    const auto rubrik = richtung.berichtigt(e.rubrik, text, profil);
    if (!rubrik)
        return;
    e.rubrik = *rubrik;
    e.konfidenz = std::max(e.konfidenz, mindestensNachRegel);
}

Einordner::Gelerntes Einordner::gelerntesAnwenden(Datenbank &db, Einordnungsergebnis &e)
{
    const Lernspeicher speicher(db);
    Gelerntes gelernt;
    if (const auto gleich = speicher.gleichwertig(e.gegenueber)) {
        gelernt.von = Lernregeln::schluessel(e.gegenueber);
        e.gegenueber = *gleich;
    }
    const auto eintrag = speicher.vorschlag(e.gegenueber);
    if (!eintrag)
        return gelernt;
    if (Lernregeln::darfErsetzen(eintrag->anzeige, e.gegenueber))
        e.gegenueber = eintrag->anzeige;
    e.zweig = eintrag->zweig;
    e.ablage = eintrag->ablage;
    e.rubrik = eintrag->rubrik;
    return {.von = eintrag->schluessel, .ort = true};
}

void Einordner::fragen(Lauf &lauf, const QString &modell, Laufhindernis::Art wennFehlt,
                       const std::function<void()> &alle)
{
    try {
        alle();
    } catch (const Abbruch &) {
        return; // the program ends; the document in hand stays open
    } catch (const ModellFehlt &) {
        // No document can be asked about: all that are left wait for the next run.
        lauf.hindernis(wennFehlt, modell);
    } catch (const ModellAnderswo &) {
        lauf.hindernis(Laufhindernis::Art::ModellAnderswo, modell);
    }
}

void Einordner::einordnen(Lauf &lauf)
{
    lauf.stufe(QUILLMAR_TEXT(u"Dokumente einordnen"_s));
    fragen(lauf, lauf.profil().modell, Laufhindernis::Art::ErstesModellFehlt, [&] { alleEinordnen(Werkbank(lauf)); });
}
