#include "abschnitt.h"

#include "sprache.h"
#include "text.h"
#include "vorlagenmangel.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
using Lage = Abschnittsstand::Lage;

namespace
{
struct Titelzeile {
    Abschnitt abschnitt;
    QString rohwert;
    QString titel;
};

const QList<Titelzeile> &tabelle()
{
    static const QList<Titelzeile> zeilen = {
        {Abschnitt::Programme, u"programme"_s, QUILLMAR_TEXT(u"Programme"_s)},
        {Abschnitt::Herkunft, u"herkunft"_s, QUILLMAR_TEXT(u"Herkunft"_s)},
        {Abschnitt::Ziel, u"ziel"_s, QUILLMAR_TEXT(u"Ziel"_s)},
        {Abschnitt::Namen, u"namen"_s, QUILLMAR_TEXT(u"Namen"_s)},
        {Abschnitt::Eigentuemer, u"eigentuemer"_s, QUILLMAR_TEXT(u"Eigentümer"_s)},
        {Abschnitt::Modell, u"modell"_s, QUILLMAR_TEXT(u"Lesen und Modell"_s)},
        {Abschnitt::Gelernt, u"gelernt"_s, QUILLMAR_TEXT(u"Gelernt"_s)},
        {Abschnitt::Oberflaeche, u"oberflaeche"_s, QUILLMAR_TEXT(u"Sprache und Schrift"_s)},
    };
    return zeilen;
}

QString zahl(qint64 wert) { return QString::number(wert); }

Abschnittsstand programme(const Einrichtungslage &z)
{
    const auto &programme = z.stand.programme;
    if (!programme)
        return {.lage = Lage::Prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    QStringList fehlende;
    for (const Programmstand::Werkzeug &w : programme->werkzeuge) {
        if (w.pfad.isEmpty())
            fehlende << w.name;
    }
    if (!fehlende.isEmpty())
        return {.lage = Lage::Gestoert, .zeile = gefuellt(Sprache::text(u"%@ fehlt"_s), {fehlende.join(u", "_s)})};
    if (!programme->kann(z.profil.ocrSprache))
        return {.lage = Lage::Warnung, .zeile = Sprache::text(u"Sprache der Scans fehlt"_s)};
    return {.lage = Lage::Gut, .zeile = Sprache::text(u"alles gefunden"_s)};
}

Abschnittsstand herkunft(const Einrichtungslage &z)
{
    if (z.profil.quelle.isEmpty())
        return {.lage = Lage::Fehlt, .zeile = Sprache::text(u"noch nicht gewählt"_s)};
    if (!z.bereitschaft)
        return {.lage = Lage::Prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    if (!z.bereitschaft->quelle)
        return {.lage = Lage::Gestoert, .zeile = Sprache::text(u"Ordner nicht erreichbar"_s)};
    const auto &quelle = z.stand.quelle;
    QString zeile = quelle ? gefuellt(Sprache::text(quelle->anzahl, u"1 PDF"_s, u"%@ PDF"_s), {zahl(quelle->anzahl)})
                           : Sprache::text(u"PDF werden gezählt"_s);
    const qsizetype ausnahmen = z.profil.ausnahmen.size();
    if (ausnahmen > 0)
        zeile += u", "_s + gefuellt(Sprache::text(ausnahmen, u"%@ Ausnahme"_s, u"%@ Ausnahmen"_s), {zahl(ausnahmen)});
    return {.lage = quelle && quelle->anzahl == 0 && z.ohneDokumente ? Lage::Warnung : Lage::Gut, .zeile = zeile};
}

Abschnittsstand ziel(const Einrichtungslage &z)
{
    if (z.profil.zielWurzel.isEmpty())
        return {.lage = Lage::Fehlt, .zeile = Sprache::text(u"noch nicht gewählt"_s)};
    if (!z.bereitschaft)
        return {.lage = Lage::Prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    if (!z.bereitschaft->ziel)
        return {.lage = Lage::Gestoert, .zeile = Sprache::text(u"Ordner nicht erreichbar"_s)};
    if (z.profil.zweige.isEmpty())
        return {.lage = Lage::Fehlt, .zeile = Sprache::text(u"Struktur noch nicht eingelesen"_s)};
    if (z.stand.strukturAlt)
        return {.lage = Lage::Warnung, .zeile = Sprache::text(u"Struktur neu einlesen"_s)};
    const Strukturzahlen &s = z.stand.zahlen;
    if (s.neu > 0 || s.entfallen > 0)
        return {.lage = s.entfallen > 0 ? Lage::Warnung : Lage::Gut,
                .zeile = gefuellt(Sprache::text(u"%@ neu, %@ entfallen"_s), {zahl(s.neu), zahl(s.entfallen)})};
    return {.lage = Lage::Gut, .zeile = gefuellt(Sprache::text(u"Rubriken: %@"_s), {zahl(s.rubriken)})};
}

Abschnittsstand namen(const Einrichtungslage &z)
{
    const QString vorlage = z.profil.namensVorlage.trimmed();
    if (vorlage.isEmpty())
        return {.lage = Lage::Fehlt, .zeile = Sprache::text(u"Vorlage für den Dateinamen fehlt"_s)};
    const bool strittig = !vorlagenmaengel(z.profil.namensVorlage, false).isEmpty() ||
                          !vorlagenmaengel(z.profil.pfadVorlage, true).isEmpty();
    return {.lage = strittig ? Lage::Warnung : Lage::Gut, .zeile = vorlage};
}

Abschnittsstand eigentuemer(const Profil &p)
{
    if (p.eigenkennungen().isEmpty())
        return {.lage = Lage::Offen, .zeile = Sprache::text(u"eigene Namen fehlen noch"_s)};
    return {.lage = Lage::Gut, .zeile = p.eigentuemer.isEmpty() ? p.eigenkennungen().first() : p.eigentuemer};
}

/** How it stands with the model of @p profil while none is being fetched. */
Abschnittsstand nachArt(Modellstand::Art art, const Profil &profil)
{
    switch (art) {
    case Modellstand::Art::Bereit:
        return {.lage = platzImModell(profil) > 1 ? Lage::Warnung : Lage::Gut,
                .zeile = gefuellt(Sprache::text(u"%@ einsatzbereit"_s), {profil.modell})};
    case Modellstand::Art::ServerFehlt:
        return {.lage = Lage::Gestoert, .zeile = Sprache::text(u"Modellserver läuft nicht"_s)};
    case Modellstand::Art::ModellFehlt:
        return {.lage = Lage::Gestoert, .zeile = gefuellt(Sprache::text(u"%@ fehlt"_s), {profil.modell})};
    case Modellstand::Art::ModellAnderswo:
        return {.lage = Lage::Gestoert, .zeile = gefuellt(Sprache::text(u"%@ rechnet nicht hier"_s), {profil.modell})};
    case Modellstand::Art::Laedt:
    case Modellstand::Art::Unbekannt:
        break;
    }
    return {.lage = Lage::Prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
}

Abschnittsstand modell(const Einrichtungslage &z)
{
    const Modellstand &stand = z.modell;
    if (!stand.laedtModell.isEmpty())
        return {.lage = Lage::Prueft, .zeile = gefuellt(Sprache::text(u"%@ wird geladen"_s), {stand.laedtModell})};
    return nachArt(stand.art, z.profil);
}

Abschnittsstand gelernt(const Lernstand &g)
{
    if (g.zuordnungen.isEmpty() && g.gleichungen.isEmpty())
        return {.zeile = Sprache::text(u"noch nichts"_s)};
    const qsizetype orte = g.zuordnungen.size();
    const qsizetype namen = g.gleichungen.size();
    return {.zeile = gefuellt(Sprache::text(orte, u"%@ Zuordnung"_s, u"%@ Zuordnungen"_s), {zahl(orte)}) + u", "_s +
                     gefuellt(Sprache::text(namen, u"%@ Name"_s, u"%@ Namen"_s), {zahl(namen)})};
}
} // namespace

const QList<Abschnitt> &alleAbschnitte()
{
    static const QList<Abschnitt> alle = [] {
        QList<Abschnitt> liste;
        for (const Titelzeile &e : tabelle())
            liste << e.abschnitt;
        return liste;
    }();
    return alle;
}

QString rohwert(Abschnitt abschnitt) { return tabelle().at(int(abschnitt)).rohwert; }

QString abschnittTitel(Abschnitt abschnitt)
{
    return Sprache::text(/* QUILLMAR_TEXT */ tabelle().at(int(abschnitt)).titel);
}

Befund::Marke Abschnittsstand::marke() const
{
    switch (lage) {
    case Lage::Fehlt:
    case Lage::Offen:
        return Befund::Marke::Offen;
    case Lage::Gestoert:
    case Lage::Warnung:
        return Befund::Marke::Warnung;
    case Lage::Prueft:
        return Befund::Marke::Laeuft;
    case Lage::Gut:
        return Befund::Marke::Gut;
    case Lage::Ohne:
        break;
    }
    return Befund::Marke::Keine;
}

QString Abschnittsstand::markenwort() const
{
    switch (marke()) {
    case Befund::Marke::Offen:
        return Sprache::text(u"fehlt noch"_s);
    case Befund::Marke::Warnung:
        return Sprache::text(u"Achtung"_s);
    case Befund::Marke::Gut:
        return Sprache::text(u"fertig"_s);
    default:
        return {};
    }
}

Abschnittsstand abschnittsstand(Abschnitt abschnitt, const Einrichtungslage &lage)
{
    switch (abschnitt) {
    case Abschnitt::Programme:
        return programme(lage);
    case Abschnitt::Herkunft:
        return herkunft(lage);
    case Abschnitt::Ziel:
        return zustand::ziel(lage);
    case Abschnitt::Namen:
        return namen(lage);
    case Abschnitt::Eigentuemer:
        return eigentuemer(lage.profil);
    case Abschnitt::Modell:
        return zustand::modell(lage);
    case Abschnitt::Gelernt:
        return gelernt(lage.stand.gelerntes);
    case Abschnitt::Oberflaeche:
        break;
    }
    return {};
}
} // namespace quillmar::zustand
