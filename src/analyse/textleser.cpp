#include "textleser.h"

#include "abbruch.h"
#include "bilderordner.h"
#include "dateibewegung.h"
#include "dateien.h"
#include "dubletten.h"
#include "fehler.h"
#include "fehlertext.h"
#include "herkunft.h"
#include "lauf.h"
#include "originale.h"
#include "paare.h"
#include "pfade.h"
#include "sha256.h"
#include "skizze.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "texte.h"
#include "werkzeuge.h"
#include "wiedererkennung.h"

#include <QDir>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
using std::chrono::steady_clock;

namespace
{
constexpr auto schreibabstand = 1s;
constexpr double textgleich = 0.99; // similarity of documents with the same words

/** What the reading of one document came to. */
struct Gelesen {
    qint64 id = 0;
    Texte::Gelesenes gelesenes;
    QString fehler;        ///< empty when it was read
    bool abwesend = false; ///< its file was not there, or another one
};

/** The inventory may be hours ago: another file may lie there by now, for a while, and its text is another document's.
 */
bool istUnveraendert(Datenbank &db, qint64 id, const QString &pfad)
{
    const auto stand = Dateien(db).stand(id);
    const auto jetzt = Dateibewegung::angabenVon(pfad);
    if (!stand || !jetzt)
        return false;
    return Wiedererkennung::vergleich(*stand, jetzt->groesse, jetzt->zeit) == Wiedererkennung::Vergleich::Dieselbe ||
           sha256Datei(aufDerPlatte(pfad)) == stand->sha256;
}

Texte::Gelesenes auswerten(const Werkzeuge::Text &text, const Profil &profil)
{
    const Skizze skizze(text.text);
    return {.text = ersteZeichen(text.text, Textleser::textgrenze(profil)),
            .textebene = text.textebene,
            .textHash = skizze.textHash(),
            .skizze = Skizze::json(skizze.werte()),
            .ebeneVerworfen = text.ebeneVerworfen,
            .lagen = text.lagen};
}

Gelesen lesen(const Lauf &lauf, qint64 id, const QString &pfad, const Lesegrenzen &grenzen)
{
    const Profil &profil = lauf.profil();
    Gelesen gelesen;
    gelesen.id = id;
    const bool erwartet = istUnveraendert(lauf.db(), id, pfad);
    try {
        const Werkzeuge::Text text = Werkzeuge::text(pfad, profil.seiten, profil.ocrSprache, lauf.ende(), grenzen);
        gelesen.gelesenes = auswerten(text, profil);
    } catch (const Platzmangel &) {
        throw; // nothing to be noted of the document
    } catch (const Fehler &f) {
        gelesen.fehler = Fehlertext::lesen(f.text());
    }
    gelesen.abwesend = !erwartet || !istUnveraendert(lauf.db(), id, pfad);
    if (gelesen.abwesend && gelesen.fehler.isEmpty())
        gelesen.fehler = Fehlertext::lesen(Sprache::text(u"die Datei ist nicht mehr dieselbe"_s));
    return gelesen;
}

void schreiben(Datenbank &db, QList<Gelesen> &fertige)
{
    Stapel stapel(db);
    for (const Gelesen &g : std::as_const(fertige)) {
        stapel.naechstes();
        if (g.fehler.isEmpty())
            Texte(db).speichern(g.id, g.gelesenes);
        else
            Texte(db).scheitern(g.id, g.fehler);
        if (g.abwesend) // tried again by itself once an inventory finds the file
            Dateien(db).abwesendVermerken(g.id);
    }
    stapel.abschliessen();
    fertige.clear();
}

/** A drive that was pulled out is no fault of the documents: nothing is marked then. */
void herkunftPruefen(const Lauf &lauf)
{
    const Profil &profil = lauf.profil();
    if (!istOrdner(QDir::cleanPath(profil.quelle)) || Herkunft::istLeererEinhaengepunkt(lauf.db(), profil))
        throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {profil.quelle}));
}

/** Small documents come faster than a disk flushes: some share one transaction. */
void abUndZuSchreiben(Datenbank &db, QList<Gelesen> &fertige, steady_clock::time_point &geschrieben)
{
    if (steady_clock::now() - geschrieben <= schreibabstand)
        return;
    schreiben(db, fertige);
    geschrieben = steady_clock::now();
}

void lesenMelden(Lauf &lauf, qsizetype stand, qsizetype alle)
{
    lauf.fortschritt(Textleser::lesesatz(stand, alle), stand, alle);
}

void alleLesen(Lauf &lauf, const Lesegrenzen &grenzen)
{
    const Texte texte(lauf.db());
    const QList<qint64> offene = lauf.inPortion(texte.zuLesende());
    QList<Gelesen> fertige;
    auto geschrieben = steady_clock::now();
    for (qsizetype i = 0; i < offene.size() && !lauf.sollHalten(); ++i) {
        const auto pfad = texte.pfadZumLesen(offene.at(i));
        if (!pfad)
            continue; // handled or excluded since the list was made
        lauf.dokument(nameVon(*pfad));
        try {
            fertige << lesen(lauf, offene.at(i), *pfad, grenzen);
        } catch (const Abbruch &) {
            break; // the program ends; the document in hand stays open
        } catch (const Platzmangel &) {
            schreiben(lauf.db(), fertige);
            throw;
        }
        if (!fertige.last().fehler.isEmpty())
            herkunftPruefen(lauf);
        abUndZuSchreiben(lauf.db(), fertige, geschrieben);
        lesenMelden(lauf, i + 1, offene.size());
    }
    schreiben(lauf.db(), fertige);
}

/** Parts a group of one hash by the whole texts; who has no stored text goes with the first. */
QList<QList<Dubletten::Mitglied>> nachWortlaut(const Lauf &lauf, const QList<Dubletten::Mitglied> &gruppe)
{
    QList<QList<Dubletten::Mitglied>> teile;
    for (const Dubletten::Mitglied &m : gruppe) {
        const auto passend = std::find_if(teile.begin(), teile.end(), [&](const auto &teil) {
            return Originale::habenGleicheWorte(lauf.db(), teil.first().id, m.id, Textleser::textgrenze(lauf.profil()));
        });
        if (passend == teile.end())
            teile << QList<Dubletten::Mitglied>{m};
        else
            *passend << m;
    }
    return teile;
}

/** What the comparison of the hashes gave. */
struct Textvergleich {
    qsizetype dubletten = 0;
    QList<QPair<qint64, qint64>> gleicherAnfang; ///< new document and the one whose text begins like its own
};

Textvergleich textgleicheMarkieren(const Lauf &lauf)
{
    Datenbank &db = lauf.db();
    Textvergleich v;
    Dubletten::Gruppen gruppen;
    const Dubletten::Gruppen nachHash = Dubletten::gruppen(db, Dateien::Gleichheit::Text);
    for (auto gruppe = nachHash.cbegin(); gruppe != nachHash.cend(); ++gruppe) {
        const auto teile = nachWortlaut(lauf, gruppe.value());
        for (const auto &teil : teile) {
            gruppen.insert(gruppe.key() + QString::number(gruppen.size()), teil);
            if (teil.first().neu && teil.first().id != teile.first().first().id)
                v.gleicherAnfang << qMakePair(teil.first().id, teile.first().first().id);
        }
    }
    v.dubletten = Dubletten::dublettenMarkieren(db, gruppen, textgleich);
    return v;
}

/** New documents with a sketch, and the known ones that may be similar to one; empty when no new one is among them. */
QList<Paare::Abdruck> abdruecke(Datenbank &db)
{
    QList<Paare::Abdruck> liste;
    const auto nehmen = [&](bool neue, const Paare::Sieb *sieb) {
        Texte(db).jedeSkizze(neue, [&](qint64 id, const QString &skizze) {
            auto werte = Skizze::ausJson(skizze); // what does not parse counts as no sketch
            if (werte && (!sieb || sieb->laesstDurch(*werte)))
                liste << Paare::Abdruck{.id = id, .werte = std::move(*werte), .neu = neue};
        });
    };
    nehmen(true, nullptr);
    if (liste.isEmpty())
        return liste; // nothing new: nothing to compare
    const Paare::Sieb sieb(liste);
    nehmen(false, &sieb); // of a large catalogue next to nothing is left: a portion has few new ones
    return liste;
}

bool verbinden(Datenbank &db, qint64 id, qint64 partner, double aehnlichkeit)
{
    return Texte(db).verbinden(id, partner, std::round(aehnlichkeit * 1000) / 1000);
}

/** A known document serves as a partner while its file is there, and does not point at the new one itself. */
bool taugtAlsPartner(Datenbank &db, qint64 id, qint64 partner)
{
    return !Originale::orte(db, partner).isEmpty() && !Texte(db).istVerbunden(partner, id);
}

/** Number of documents that were linked to another one. */
qsizetype aehnlicheVerbinden(Datenbank &db, const Textvergleich &texte)
{
    const QList<Paare::Paar> paare =
        Paare::finden(abdruecke(db), [&db](qint64 id, qint64 partner) { return taugtAlsPartner(db, id, partner); });
    Stapel stapel(db);
    qsizetype anzahl = 0;
    for (const Paare::Paar &paar : paare) {
        stapel.naechstes();
        anzahl += verbinden(db, paar.id, paar.partner, paar.aehnlichkeit) ? 1 : 0;
    }
    for (const auto &[id, partner] : texte.gleicherAnfang) {
        const double aehnlichkeit = Originale::aehnlichkeit(db, id, partner);
        stapel.naechstes();
        anzahl += verbinden(db, id, partner, aehnlichkeit) ? 1 : 0;
    }
    stapel.abschliessen();
    return anzahl;
}
} // namespace

qsizetype Textleser::textgrenze(const Profil &profil) { return 3 * qsizetype(profil.maxZeichen); }

QString Textleser::stufe() { return QUILLMAR_TEXT(u"Text lesen"_s); }

QString Textleser::vergleichsstufe() { return QUILLMAR_TEXT(u"Ähnliche Dokumente suchen"_s); }

QString Textleser::lesesatz(qsizetype fertig, qsizetype gesamt)
{
    return gefuellt(Sprache::text(u"%@ von %@ gelesen"_s), {QString::number(fertig), QString::number(gesamt)});
}

QString Textleser::fundsatz(const Textfunde &funde)
{
    return gefuellt(Sprache::text(u"%@ textgleiche Dubletten, %@ ähnliche Paare"_s),
                    {QString::number(funde.dubletten), QString::number(funde.paare)});
}

Textfunde Textleser::textLesen(Lauf &lauf, const Lesegrenzen &grenzen)
{
    lauf.stufe(stufe(), Stufenart::Lesen);
    Bilderordner::verwaisteEntfernen();
    alleLesen(lauf, grenzen);
    if (lauf.sollHalten())
        return {};
    lauf.stufe(vergleichsstufe());
    const Textvergleich texte = textgleicheMarkieren(lauf);
    const Textfunde funde{.dubletten = texte.dubletten, .paare = aehnlicheVerbinden(lauf.db(), texte)};
    lauf.fortschritt(fundsatz(funde), 1, 1);
    return funde;
}
} // namespace quillmar::analyse
