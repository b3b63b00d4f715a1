#include "ablagewerk.h"

#include "ausnahmefilter.h"
#include "bewegungsgang.h"
#include "dokumente.h"
#include "herkunft.h"
#include "katalog.h"
#include "lernspeicher.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "transaktion.h"
#include "wiedererkennung.h"
#include "zeit.h"
#include "ziel.h"
#include "zielwurzel.h"

#include <QDir>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
bool istBearbeitet(Status status) { return status == Status::Erledigt || status == Status::Aussortiert; }

[[noreturn]] void schonBearbeitet()
{
    throw Fehler(Sprache::text(u"Dieses Dokument wurde inzwischen schon bearbeitet"_s));
}

struct Aenderung {
    qint64 id = 0;
    bool ausgenommen = false;
};

QList<Aenderung> aenderungen(Datenbank &db, const Ausnahmefilter &filter)
{
    QList<Aenderung> liste;
    Dokumente(db).jederFundort([&](const Dokumente::Fundort &f) {
        const bool neu = filter.erste(f.altOrdner, f.dateiname).has_value();
        if (neu != f.ausgenommen)
            liste << Aenderung{.id = f.id, .ausgenommen = neu};
    });
    return liste;
}
} // namespace

void Ablagewerk::zielPruefen()
{
    Zielwurzel::pruefen(*m_db, m_profil);
    m_zielGeprueft = true;
}

Vollzug Ablagewerk::uebernehmen(const Dokument &dokument)
{
    const auto ordner = [&](const Dokument &) { return zielordner(dokument.angaben.ort, dokument.angaben.jahr); };
    const auto name = [&](const Dokument &gespeichert) {
        return Ziel::dateiname(dokument.angaben, gespeichert.dateiname, m_profil);
    };
    const bool gesehen = dokument.status != Status::Unbekannt;
    return bewegen({.id = dokument.id,
                    .gesehen = gesehen ? std::optional(dokument.status) : std::nullopt,
                    .status = Status::Erledigt,
                    .aktion = u"einsortiert"_s,
                    .ordner = ordner,
                    .name = name,
                    .werte = &dokument.angaben});
}

Vollzug Ablagewerk::aussortieren(qint64 id, std::optional<Status> gesehen, const std::optional<Taten::Tat> &tat)
{
    if (m_profil.kopieren)
        return nurVermerken(id, gesehen, tat);
    if (tat)
        m_zielGeprueft = false; // one of many: its turn may come minutes later
    return bewegen({.id = id,
                    .gesehen = gesehen,
                    .status = Status::Aussortiert,
                    .aktion = u"dublette"_s,
                    .ordner = [this](const Dokument &d) { return dublettenordner(d); },
                    .name = [](const Dokument &d) { return Dateibewegung::nummeriert(d.dateiname, 1); },
                    .tat = tat ? tat->id : 0});
}

QString Ablagewerk::dublettenordner(const Dokument &dokument) const
{
    return QDir::cleanPath(Ziel::dublettenordner(m_profil) + u'/' + dokument.altOrdner);
}

/** A copying profile leaves the file where it is. */
Vollzug Ablagewerk::nurVermerken(qint64 id, std::optional<Status> gesehen, const std::optional<Taten::Tat> &tat)
{
    const Dokument gespeichert = gespeichertes(id);
    if ((gesehen && *gesehen != gespeichert.status) || istBearbeitet(gespeichert.status))
        schonBearbeitet();
    if (!tat) {
        const auto eigene = Taten::statusWechseln(*m_db, u"aussortiert"_s, id, gespeichert.status, Status::Aussortiert);
        if (!eigene)
            schonBearbeitet();
        return {.nach = {}, .tat = *eigene};
    }
    Transaktion t(*m_db);
    if (!Dokumente(*m_db).statusWechseln(id, gespeichert.status, Status::Aussortiert))
        schonBearbeitet();
    Taten::eintragen(*m_db, tat->id,
                     {.dokument = id, .altStatus = gespeichert.status, .neuStatus = Status::Aussortiert});
    t.abschliessen();
    return {.nach = {}, .tat = *tat};
}

Dokument Ablagewerk::gespeichertes(qint64 id) const
{
    const auto gefunden = dokument(id);
    if (!gefunden)
        throw Fehler(Sprache::text(u"Dokument unbekannt"_s));
    return *gefunden;
}

/** As well as it goes: where it cannot be noted, the user is told of the file all the same. */
void Ablagewerk::verschwundenVermerken(qint64 id) const
{
    try {
        Dokumente(*m_db).setzeStatus(id, Status::Fehlt);
    } catch (const Katalogfehler &) {
        return;
    }
}

/** A vanished file is marked, unless its whole drive is gone. */
void Ablagewerk::quellePruefen(const Dokument &dokument) const
{
    if (istVorhanden(dokument.pfad))
        return;
    if (Herkunft::istUnerreichbarFuer(*m_db, m_profil, dokument.pfad))
        throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {m_profil.quelle}));
    verschwundenVermerken(dokument.id);
    throw Fehler(Sprache::text(u"Die Datei liegt nicht mehr am erwarteten Ort"_s));
}

/** What the user has seen a proposal for is what is moved, and nothing else. */
void Ablagewerk::inhaltPruefen(const Dokument &dokument) const
{
    if (Wiedererkennung::istDieselbe(*m_db, dokument.id, dokument.pfad))
        return;
    Wiedererkennung::ersetzen(*m_db, dokument.id, dokument.pfad);
    throw Fehler(Sprache::text(u"Unter diesem Namen liegt inzwischen eine andere Datei. Der nächste Durchgang liest "
                               "sie neu"_s));
}

Vollzug Ablagewerk::bewegen(const Vorhaben &vorhaben)
{
    Q_UNUSED(gespeichertes(vorhaben.id));
    if (!std::exchange(m_zielGeprueft, false))
        Zielwurzel::pruefen(*m_db, m_profil);
    Bewegungsgang gang(m_db);
    // Read again: while this one waited for its turn, another program may have handled the document.
    const Dokument gespeichert = gespeichertes(vorhaben.id);
    const bool andersGesehen = vorhaben.gesehen && *vorhaben.gesehen != gespeichert.status;
    if (andersGesehen || (vorhaben.werte && istBearbeitet(gespeichert.status)))
        schonBearbeitet();
    quellePruefen(gespeichert);
    const auto angesehen = Dateibewegung::angabenVon(gespeichert.pfad);
    inhaltPruefen(gespeichert);
    return ausfuehren(vorhaben, gespeichert, angesehen, gang);
}

Absicht Ablagewerk::absichtFuer(const Vorhaben &vorhaben, const Dokument &gespeichert) const
{
    Absicht absicht;
    absicht.zeile = {.zeit = jetztIso(),
                     .aktion = vorhaben.aktion,
                     .dokument = gespeichert.id,
                     .von = gespeichert.pfad,
                     .nach = {},
                     .altStatus = statuswort(gespeichert.status),
                     .kopiert = m_profil.kopieren,
                     .vonName = {}};
    absicht.status = vorhaben.status;
    absicht.vorher = gespeichert.angaben.gegenueber;
    absicht.tat = vorhaben.tat;
    absicht.profil = m_profil;
    if (vorhaben.werte)
        absicht.werte = *vorhaben.werte;
    return absicht;
}

Vollzug Ablagewerk::ausfuehren(const Vorhaben &vorhaben, const Dokument &gespeichert,
                               const std::optional<Dateibewegung::Schritt> &angesehen, Bewegungsgang &gang)
{
    const Dateibewegung::Auftrag auftrag{.von = gespeichert.pfad,
                                         .ordner = vorhaben.ordner(gespeichert),
                                         .name = vorhaben.name(gespeichert),
                                         .art = m_profil.kopieren ? Dateibewegung::Art::Kopieren
                                                                  : Dateibewegung::Art::Verschieben,
                                         .erwartet = angesehen};
    Dateibewegung::ordnerAnlegen(auftrag.ordner, m_profil.zielWurzel);
    const auto ergebnis = gang.bewegen(absichtFuer(vorhaben, gespeichert), auftrag, m_buch.get());
    return {.angepasst = ergebnis.angepasst,
            .ohneProtokoll = !ergebnis.protokolliert,
            .nach = ergebnis.nach,
            .tat = {.bewegung = true, .id = ergebnis.protokollId}};
}

qint64 Ablagewerk::rueckgaengig() { return Tatruecknahme::letzteBewegung(m_db, m_profil); }

Zurueckgenommen Ablagewerk::tatZuruecknehmen(const std::optional<Taten::Tat> &diese,
                                             const Tatruecknahme::Fortschritt &fortschritt)
{
    return Tatruecknahme::letzte(m_db, m_profil, diese, fortschritt);
}

std::optional<Dokument> Ablagewerk::dokument(qint64 id) const { return Dokumente(*m_db).eines(id); }

QString Ablagewerk::dateiname(const Dokument &dokument) const
{
    return Ziel::dateiname(dokument.angaben, dokument.dateiname, m_profil);
}

QString Ablagewerk::zielordner(const Ort &ort, const QString &jahr) const { return Ziel::ordner(ort, jahr, m_profil); }

std::optional<Dokument> Ablagewerk::naechstes(std::optional<qint64> nach, Richtung richtung) const
{
    return Dokumente(*m_db).naechstes(nach, richtung);
}

Zaehlwerk Ablagewerk::zaehlen() const { return Zaehlwerk::zaehlen(*m_db); }

Ablagewerk::Ausnahmenwechsel Ablagewerk::ausnahmenAnwenden(Datenbank &db, const Profil &profil)
{
    const QList<Aenderung> liste = aenderungen(db, Ausnahmefilter(profil.ausnahmen));
    Ausnahmenwechsel wechsel;
    QList<qint64> zurueck;
    Stapel stapel(db);
    for (const Aenderung &a : liste) {
        stapel.naechstes();
        Dokumente(db).setzeAusgenommen(a.id, a.ausgenommen);
        if (!a.ausgenommen)
            zurueck << a.id;
    }
    stapel.abschliessen();
    Lernspeicher(db, profil).nachrechnen(zurueck);
    wechsel.zurueckgeholt = zurueck.size();
    wechsel.ruhen = liste.size() - zurueck.size();
    return wechsel;
}
} // namespace quillmar::ablage
