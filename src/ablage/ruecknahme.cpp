#include "ruecknahme.h"

#include "aufzeichnung.h"
#include "bewegungspruefung.h"
#include "fehler.h"
#include "klaerung.h"
#include "papierkorb.h"
#include "pfade.h"
#include "sprache.h"
#include "text.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
/** The folder that a file goes back to; of the source folder only what lies in it is made. */
void ordnerBereiten(const QString &ordner, const Protokollzeile &zeile, const QString &herkunft)
{
    if (liegtUnter(zeile.von, herkunft) && !istOrdner(herkunft))
        throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {herkunft}));
    Dateibewegung::ordnerAnlegen(ordner, u"/"_s);
}

/** The step tells of no place that the intent has not told of. */
bool istAngekuendigt(const Absicht &absicht, const Dateibewegung::Schritt &schritt)
{
    Absicht danach = absicht;
    danach.uebernehmen(schritt);
    return danach.temporaer == absicht.temporaer && danach.imKorb == absicht.imKorb;
}

/** Once more from where it was to where the line says. */
void wiederholen(const Protokollzeile &z, const Dateibewegung::Ankuendigung &ankuendigung)
{
    QSet<QByteArray> ungesichert; // its folders may be the ones that cannot be flushed
    Dateibewegung::ausfuehren({.von = z.von,
                               .ordner = ordnerVon(z.nach),
                               .name = nameVon(z.nach),
                               .nameArt = Dateibewegung::Name::Genau,
                               .spaeterSichern = &ungesichert},
                              ankuendigung);
}
} // namespace

Ruecknahme::Ruecknahme(Datenbank &db, Absichtsdatei &datei, const QList<Absicht> &absichten, QString herkunft)
    : m_db(db), m_datei(datei), m_herkunft(std::move(herkunft))
{
    const QString kennung = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_posten.reserve(absichten.size());
    for (const Absicht &absicht : absichten) {
        m_posten.append({.absicht = absicht, .imKorb = {}, .fehler = {}});
        Absicht &eigene = m_posten.last().absicht;
        eigene.art = Absicht::Art::Ruecknahme;
        eigene.vorgang = kennung + u' ' + QString::number(m_posten.size());
        if (eigene.dateizeit != 0)
            continue; // the caller has looked already
        if (const auto angaben = Dateibewegung::angabenVon(eigene.zeile.nach))
            eigene.uebernehmen(*angaben);
    }
}

QStringList Ruecknahme::ausfuehren(const std::function<void()> &jeweils)
{
    vormerken();
    for (Posten &posten : m_posten) {
        if (posten.fehler.isEmpty())
            zuruecknehmen(posten);
        if (jeweils)
            jeweils();
    }
    sichern();
    aufzeichnen();
    QStringList fehler;
    for (const Posten &posten : std::as_const(m_posten))
        fehler << posten.fehler;
    return fehler;
}

void Ruecknahme::vormerken()
{
    QList<QByteArray> zeilen;
    for (const Posten &posten : std::as_const(m_posten))
        zeilen << posten.absicht.json();
    try {
        m_datei.schreiben(zeilen);
    } catch (const Fehler &f) {
        for (Posten &posten : m_posten)
            posten.fehler = f.text();
    }
}

void Ruecknahme::zuruecknehmen(Posten &posten)
{
    Absicht &absicht = posten.absicht;
    // Announced already, but for the temporary file that a copy across disks needs, and the place in the trash.
    const auto ankuendigen = [&](const Dateibewegung::Schritt &schritt) {
        if (istAngekuendigt(absicht, schritt))
            return;
        absicht.uebernehmen(schritt);
        m_datei.schreiben({absicht.json()});
    };
    try {
        posten.imKorb = bewegungZuruecknehmen(absicht.zeile, m_herkunft, ankuendigen, &m_ordner);
        posten.zurueck = true;
    } catch (const Fehler &f) {
        posten.fehler = f.text();
        if (!Klaerung::istUnberuehrt(absicht))
            m_offene << absicht.json();
    }
}

void Ruecknahme::sichern()
{
    QHash<QByteArray, QString> gescheitert;
    for (const QByteArray &ordner : std::as_const(m_ordner)) {
        try {
            Dateibewegung::ordnerSichern({ordner});
        } catch (const Fehler &f) {
            gescheitert.insert(ordner, f.text());
        }
    }
    if (gescheitert.isEmpty())
        return;
    for (Posten &posten : m_posten) {
        const Protokollzeile &z = posten.absicht.zeile;
        for (const QString &pfad : {z.von, z.nach}) {
            const QString fehler = gescheitert.value(plattenPfad(ordnerVon(pfad)) + '/');
            if (posten.zurueck && !z.kopiert && !fehler.isEmpty())
                zuruecksetzen(posten, fehler);
        }
    }
}

void Ruecknahme::aufzeichnen()
{
    // A log of another profile or computer has no rows here.
    const auto istVerzeichnet = [](const Posten &p) { return p.zurueck && p.absicht.protokollId != 0; };
    QList<Absicht> verzeichnete;
    for (const Posten &posten : std::as_const(m_posten)) {
        if (istVerzeichnet(posten))
            verzeichnete << posten.absicht;
    }
    if (verzeichnete.isEmpty())
        return;
    try {
        Aufzeichnung::ruecknahmen(m_db, verzeichnete);
    } catch (const Fehler &f) {
        for (Posten &posten : m_posten) {
            if (istVerzeichnet(posten))
                zuruecksetzen(posten, f.text());
        }
    }
}

/** Back to where the catalogue says it is. The intent stays in any case: the next settling sees what has lasted. */
void Ruecknahme::zuruecksetzen(Posten &posten, const QString &fehler)
{
    posten.zurueck = false;
    posten.fehler = fehler;
    const Protokollzeile z = posten.absicht.zeile;
    const auto ankuendigung = nurZwischendatei(m_datei, posten.absicht);
    try {
        if (z.kopiert && !posten.imKorb.isEmpty())
            Papierkorb::zurueckholen(posten.imKorb, z.nach, ankuendigung);
        else if (!Bewegungspruefung::istOhneWeg(z))
            wiederholen(z, ankuendigung);
    } catch (const Fehler &) {
        // It lies at one of both ends, and the intent names them.
    }
    m_offene << posten.absicht.json();
}

QString bewegungZuruecknehmen(const Protokollzeile &zeile, const QString &herkunft,
                              const Dateibewegung::Ankuendigung &ankuendigung, QSet<QByteArray> *spaeterSichern)
{
    // One entry at both ends is the only file that there is.
    if (Bewegungspruefung::istOhneWeg(zeile))
        return {};
    if (zeile.kopiert)
        return Papierkorb::hineinlegen(zeile.nach, ankuendigung);
    const QString ordner = ordnerVon(zeile.von);
    // A folder that this group has used already needs no second look.
    if (!spaeterSichern || !spaeterSichern->contains(plattenPfad(ordner) + '/'))
        ordnerBereiten(ordner, zeile, herkunft);
    Dateibewegung::ausfuehren({.von = zeile.nach,
                               .ordner = ordner,
                               .name = nameVon(zeile.von),
                               .nameArt = Dateibewegung::Name::Genau,
                               .plattenname = zeile.vonName,
                               .spaeterSichern = spaeterSichern},
                              ankuendigung);
    return {};
}

Dateibewegung::Ankuendigung nurZwischendatei(Absichtsdatei &datei, Absicht &absicht)
{
    return [&datei, &absicht](const Dateibewegung::Schritt &schritt) {
        if (schritt.temporaer.isEmpty())
            return;
        absicht.temporaer = schritt.temporaer;
        try {
            datei.schreiben({absicht.json()});
        } catch (const Fehler &) {
            // Only a crash at this very moment would leave a hidden file; the document goes back all the same.
        }
    };
}
} // namespace quillmar::ablage
