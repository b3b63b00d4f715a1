#include "bewegungsgang.h"

#include "aufzeichnung.h"
#include "datenbank.h"
#include "papierkorb.h"
#include "pfade.h"
#include "plattenfehler.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <QMap>
#include <QUuid>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr auto geduld = 60s;

/** The two ends of an interrupted movement: where the file was and where it was to go. */
struct Enden {
    QString von;
    QString nach; ///< empty: the trash
};

Enden endenVon(const Absicht &a)
{
    if (a.art == Absicht::Art::Bewegung)
        return {.von = a.zeile.von, .nach = a.zeile.nach};
    return {.von = a.zeile.nach, .nach = a.zeile.kopiert ? QString() : a.zeile.von};
}

Absichtsdatei dateiNehmen(const Datenbank &db)
{
    auto datei = Absichtsdatei::oeffnen(absichtsdatei(db), geduld);
    if (!datei)
        throw Fehler(
            Sprache::text(u"Ein anderes Programm bewegt gerade Dateien. Bitte gleich noch einmal versuchen."_s));
    return std::move(*datei);
}

void nichtsAnkuendigen(const Dateibewegung::Schritt &) {}

bool istUnter(const QString &pfad, const QString &ordner)
{
    return !ordner.isEmpty() && pfad.startsWith(QDir::cleanPath(ordner) + u'/');
}

enum class Lage { Geschehen, NichtGeschehen, Unklar };

/** For file systems that need an empty placeholder to take a name without overwriting. */
void platzhalterEntfernen(const Absicht &a, const QString &pfad)
{
    if (a.groesse > 0 && Dateibewegung::istLeer(pfad))
        Dateibewegung::quelleEntfernen(pfad);
}

/** Looks at both ends and finishes the file's part of the movement. */
Lage lageKlaeren(const Absicht &a)
{
    const Enden enden = endenVon(a);
    const bool amAnfang = Dateibewegung::istDieselbe(enden.von, a.groesse, a.dateizeit);
    const bool amZiel = !enden.nach.isEmpty() && Dateibewegung::istDieselbe(enden.nach, a.groesse, a.dateizeit);
    // A temporary file may be the last copy: it goes only when the document is seen elsewhere.
    if (!a.temporaer.isEmpty() && (amAnfang || (amZiel && enden.nach != a.temporaer)))
        Dateibewegung::temporaeresEntfernen(a.temporaer);
    if (enden.nach == a.temporaer && !enden.nach.isEmpty())
        return amAnfang ? Lage::NichtGeschehen : Lage::Unklar;
    if (enden.nach.isEmpty()) {
        if (amAnfang)
            return Lage::NichtGeschehen;
        // Gone to the trash, unless its whole drive is.
        return istOrdner(ordnerVon(enden.von)) ? Lage::Geschehen : Lage::Unklar;
    }
    if (enden.von == enden.nach)
        return amAnfang ? Lage::Geschehen : Lage::NichtGeschehen;
    const bool kopie = a.art == Absicht::Art::Bewegung && a.zeile.kopiert;
    if (amZiel && amAnfang) {
        if (!Dateibewegung::istGleich(enden.von, enden.nach))
            return Lage::NichtGeschehen;
        if (!kopie)
            Dateibewegung::quelleEntfernen(enden.von);
        return Lage::Geschehen;
    }
    if (amZiel)
        return Lage::Geschehen;
    if (amAnfang) {
        platzhalterEntfernen(a, enden.nach);
        return Lage::NichtGeschehen;
    }
    const bool istRest = !a.temporaer.isEmpty() && istVorhanden(a.temporaer);
    const bool beideDa = !istRest && istOrdner(ordnerVon(enden.von)) && istOrdner(ordnerVon(enden.nach));
    return beideDa ? Lage::NichtGeschehen : Lage::Unklar;
}
} // namespace

Bewegungsgang::Bewegungsgang(std::shared_ptr<Datenbank> db, const Profil &profil, Absichtsdatei datei)
    : m_db(std::move(db)), m_profil(profil), m_datei(std::move(datei))
{
    offenesKlaeren();
}

Bewegungsgang::Bewegungsgang(std::shared_ptr<Datenbank> db, const Profil &profil)
    : Bewegungsgang(db, profil, dateiNehmen(*db))
{
}

void Bewegungsgang::klaeren(const std::shared_ptr<Datenbank> &db, const Profil &profil)
{
    if (db->nurLesen() || !istVorhanden(absichtsdatei(*db)))
        return;
    if (auto datei = Absichtsdatei::oeffnen(absichtsdatei(*db), 0s))
        const Bewegungsgang gang(db, profil, std::move(*datei));
}

void Bewegungsgang::offenesKlaeren()
{
    // A movement that had to try several names has a line for each: the last one counts, in the order of beginning.
    QStringList reihenfolge;
    QMap<QString, Absicht> absichten;
    for (const QByteArray &zeile : m_datei.zeilen()) {
        const auto absicht = Absicht::aus(zeile);
        if (!absicht)
            continue;
        if (!absichten.contains(absicht->vorgang))
            reihenfolge << absicht->vorgang;
        absichten.insert(absicht->vorgang, *absicht);
    }
    for (const QString &vorgang : std::as_const(reihenfolge)) {
        const Absicht absicht = absichten.value(vorgang);
        try {
            if (!geklaert(absicht))
                m_offene << absicht.json();
        } catch (const Fehler &) {
            m_offene << absicht.json(); // tried again next time; it must not stop everything else
        }
    }
    abschliessen(); // a torn line goes as well, or it would swallow the next one
}

bool Bewegungsgang::geklaert(const Absicht &absicht)
{
    const bool verzeichnet = absicht.art == Absicht::Art::Bewegung || absicht.protokollId != 0;
    if (verzeichnet && Aufzeichnung::istErfolgt(*m_db, absicht)) {
        nachholen(absicht);
        return true;
    }
    const Lage lage = lageKlaeren(absicht);
    if (lage == Lage::Geschehen)
        nachholen(absicht);
    return lage != Lage::Unklar;
}

/** Writes the records that are still missing. */
void Bewegungsgang::nachholen(const Absicht &absicht)
{
    const bool erfolgt = Aufzeichnung::istErfolgt(*m_db, absicht);
    if (absicht.art == Absicht::Art::Ruecknahme) {
        if (!erfolgt)
            Aufzeichnung::ruecknahmen(*m_db, {absicht});
        return;
    }
    if (!erfolgt)
        Aufzeichnung::bewegung(*m_db, absicht);
    if (!absicht.buch.isEmpty())
        Protokollbuch::nachtragen(absicht.buch, m_profil, absicht.zeile);
}

/** The record could not be written: the file goes back where it was. If even that fails, the intent stays. */
void Bewegungsgang::ruecksetzen(const Absicht &absicht)
{
    const Protokollzeile &z = absicht.zeile;
    if (z.von == z.nach)
        return;
    if (z.kopiert && Dateibewegung::istGleich(z.von, z.nach))
        Dateibewegung::quelleEntfernen(z.nach);
    else if (!z.kopiert)
        Dateibewegung::ausfuehren(
            {.von = z.nach, .ordner = ordnerVon(z.von), .name = nameVon(z.von), .nameArt = Dateibewegung::Name::Genau},
            nichtsAnkuendigen);
}

Bewegungsgang::Ergebnis Bewegungsgang::bewegen(Absicht absicht, const Dateibewegung::Auftrag &auftrag,
                                               Protokollbuch *buch)
{
    absicht.vorgang = QUuid::createUuid().toString(QUuid::WithoutBraces);
    absicht.protokollId = Aufzeichnung::neuesteZeile(*m_db);
    absicht.buch = buch ? buch->datei() : QString();
    const auto ankuendigen = [&](const Dateibewegung::Schritt &schritt) {
        absicht.uebernehmen(schritt);
        // What lies right already is not copied.
        absicht.zeile.kopiert = auftrag.art == Dateibewegung::Art::Kopieren && absicht.zeile.nach != absicht.zeile.von;
        m_datei.schreiben({absicht.json()});
    };
    try {
        absicht.zeile.nach = Dateibewegung::ausfuehren(auftrag, ankuendigen);
    } catch (const Fehler &) {
        // If the file is not where it was, the intent stays, and the next opening looks where it is.
        if (istVorhanden(absicht.zeile.von))
            abschliessen();
        throw;
    }
    absicht.zeile.kopiert = absicht.zeile.kopiert && absicht.zeile.nach != absicht.zeile.von;
    Ergebnis ergebnis{.nach = absicht.zeile.nach};
    try {
        ergebnis.angepasst = Aufzeichnung::bewegung(*m_db, absicht);
    } catch (const Fehler &) {
        ruecksetzen(absicht);
        abschliessen();
        throw;
    }
    ergebnis.protokolliert = !buch || buch->anhaengen(absicht.zeile);
    abschliessen();
    return ergebnis;
}

QStringList Bewegungsgang::zuruecknehmen(QList<Absicht> absichten, const QString &herkunft)
{
    QList<QByteArray> zeilen;
    for (Absicht &absicht : absichten) {
        absicht.art = Absicht::Art::Ruecknahme;
        absicht.vorgang = QUuid::createUuid().toString(QUuid::WithoutBraces);
        if (const auto angaben = Dateibewegung::angabenVon(absicht.zeile.nach))
            absicht.uebernehmen(*angaben);
        zeilen << absicht.json();
    }
    m_datei.schreiben(zeilen);
    QStringList fehler;
    QList<Absicht> gelungene;
    QSet<QByteArray> ordner;
    for (Absicht &absicht : absichten) {
        // Announced already, but for the temporary file that a copy across disks needs.
        const auto ankuendigen = [&](const Dateibewegung::Schritt &schritt) {
            if (schritt.temporaer == absicht.temporaer)
                return;
            absicht.uebernehmen(schritt);
            m_datei.schreiben({absicht.json()});
        };
        try {
            zuruecklegen(absicht.zeile, herkunft, ankuendigen, &ordner);
            gelungene << absicht;
            fehler << QString();
        } catch (const Fehler &f) {
            fehler << inSprache(f);
        }
    }
    Dateibewegung::ordnerSichern(ordner);
    Aufzeichnung::ruecknahmen(*m_db, gelungene);
    abschliessen();
    return fehler;
}

void zuruecklegen(const Protokollzeile &zeile, const QString &herkunft, const Dateibewegung::Ankuendigung &ankuendigung,
                  QSet<QByteArray> *spaeterSichern)
{
    if (zeile.kopiert)
        return Papierkorb::hineinlegen(zeile.nach, ankuendigung);
    if (zeile.von == zeile.nach)
        return;
    const QString ordner = ordnerVon(zeile.von);
    // A folder that this group has used already needs no second look.
    if (!spaeterSichern || !spaeterSichern->contains(plattenPfad(ordner) + '/')) {
        if (istUnter(zeile.von, herkunft) && !istOrdner(herkunft))
            throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {herkunft}));
        Dateibewegung::ordnerAnlegen(ordner, u"/"_s);
    }
    Dateibewegung::ausfuehren({.von = zeile.nach,
                               .ordner = ordner,
                               .name = nameVon(zeile.von),
                               .nameArt = Dateibewegung::Name::Genau,
                               .spaeterSichern = spaeterSichern},
                              ankuendigung);
}

QString inSprache(const Fehler &fehler)
{
    const auto *platte = dynamic_cast<const Plattenfehler *>(&fehler);
    if (!platte)
        return fehler.text();
    const QString satz = Sprache::text(/* QUILLMAR_TEXT */ platte->satz());
    return platte->ursache().isEmpty() ? satz : satz + u": "_s + Sprache::text(/* QUILLMAR_TEXT */ platte->ursache());
}
