#include "bewegungsgang.h"

#include "aufzeichnung.h"
#include "bewegungen.h"
#include "herkunft.h"
#include "katalog.h"
#include "klaerung.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "ruecknahme.h"
#include "sprache.h"
#include "text.h"

#include <QUuid>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::ablage
{
namespace
{
constexpr auto geduld = 60s;

Absichtsdatei dateiNehmen(const Datenbank &db)
{
    // Found out before, not by a movement there and back.
    if (Katalog::nurLesen(db))
        throw Fehler(Katalog::schreibmangel(db));
    return absichtenNehmen(Katalog::pfad(db), geduld);
}

/** One that no longer equals its original stays: it may be the only copy of what is in it. */
bool kopieEntfernt(const Protokollzeile &z)
{
    if (!Dateibewegung::istGleich(z.von, z.nach))
        return false;
    Dateibewegung::quelleEntfernen(z.nach);
    return true;
}

/** Files would come back into the empty folder that the source folder's drive is mounted on. */
bool gehtInsLeere(Datenbank &db, const QList<Absicht> &absichten, const QString &herkunft)
{
    Profil profil;
    profil.quelle = herkunft;
    return std::any_of(absichten.begin(), absichten.end(),
                       [&](const Absicht &a) { return !a.zeile.kopiert && liegtUnter(a.zeile.von, herkunft); }) &&
           Herkunft::istFuerRueckkehrGesperrt(db, profil);
}
} // namespace

Bewegungsgang::Bewegungsgang(std::shared_ptr<Datenbank> db, Absichtsdatei datei)
    : m_db(std::move(db)), m_datei(std::move(datei))
{
    offenesKlaeren();
}

Bewegungsgang::Bewegungsgang(const std::shared_ptr<Datenbank> &db) : Bewegungsgang(db, dateiNehmen(*db)) {}

QStringList Bewegungsgang::klaeren(const std::shared_ptr<Datenbank> &db)
{
    if (Katalog::nurLesen(*db) || !istVorhanden(absichtsdatei(*db)))
        return {};
    auto datei = Absichtsdatei::oeffnen(absichtsdatei(*db), 0s);
    if (!datei)
        return {};
    const Bewegungsgang gang(db, std::move(*datei));
    QStringList namen;
    for (const QByteArray &zeile : gang.m_offene) {
        const auto absicht = Absicht::aus(zeile);
        namen << (absicht ? nameVon(absicht->anfang()) : Sprache::text(u"ein unlesbarer Vermerk"_s));
    }
    return namen;
}

void Bewegungsgang::offenesKlaeren()
{
    for (const Absicht &absicht : letzteAbsichten(m_datei.zeilen(), m_offene)) {
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
    if (verzeichnet && Aufzeichnung::istErfolgt(*m_db, absicht))
        return nachgeholt(absicht);
    switch (Klaerung::lage(absicht)) {
    case Klaerung::Lage::Geschehen:
        return nachgeholt(absicht);
    case Klaerung::Lage::NichtGeschehen:
        return true;
    case Klaerung::Lage::Unklar:
        break;
    }
    return false;
}

/** Writes the records that are still missing. False if the session log could not be written. */
bool Bewegungsgang::nachgeholt(const Absicht &absicht)
{
    const bool erfolgt = Aufzeichnung::istErfolgt(*m_db, absicht);
    if (absicht.art == Absicht::Art::Ruecknahme) {
        if (!erfolgt)
            Aufzeichnung::ruecknahmen(*m_db, {absicht});
        return true;
    }
    if (!erfolgt)
        Aufzeichnung::bewegung(*m_db, absicht);
    return !absicht.kopf || Protokollbuch::nachtragen(absicht.buch, *absicht.kopf, absicht.zeile);
}

/** The record could not be written: the file goes back where it was. False if it could not: then the intent stays. */
bool Bewegungsgang::zurueckgesetzt(Absicht absicht)
{
    const Protokollzeile z = absicht.zeile;
    try {
        if (z.von == z.nach)
            return true;
        if (z.kopiert)
            return kopieEntfernt(z);
        Dateibewegung::ausfuehren({.von = z.nach,
                                   .ordner = ordnerVon(z.von),
                                   .name = nameVon(z.von),
                                   .nameArt = Dateibewegung::Name::Genau,
                                   .plattenname = z.vonName},
                                  nurZwischendatei(m_datei, absicht));
        return true;
    } catch (const Fehler &) {
        return false;
    }
}

Bewegungsgang::Ergebnis Bewegungsgang::bewegen(Absicht absicht, const Dateibewegung::Auftrag &auftrag,
                                               Protokollbuch *buch)
{
    absicht.vorgang = QUuid::createUuid().toString(QUuid::WithoutBraces);
    absicht.protokollId = Bewegungen(*m_db).neueste();
    absicht.zeile.vonName = Dateibewegung::andererPlattenname(absicht.zeile.von);
    if (buch) {
        absicht.buch = buch->datei();
        absicht.kopf = buch->kopf();
    }
    dateiBewegen(absicht, auftrag);
    Ergebnis ergebnis = verzeichnen(absicht);
    ergebnis.protokolliert = !buch || buch->anhaengen(absicht.zeile);
    abschliessen();
    return ergebnis;
}

/** Announces and moves; @p absicht then tells where the file lies. */
void Bewegungsgang::dateiBewegen(Absicht &absicht, const Dateibewegung::Auftrag &auftrag)
{
    const auto ankuendigen = [&](const Dateibewegung::Schritt &schritt) {
        absicht.uebernehmen(schritt);
        // What lies right already is not copied.
        absicht.zeile.kopiert = auftrag.art == Dateibewegung::Art::Kopieren && absicht.zeile.nach != absicht.zeile.von;
        m_datei.schreiben({absicht.json()});
    };
    try {
        absicht.zeile.nach = Dateibewegung::ausfuehren(auftrag, ankuendigen);
    } catch (const Fehler &) {
        // If anything has moved, the intent stays, and the next opening looks where it is.
        if (Klaerung::istUnberuehrt(absicht))
            abschliessen();
        throw;
    }
    absicht.zeile.kopiert = absicht.zeile.kopiert && absicht.zeile.nach != absicht.zeile.von;
}

/** Records the movement in the catalogue, or takes it back. */
Bewegungsgang::Ergebnis Bewegungsgang::verzeichnen(const Absicht &absicht)
{
    try {
        const auto verzeichnet = Aufzeichnung::bewegung(*m_db, absicht);
        return {.nach = absicht.zeile.nach, .protokollId = verzeichnet.protokollId, .angepasst = verzeichnet.angepasst};
    } catch (const Fehler &) {
        if (zurueckgesetzt(absicht))
            abschliessen();
        throw;
    }
}

QStringList Bewegungsgang::zuruecknehmen(const QList<Absicht> &absichten, const QString &herkunft,
                                         const std::function<void()> &jeweils)
{
    if (gehtInsLeere(*m_db, absichten, herkunft))
        return QStringList(absichten.size(),
                           gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {herkunft}));
    Ruecknahme gruppe(*m_db, m_datei, absichten, herkunft);
    const QStringList fehler = gruppe.ausfuehren(jeweils);
    m_offene << gruppe.offene();
    abschliessen();
    return fehler;
}
} // namespace quillmar::ablage
