#include "ablagewerk.h"

#include "ausnahmefilter.h"
#include "bewegungsgang.h"
#include "datenbank.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "zeit.h"
#include "ziel.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
std::optional<Dokument> erstes(const QList<Zeile> &zeilen)
{
    return zeilen.isEmpty() ? std::nullopt : std::optional(Dokument::aus(zeilen.first()));
}

Absicht ruecknahmeAus(const Zeile &zeile)
{
    Absicht a;
    a.protokollId = zeile.ganz(u"id");
    a.zeile = {.zeit = zeile.text(u"zeit"),
               .aktion = zeile.text(u"aktion"),
               .dokument = zeile.ganz(u"dokument_id"),
               .von = zeile.text(u"von_pfad"),
               .nach = zeile.text(u"nach_pfad"),
               .altStatus = zeile.text(u"alt_status"),
               .kopiert = zeile.ganz(u"kopiert") == 1};
    a.status = a.zeile.altStatus.isEmpty() ? u"bereit"_s : a.zeile.altStatus;
    return a;
}

struct Aenderung {
    qint64 id = 0;
    bool ausgenommen = false;
};

QList<Aenderung> aenderungen(Datenbank &db, const Ausnahmefilter &filter)
{
    QList<Aenderung> liste;
    db.durchlaufen(u"SELECT id, alt_ordner, dateiname, ausgenommen FROM dokumente"_s, {}, [&](const Zeile &zeile) {
        const bool neu = filter.erste(zeile.text(u"alt_ordner"), zeile.text(u"dateiname")).has_value();
        if (neu != (zeile.ganz(u"ausgenommen") == 1))
            liste << Aenderung{.id = zeile.ganz(u"id"), .ausgenommen = neu};
    });
    return liste;
}
} // namespace

QString Ablagewerk::eindeutig(const QString &pfad) { return Dateibewegung::eindeutig(pfad); }

void Ablagewerk::uebernehmen(const Dokument &dokument)
{
    const Dokument gespeichert = gespeichertes(dokument.id);
    zielPruefen();
    Dokument endgueltig = dokument;
    endgueltig.dateiname = gespeichert.dateiname;
    bewegen(gespeichert, zielordner(dokument.zweig, dokument.ablage, dokument.rubrik, dokument.jahr),
            dateiname(endgueltig), u"erledigt"_s, u"einsortiert"_s, &dokument);
}

void Ablagewerk::aussortieren(qint64 id)
{
    const Dokument gespeichert = gespeichertes(id);
    if (m_profil.kopieren) {
        if (m_db->ausfuehren(u"UPDATE dokumente SET status='aussortiert' WHERE id=?"_s, {id}) != 0)
            throw Fehler(Sprache::text(
                u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s));
        return;
    }
    zielPruefen();
    const QString ordner = QDir::cleanPath(Ziel::dublettenordner(m_profil) + u'/' + gespeichert.altOrdner);
    bewegen(gespeichert, ordner, gespeichert.dateiname, u"aussortiert"_s, u"dublette"_s, nullptr);
}

void Ablagewerk::verschieben(qint64 id, const QString &ordner, const QString &name, const QString &status,
                             const QString &aktion)
{
    const Dokument gespeichert = gespeichertes(id);
    zielPruefen();
    bewegen(gespeichert, ordner, name, status, aktion, nullptr);
}

Dokument Ablagewerk::gespeichertes(qint64 id) const
{
    const auto gefunden = dokument(id);
    if (!gefunden)
        throw Fehler(Sprache::text(u"Dokument unbekannt"_s));
    return *gefunden;
}

/** Folders are made below the target root; the root itself never: its drive may not be there. */
void Ablagewerk::zielPruefen() const
{
    if (m_profil.zielWurzel.isEmpty())
        throw Fehler(Sprache::text(u"Es ist noch kein Zielordner gewählt"_s));
    if (!istOrdner(QDir::cleanPath(m_profil.zielWurzel)))
        throw Fehler(gefuellt(Sprache::text(u"Der Zielordner ist nicht erreichbar: %@"_s), {m_profil.zielWurzel}));
}

/** A vanished file is marked, unless its whole drive is gone. */
void Ablagewerk::quellePruefen(const Dokument &dokument) const
{
    if (istVorhanden(dokument.pfad))
        return;
    const QString herkunft = QDir::cleanPath(m_profil.quelle);
    if (!m_profil.quelle.isEmpty() && dokument.pfad.startsWith(herkunft + u'/') && !istOrdner(herkunft))
        throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {m_profil.quelle}));
    m_db->ausfuehren(u"UPDATE dokumente SET status='fehlt' WHERE id=?"_s, {dokument.id});
    throw Fehler(Sprache::text(u"Die Datei liegt nicht mehr am erwarteten Ort"_s));
}

void Ablagewerk::bewegen(const Dokument &gespeichert, const QString &ordner, const QString &name, const QString &status,
                         const QString &aktion, const Dokument *werte)
{
    quellePruefen(gespeichert);
    Absicht absicht;
    absicht.zeile = {.zeit = jetztIso(),
                     .aktion = aktion,
                     .dokument = gespeichert.id,
                     .von = gespeichert.pfad,
                     .nach = {},
                     .altStatus = gespeichert.status,
                     .kopiert = m_profil.kopieren};
    absicht.status = status;
    absicht.vorher = gespeichert.gegenueber;
    absicht.profil = m_profil;
    if (werte)
        absicht.werte = *werte;
    try {
        Bewegungsgang gang(m_db);
        Dateibewegung::ordnerAnlegen(ordner, m_profil.zielWurzel);
        const auto art = m_profil.kopieren ? Dateibewegung::Art::Kopieren : Dateibewegung::Art::Verschieben;
        const auto ergebnis =
            gang.bewegen(absicht, {.von = gespeichert.pfad, .ordner = ordner, .name = name, .art = art}, m_buch.get());
        if (ergebnis.angepasst > 0)
            mitgezogen->anzahl = ergebnis.angepasst;
        mitgezogen->ohneProtokoll = !ergebnis.protokolliert;
        mitgezogen->nach = ergebnis.nach;
    } catch (const Fehler &f) {
        throw Fehler(inSprache(f));
    }
}

qint64 Ablagewerk::rueckgaengig()
{
    try {
        Bewegungsgang gang(m_db);
        const QList<Zeile> zeilen =
            m_db->abfragen(u"SELECT * FROM protokoll WHERE rueckgaengig=0 ORDER BY id DESC LIMIT 1"_s);
        if (zeilen.isEmpty())
            throw Fehler(Sprache::text(u"Es gibt nichts rückgängig zu machen"_s));
        const Absicht absicht = ruecknahmeAus(zeilen.first());
        const auto betroffen = dokument(absicht.zeile.dokument);
        const bool weitergezogen =
            betroffen && betroffen->pfad != (absicht.zeile.kopiert ? absicht.zeile.von : absicht.zeile.nach);
        if (weitergezogen || !istVorhanden(absicht.zeile.nach))
            throw Fehler(Sprache::text(u"Die Datei liegt nicht mehr am Zielort"_s));
        if (!absicht.zeile.kopiert && absicht.zeile.von != absicht.zeile.nach && istVorhanden(absicht.zeile.von))
            throw Fehler(Sprache::text(u"Am alten Platz liegt schon eine andere Datei"_s));
        const QString fehler = gang.zuruecknehmen({absicht}, m_profil.quelle).first();
        if (!fehler.isEmpty())
            throw Fehler(fehler);
        return absicht.zeile.dokument;
    } catch (const Fehler &f) {
        throw Fehler(inSprache(f));
    }
}

std::optional<Dokument> Ablagewerk::dokument(qint64 id) const
{
    return erstes(m_db->abfragen(u"SELECT * FROM dokumente WHERE id=?"_s, {id}));
}

QString Ablagewerk::dateiname(const Dokument &dokument) const { return Ziel::dateiname(dokument, m_profil); }

QString Ablagewerk::zielordner(const QString &zweig, const QString &ablage, const QString &rubrik,
                               const QString &jahr) const
{
    return Ziel::ordner({.zweig = zweig, .ablage = ablage, .rubrik = rubrik}, jahr, m_profil);
}

std::optional<Dokument> Ablagewerk::naechstes(std::optional<qint64> nach, QStringView richtung) const
{
    std::optional<Dokument> gefunden;
    if (nach && richtung == u"weiter")
        gefunden = erstes(m_db->abfragen(
            u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 AND id>? ORDER BY id LIMIT 1"_s,
            {*nach}));
    else if (nach && richtung == u"zurueck")
        gefunden = erstes(m_db->abfragen(
            u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 AND id<? ORDER BY id DESC LIMIT 1"_s,
            {*nach}));
    if (gefunden)
        return gefunden;
    return erstes(
        m_db->abfragen(u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 ORDER BY id LIMIT 1"_s));
}

Zaehlwerk Ablagewerk::zaehlen() const { return Zaehlwerk::zaehlen(*m_db); }

Ablagewerk::Ausnahmenwechsel Ablagewerk::ausnahmenAnwenden(Datenbank &db, const Profil &profil)
{
    const QList<Aenderung> liste = aenderungen(db, Ausnahmefilter(profil.ausnahmen));
    Ausnahmenwechsel wechsel;
    Stapel stapel(db);
    for (const Aenderung &a : liste) {
        stapel.schreiben(u"UPDATE dokumente SET ausgenommen=? WHERE id=?"_s, {a.ausgenommen, a.id});
        ++(a.ausgenommen ? wechsel.ruhen : wechsel.zurueckgeholt);
    }
    stapel.abschliessen();
    return wechsel;
}
