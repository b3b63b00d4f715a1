#include "abschnitt.h"

#include "analyse.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

using namespace Qt::StringLiterals;
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
        {Abschnitt::programme, u"programme"_s, QUILLMAR_TEXT(u"Programme"_s)},
        {Abschnitt::herkunft, u"herkunft"_s, QUILLMAR_TEXT(u"Herkunft"_s)},
        {Abschnitt::ziel, u"ziel"_s, QUILLMAR_TEXT(u"Ziel"_s)},
        {Abschnitt::namen, u"namen"_s, QUILLMAR_TEXT(u"Namen"_s)},
        {Abschnitt::eigentuemer, u"eigentuemer"_s, QUILLMAR_TEXT(u"Eigentümer"_s)},
        {Abschnitt::modell, u"modell"_s, QUILLMAR_TEXT(u"Lesen und Modell"_s)},
        {Abschnitt::gelernt, u"gelernt"_s, QUILLMAR_TEXT(u"Gelernt"_s)},
        {Abschnitt::oberflaeche, u"oberflaeche"_s, QUILLMAR_TEXT(u"Sprache und Schrift"_s)},
    };
    return zeilen;
}

QString zahl(qint64 wert) { return QString::number(wert); }

Abschnittsstand programme(const Zustand &z)
{
    const auto &programme = z.einrichtung().programme;
    if (!programme)
        return {.lage = Lage::prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    QStringList fehlende;
    for (const Programmstand::Werkzeug &w : programme->werkzeuge) {
        if (w.pfad.isEmpty())
            fehlende << w.name;
    }
    if (!fehlende.isEmpty())
        return {.lage = Lage::gestoert, .zeile = gefuellt(Sprache::text(u"%@ fehlt"_s), {fehlende.join(u", "_s)})};
    if (!programme->kann(z.aktiv()->ocrSprache))
        return {.lage = Lage::warnung, .zeile = Sprache::text(u"Sprache der Scans fehlt"_s)};
    return {.lage = Lage::gut, .zeile = Sprache::text(u"alles gefunden"_s)};
}

Abschnittsstand herkunft(const Zustand &z)
{
    if (z.aktiv()->quelle.isEmpty())
        return {.lage = Lage::fehlt, .zeile = Sprache::text(u"noch nicht gewählt"_s)};
    if (!z.bereitschaft())
        return {.lage = Lage::prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    if (!z.bereitschaft()->quelle)
        return {.lage = Lage::gestoert, .zeile = Sprache::text(u"Ordner nicht erreichbar"_s)};
    const auto &quelle = z.einrichtung().quelle;
    QString zeile = quelle ? gefuellt(Sprache::text(quelle->anzahl, u"1 PDF"_s, u"%@ PDF"_s), {zahl(quelle->anzahl)})
                           : Sprache::text(u"PDF werden gezählt"_s);
    const qsizetype ausnahmen = z.aktiv()->ausnahmen.size();
    if (ausnahmen > 0)
        zeile += u", "_s + gefuellt(Sprache::text(ausnahmen, u"%@ Ausnahme"_s, u"%@ Ausnahmen"_s), {zahl(ausnahmen)});
    return {.lage = quelle && quelle->anzahl == 0 && z.zaehlwerk() == Zaehlwerk() ? Lage::warnung : Lage::gut,
            .zeile = zeile};
}

Abschnittsstand ziel(const Zustand &z)
{
    if (z.aktiv()->zielWurzel.isEmpty())
        return {.lage = Lage::fehlt, .zeile = Sprache::text(u"noch nicht gewählt"_s)};
    if (!z.bereitschaft())
        return {.lage = Lage::prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
    if (!z.bereitschaft()->ziel)
        return {.lage = Lage::gestoert, .zeile = Sprache::text(u"Ordner nicht erreichbar"_s)};
    if (z.aktiv()->zweige.isEmpty())
        return {.lage = Lage::fehlt, .zeile = Sprache::text(u"Struktur noch nicht eingelesen"_s)};
    if (z.einrichtung().strukturAlt)
        return {.lage = Lage::warnung, .zeile = Sprache::text(u"Struktur neu einlesen"_s)};
    const Strukturzahlen &s = z.einrichtung().zahlen;
    if (s.neu > 0 || s.entfallen > 0)
        return {.lage = s.entfallen > 0 ? Lage::warnung : Lage::gut,
                .zeile = gefuellt(Sprache::text(u"%@ neu, %@ entfallen"_s), {zahl(s.neu), zahl(s.entfallen)})};
    return {.lage = Lage::gut, .zeile = gefuellt(Sprache::text(u"Rubriken: %@"_s), {zahl(s.rubriken)})};
}

Abschnittsstand namen(const Zustand &z)
{
    const QString vorlage = z.aktiv()->namensVorlage.trimmed();
    if (vorlage.isEmpty())
        return {.lage = Lage::fehlt, .zeile = Sprache::text(u"Vorlage für den Dateinamen fehlt"_s)};
    const bool strittig = !vorlagenmaengel(z.aktiv()->namensVorlage, false).isEmpty() ||
                          !vorlagenmaengel(z.aktiv()->pfadVorlage, true).isEmpty();
    return {.lage = strittig ? Lage::warnung : Lage::gut, .zeile = vorlage};
}

Abschnittsstand eigentuemer(const Zustand &z)
{
    const Profil &p = *z.aktiv();
    if (p.eigenkennungen().isEmpty())
        return {.lage = Lage::offen, .zeile = Sprache::text(u"eigene Namen fehlen noch"_s)};
    return {.lage = Lage::gut, .zeile = p.eigentuemer.isEmpty() ? p.eigenkennungen().first() : p.eigentuemer};
}

Abschnittsstand modell(const Zustand &z)
{
    const Modellstand &stand = z.modellstand();
    if (!stand.laedtModell.isEmpty())
        return {.lage = Lage::prueft, .zeile = gefuellt(Sprache::text(u"%@ wird geladen"_s), {stand.laedtModell})};
    switch (stand.art) {
    case Modellstand::Art::bereit:
        return {.lage = platzImModell(*z.aktiv()) > 1 ? Lage::warnung : Lage::gut,
                .zeile = gefuellt(Sprache::text(u"%@ einsatzbereit"_s), {z.aktiv()->modell})};
    case Modellstand::Art::serverFehlt:
        return {.lage = Lage::gestoert, .zeile = Sprache::text(u"Modellserver läuft nicht"_s)};
    case Modellstand::Art::modellFehlt:
        return {.lage = Lage::gestoert, .zeile = gefuellt(Sprache::text(u"%@ fehlt"_s), {z.aktiv()->modell})};
    case Modellstand::Art::modellAnderswo:
        return {.lage = Lage::gestoert,
                .zeile = gefuellt(Sprache::text(u"%@ rechnet nicht hier"_s), {z.aktiv()->modell})};
    case Modellstand::Art::laedt:
    case Modellstand::Art::unbekannt:
        break;
    }
    return {.lage = Lage::prueft, .zeile = Sprache::text(u"wird nachgesehen"_s)};
}

Abschnittsstand gelernt(const Zustand &z)
{
    const Lernstand &g = z.einrichtung().gelerntes;
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

Abschnittsstand Zustand::abschnittsstand(Abschnitt abschnitt) const
{
    if (!m_aktiv)
        return {};
    switch (abschnitt) {
    case Abschnitt::programme:
        return programme(*this);
    case Abschnitt::herkunft:
        return herkunft(*this);
    case Abschnitt::ziel:
        return ::ziel(*this);
    case Abschnitt::namen:
        return namen(*this);
    case Abschnitt::eigentuemer:
        return eigentuemer(*this);
    case Abschnitt::modell:
        return ::modell(*this);
    case Abschnitt::gelernt:
        return gelernt(*this);
    case Abschnitt::oberflaeche:
        break;
    }
    return {};
}

/** The sections behind @p von first, then from the top; what a run cannot do without goes before the rest. */
std::optional<Abschnitt> Zustand::naechsterAbschnitt(Abschnitt von) const
{
    const QList<Abschnitt> reihe = alleAbschnitte().mid(int(von) + 1) + alleAbschnitte().first(int(von));
    for (const bool noetig : {true, false}) {
        for (const Abschnitt abschnitt : reihe) {
            const Abschnittsstand stand = abschnittsstand(abschnitt);
            if (noetig ? stand.hindert() : stand.lage == Lage::offen)
                return abschnitt;
        }
    }
    return std::nullopt;
}

QString Zustand::starthindernis() const
{
    if (!offen())
        return Sprache::text(u"Der Katalog ist nicht offen."_s);
    if (m_analyse->laeuft())
        return Sprache::text(u"Der Durchgang läuft schon."_s);
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        const Abschnittsstand stand = abschnittsstand(abschnitt);
        if (stand.hindert())
            return gefuellt(Sprache::text(u"Es fehlt noch: %@ (%@)."_s), {abschnittTitel(abschnitt), stand.zeile});
    }
    if (m_modell.art == Modellstand::Art::laedt)
        return Sprache::text(u"Das Sprachmodell wird gerade geladen."_s);
    return bereitZumStart() ? QString() : Sprache::text(u"Es wird noch nachgesehen."_s);
}
