#include "lernspeicher.h"

#include "dokumente.h"
#include "gelernteorte.h"
#include "gelerntes.h"
#include "modellantworten.h"
#include "namenskette.h"
#include "texte.h"
#include "transaktion.h"
#include "vorschlaege.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
constexpr int hoechstensTexte = 300;        // of the documents filed at one place, read once
constexpr qsizetype hoechstensEinzeln = 50; // documents that return, before all that wait are looked at

/** "GmbH & Co. KG" used to leave its "gmbh" in the key. */
bool istFruehererSchluessel(const QString &alt, const QString &neu)
{
    return !neu.isEmpty() && alt == neu + u" gmbh"_s;
}

void zuordnungenUebertragen(Datenbank &db)
{
    Gelerntes gelerntes(db);
    for (const Eintrag &eintrag : gelerntes.zuordnungen()) {
        // The name it was made from tells for certain what the key is today.
        const QString neu = Lernregeln::schluessel(eintrag.anzeige);
        if (!istFruehererSchluessel(eintrag.schluessel, neu))
            continue;
        gelerntes.zuordnungUmschluesseln(eintrag.schluessel, neu);
        Vorschlaege(db).umschluesseln(eintrag.schluessel, neu);
    }
}

void gleichungenUebertragen(Datenbank &db)
{
    Gelerntes gelerntes(db);
    for (const Gleichung &gleichung : gelerntes.gleichungen()) {
        const QString neu = Lernregeln::schluessel(gleichung.von);
        if (!istFruehererSchluessel(gleichung.von, neu))
            continue;
        gelerntes.gleichungUmschluesseln(gleichung.von, neu);
        Vorschlaege(db).umschluesseln(gleichung.von, neu);
    }
}

/** The keys of names, each once. */
QStringList schluesselVon(const QStringList &namen)
{
    QStringList alle;
    for (const QString &name : namen)
        alle << Lernregeln::schluessel(name);
    alle.removeAll(QString());
    alle.removeDuplicates();
    return alle;
}

/** The counterparts that a step has to do with. */
QStringList schluesselVon(const Lernschritt &schritt)
{
    QStringList namen;
    if (schritt.zuordnung)
        namen << schritt.zuordnung->nachher.schluessel;
    if (schritt.gleichsetzung)
        namen << schritt.gleichsetzung->nachher.von << schritt.gleichsetzung->nachher.nach;
    if (schritt.gleichsetzung && schritt.gleichsetzung->vorher)
        namen << schritt.gleichsetzung->vorher->nach;
    if (schritt.gleichsetzung && schritt.gleichsetzung->gestrichen)
        namen << schritt.gleichsetzung->gestrichen->von << schritt.gleichsetzung->gestrichen->nach;
    return schluesselVon(namen);
}

qint64 bestaetigungen(const QList<Ortszahl> &orte)
{
    return std::accumulate(orte.begin(), orte.end(), qint64(0), [](qint64 n, const auto &o) { return n + o.anzahl; });
}

/** The count of a place among @p orte; the end if it has none. */
QList<Ortszahl>::const_iterator stelle(const QList<Ortszahl> &orte, const Ort &ort)
{
    return std::find_if(orte.begin(), orte.end(), [&](const Ortszahl &o) { return o.ort == ort; });
}
} // namespace

QList<Eintrag> Lernspeicher::alle() const { return Gelerntes(m_db).zuordnungen(); }

QList<Gleichung> Lernspeicher::gleichungen() const { return Gelerntes(m_db).gleichungen(); }

QHash<QString, QList<Ortszahl>> Lernspeicher::alleOrte() const { return GelernteOrte(m_db).alle(); }

std::optional<QString> Lernspeicher::gleichwertig(const QString &name) const
{
    return Namenskette::ende(name, Namenskette::gelernte(m_db));
}

std::optional<Eintrag> Lernspeicher::vorschlag(const QString &gegenueber) const
{
    const QList<Eintrag> eintraege = alle();
    const Eintrag *bester = Lernregeln::vorschlag(eintraege, Lernregeln::schluessel(gegenueber));
    return bester ? std::optional(*bester) : std::nullopt;
}

void Lernspeicher::vorlesen(const Angaben &angaben, const QString &vorher)
{
    m_nachrechnung.vorlesen(schluesselVon({vorher, angaben.gegenueber}), angaben.ort.rubrik);
}

void Lernspeicher::vorlesen(const QList<qint64> &protokollIds)
{
    QStringList betroffene;
    for (const qint64 id : protokollIds)
        betroffene += schluesselVon(Lernschritt::aus(Gelerntes(m_db).schritt(id)));
    m_nachrechnung.vorlesen(schluesselVon(betroffene), {});
}

/** Of a document that was accepted before and came back: what he changed then he has changed now, too. */
Lernspeicher::Vorgeschlagen Lernspeicher::vorgeschlagen(qint64 dokument, const QString &vorher) const
{
    const auto jetzt = Dokumente(m_db).eines(dokument);
    Vorgeschlagen v{.gegenueber = vorher, .ort = jetzt ? std::optional(jetzt->angaben.ort) : std::nullopt};
    const auto zurueck = Modellantworten(m_db).zurueckgekehrtes(dokument);
    if (!zurueck)
        return v;
    const Nachrechnung::Vorschlag damals = m_nachrechnung.vorschlag(*zurueck);
    const QStringList namen = schluesselVon({zurueck->antwort->gegenueber, damals.gegenueber});
    if (!namen.contains(Lernregeln::schluessel(vorher)))
        v.gegenueber = damals.gegenueber;
    if (v.ort != zurueck->antwort->ort)
        v.ort = damals.ort;
    return v;
}

qint64 Lernspeicher::merken(qint64 dokument, const Angaben &a, const QString &vorher, qint64 protokollId)
{
    Transaktion transaktion(m_db);
    const Vorgeschlagen vorschlag = vorgeschlagen(dokument, vorher);
    const QString alt = Lernregeln::schluessel(vorschlag.gegenueber);
    const QString neu = Lernregeln::schluessel(a.gegenueber);
    const bool korrektur = alt != neu || (vorschlag.ort && *vorschlag.ort != a.ort);
    Lernschritt schritt;
    const auto modell = Modellantworten(m_db).gegenueber(dokument);
    if (alt != neu && modell && Lernregeln::schluessel(*modell) == neu)
        schritt.gleichsetzung = gleichungWiderrufen(neu);
    else if (!a.gegenueber.isEmpty() && alt.size() >= Lernregeln::kuerzesterSchluessel && alt != neu)
        schritt.gleichsetzung = gleichungMerken(alt, a.gegenueber);
    if (neu.size() >= Lernregeln::kuerzesterSchluessel && Urteiler(m_db, m_profil).istBekannt(a.ort))
        schritt.zuordnung = zuordnungMerken(neu, a, korrektur, dokument);
    if (dokument > 0)
        Modellantworten(m_db).vonHand(dokument);
    qint64 angepasst = 0;
    if (!schritt.istLeer()) {
        if (protokollId > 0)
            Gelerntes(m_db).schrittSchreiben(protokollId, schritt.json());
        angepasst = m_nachrechnung.rechnen(schluesselVon(schritt), Urteiler::Anlass::Nachrechnen, dokument).size();
    }
    transaktion.abschliessen();
    return angepasst;
}

/**
 * The reviewer has put back what the model said: it was the memory that changed the name, by an equation, which is
 * struck, or by a longer spelling, which is another counterpart's and leads nowhere.
 */
std::optional<Lernschritt::Gleichsetzung> Lernspeicher::gleichungWiderrufen(const QString &von)
{
    const auto falsche = Gelerntes(m_db).gleichung(von);
    if (!falsche)
        return std::nullopt;
    Gelerntes(m_db).gleichungStreichen(von);
    return Lernschritt::Gleichsetzung{.vorher = {}, .nachher = {}, .gestrichen = falsche};
}

Lernschritt::Gleichsetzung Lernspeicher::gleichungMerken(const QString &von, const QString &nach)
{
    Gelerntes gelerntes(m_db);
    Lernschritt::Gleichsetzung schritt;
    // What was said last is right: it must not lead back to where it came from.
    const QString ende = Lernregeln::schluessel(nach);
    if (const auto weiter = gelerntes.gleichung(ende);
        weiter && Namenskette::fuehrtZu(weiter->nach, von, Namenskette::gelernte(m_db))) {
        schritt.gestrichen = weiter;
        gelerntes.gleichungStreichen(ende);
    }
    schritt.vorher = gelerntes.gleichung(von);
    const bool gleich = schritt.vorher && schritt.vorher->nach == nach;
    schritt.nachher = {.von = von, .nach = nach, .anzahl = gleich ? schritt.vorher->anzahl + 1 : 1};
    gelerntes.setzeGleichung(schritt.nachher);
    return schritt;
}

Lernschritt::Zuordnung Lernspeicher::zuordnungMerken(const QString &schluessel, const Angaben &a, bool korrektur,
                                                     qint64 dokument)
{
    Gelerntes gelerntes(m_db);
    GelernteOrte orte(m_db);
    const auto vorher = gelerntes.zuordnung(schluessel);
    // What an earlier version has confirmed was never counted by itself.
    const QList<Ortszahl> bisherige = orte.orte(schluessel);
    if (vorher && Ortswahl::istVollstaendig(vorher->ort) && stelle(bisherige, vorher->ort) == bisherige.end())
        orte.zaehlen(schluessel, vorher->ort, vorher->anzahl, 0);
    // What lies in the tree was not confirmed.
    const bool zaehltWeiter = vorher && vorher->ort == a.ort && bestaetigungen(orte.orte(schluessel)) > 0;
    const Eintrag nachher{.schluessel = schluessel,
                          .anzeige = a.gegenueber,
                          .ort = a.ort,
                          .anzahl = zaehltWeiter ? vorher->anzahl + 1 : 1};
    gelerntes.setzeZuordnung(nachher);
    orte.zaehlen(schluessel, a.ort, 1, korrektur ? 1 : 0);
    worteZaehlen(schluessel, a.ort, dokument);
    return {.vorher = vorher,
            .nachher = nachher,
            .korrektur = korrektur,
            .dokument = dokument,
            .bestaetigungen = bestaetigungen(orte.orte(schluessel))};
}

/** Words matter only where there is a choice: then also those of what was filed before. */
void Lernspeicher::worteZaehlen(const QString &schluessel, const Ort &ort, qint64 dokument)
{
    const QList<Ortszahl> orte = GelernteOrte(m_db).orte(schluessel);
    // Once counted they go on being counted: the second place may come back.
    const bool gezaehlt = std::any_of(orte.begin(), orte.end(), [](const Ortszahl &o) { return o.belesen >= 0; });
    if (orte.size() < 2 && !gezaehlt)
        return;
    abgelegtesZaehlen(schluessel, orte);
    if (const auto hier = stelle(orte, ort); hier != orte.end())
        textZaehlen(hier->id, dokument, 1);
}

void Lernspeicher::abgelegtesZaehlen(const QString &schluessel, const QList<Ortszahl> &orte)
{
    if (std::none_of(orte.begin(), orte.end(), [](const Ortszahl &o) { return o.belesen < 0; }))
        return;
    QStringList namen = Modellantworten(m_db).abgelegteGegenueber();
    namen.removeIf([&](const QString &name) { return Lernregeln::schluessel(name) != schluessel; });
    for (const Ortszahl &o : orte) {
        if (o.belesen >= 0)
            continue;
        const Wortzahl zahl = abgelegteWorte(namen, o.ort);
        GelernteOrte(m_db).worteZaehlen(o.id, zahl.worte, zahl.dokumente);
    }
}

void Lernspeicher::textZaehlen(qint64 ort, qint64 dokument, qint64 richtung)
{
    Wortzahl zahl;
    zahl.dazu(Texte(m_db).text(dokument).value_or(QString()));
    if (richtung < 0)
        zahl.umkehren();
    if (zahl.dokumente != 0)
        GelernteOrte(m_db).worteZaehlen(ort, zahl.worte, zahl.dokumente);
}

Lernspeicher::Wortzahl Lernspeicher::abgelegteWorte(const QStringList &namen, const Ort &ort) const
{
    Wortzahl zahl;
    for (const QString &text : Modellantworten(m_db).abgelegteTexte(namen, ort, hoechstensTexte))
        zahl.dazu(text);
    return zahl;
}

void Lernspeicher::Wortzahl::dazu(const QString &text)
{
    const QStringList eigene = Wortstimmen::worte(text);
    for (const QString &wort : eigene)
        ++worte[Wortstimmen::gefaltetesWort(wort)];
    dokumente += eigene.isEmpty() ? 0 : 1;
}

void Lernspeicher::Wortzahl::umkehren()
{
    for (qint64 &anzahl : worte)
        anzahl = -anzahl;
    dokumente = -dokumente;
}

void Lernspeicher::zuruecknehmen(const QList<qint64> &protokollIds)
{
    Transaktion transaktion(m_db);
    Gelerntes gelerntes(m_db);
    QStringList betroffene;
    for (const qint64 id : protokollIds) {
        const Lernschritt schritt = Lernschritt::aus(gelerntes.schritt(id));
        if (schritt.gleichsetzung) // where the name leads as yet
            betroffene << Lernregeln::schluessel(gleichwertig(schritt.gleichsetzung->nachher.nach).value_or(QString()));
        if (schritt.zuordnung)
            zuordnungZuruecknehmen(*schritt.zuordnung);
        if (schritt.gleichsetzung)
            gleichungZuruecknehmen(*schritt.gleichsetzung);
        gelerntes.schrittStreichen(id);
        betroffene += schluesselVon(schritt);
    }
    betroffene = schluesselVon(betroffene);
    if (!betroffene.isEmpty())
        m_nachrechnung.rechnen(betroffene, Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
}

void Lernspeicher::zuordnungZuruecknehmen(const Lernschritt::Zuordnung &z)
{
    Gelerntes gelerntes(m_db);
    GelernteOrte orte(m_db);
    const QString &schluessel = z.nachher.schluessel;
    const QList<Ortszahl> bisher = orte.orte(schluessel);
    const auto ort = stelle(bisher, z.nachher.ort);
    if (ort == bisher.end() || ort->anzahl == 0)
        return; // forgotten since
    if (ort->belesen > 0)
        textZaehlen(ort->id, z.dokument, -1);
    orte.zaehlen(schluessel, z.nachher.ort, -1, z.korrektur ? -1 : 0);
    const bool warDasLetzte =
        gelerntes.zuordnung(schluessel) == z.nachher && bestaetigungen(bisher) == z.bestaetigungen;
    if (!warDasLetzte || !z.vorher) // without an entry before, the tree may have told of it since
        return eintragErneuern(schluessel);
    gelerntes.setzeZuordnung(*z.vorher);
    const QList<Ortszahl> uebrige = orte.orte(schluessel);
    if (stelle(uebrige, z.vorher->ort) == uebrige.end() && Ortswahl::istVollstaendig(z.vorher->ort))
        eintragErneuern(schluessel);
}

/** The entry after one of its places counts less: its own place if that still counts, else the most confirmed one. */
void Lernspeicher::eintragErneuern(const QString &schluessel)
{
    Gelerntes gelerntes(m_db);
    const auto eintrag = gelerntes.zuordnung(schluessel);
    const QList<Ortszahl> orte = GelernteOrte(m_db).orte(schluessel);
    if (!eintrag)
        return;
    if (orte.isEmpty())
        return gelerntes.zuordnungStreichen(schluessel);
    const auto eigener = stelle(orte, eintrag->ort);
    const Ortszahl &ort = eigener == orte.end() ? orte.first() : *eigener;
    Eintrag neuer = *eintrag;
    neuer.ort = ort.ort;
    neuer.anzahl = ort.anzahl > 0 ? ort.anzahl : ort.baum;
    if (eigener != orte.end() && ort.anzahl > 0)
        neuer.anzahl = std::min(neuer.anzahl, eintrag->anzahl);
    gelerntes.setzeZuordnung(neuer);
}

void Lernspeicher::gleichungZuruecknehmen(const Lernschritt::Gleichsetzung &g)
{
    Gelerntes gelerntes(m_db);
    const auto jetzt = gelerntes.gleichung(g.nachher.von);
    if (jetzt && *jetzt == g.nachher) {
        if (g.vorher)
            gelerntes.setzeGleichung(*g.vorher);
        else
            gelerntes.gleichungStreichen(g.nachher.von);
    } else if (jetzt && jetzt->nach == g.nachher.nach && jetzt->anzahl > 1) {
        gelerntes.setzeGleichung({.von = jetzt->von, .nach = jetzt->nach, .anzahl = jetzt->anzahl - 1});
    }
    const auto noch = gelerntes.gleichung(g.nachher.von);
    const bool steht = noch && noch->nach == g.nachher.nach;
    if (!steht && g.gestrichen && !gelerntes.gleichung(g.gestrichen->von) &&
        !Namenskette::fuehrtZu(g.gestrichen->nach, g.gestrichen->von, Namenskette::gelernte(m_db)))
        gelerntes.setzeGleichung(*g.gestrichen);
}

qint64 Lernspeicher::nachrechnen(const QList<qint64> &dokumente)
{
    QStringList namen;
    for (const qint64 id : dokumente.first(std::min(dokumente.size(), hoechstensEinzeln + 1))) {
        if (const auto dokument = Dokumente(m_db).eines(id); dokument && dokument->status == Status::Bereit)
            namen << dokument->angaben.gegenueber;
    }
    QStringList schluessel = schluesselVon(namen);
    if (schluessel.isEmpty())
        return 0;
    if (dokumente.size() > hoechstensEinzeln)
        schluessel.clear(); // all that wait
    m_nachrechnung.vorlesen(schluessel.isEmpty() ? rechnungsschluessel() : schluessel, {});
    return m_nachrechnung.rechnen(schluessel, Urteiler::Anlass::Nachrechnen).size();
}

/** The counterparts whose taught place is one for invoices. */
QStringList Lernspeicher::rechnungsschluessel() const
{
    QStringList schluessel;
    for (const Eintrag &e : alle()) {
        if (Rechnungsrichtung::istRechnungsrubrik(e.ort.rubrik, m_profil))
            schluessel << e.schluessel;
    }
    return schluessel;
}

qint64 Lernspeicher::allesAnwenden()
{
    m_nachrechnung.vorlesen(rechnungsschluessel(), {});
    return m_nachrechnung.rechnen({}, Urteiler::Anlass::Anwenden).size();
}

Lernspeicher::Herkunft Lernspeicher::herkunft(const Dokument &dokument) const
{
    const auto stimme = Modellantworten(m_db).stimme(dokument.id);
    if (stimme)
        return {.art = Herkunft::Art::Text, .dokumente = stimme->dokumente, .wort = stimme->wort};
    const auto eintrag = Gelerntes(m_db).zuordnung(dokument.gelerntVon);
    if (!eintrag)
        return {};
    const QList<Ortszahl> orte = Urteiler(m_db, m_profil).orte(*eintrag);
    const Ort &hier = dokument.angaben.ort;
    auto ort = stelle(orte, hier);
    if (ort == orte.end()) // the direction of an invoice has put another category in its stead
        ort = std::find_if(orte.begin(), orte.end(),
                           [&](const Ortszahl &o) { return o.ort.zweig == hier.zweig && o.ort.ablage == hier.ablage; });
    if (ort == orte.end() || ort->korrekturen > 0)
        return {};
    if (ort->anzahl > 0)
        return {.art = Herkunft::Art::Bestaetigt, .dokumente = ort->anzahl, .wort = {}};
    return {.art = Herkunft::Art::Baum, .dokumente = ort->baum, .wort = {}};
}

void Lernspeicher::schluesselUebertragen()
{
    const QString was = u"rechtsform"_s;
    Gelerntes gelerntes(m_db);
    if (gelerntes.istUebertragen(was))
        return;
    Transaktion transaktion(m_db);
    zuordnungenUebertragen(m_db);
    gleichungenUebertragen(m_db);
    gelerntes.uebertragenVermerken(was);
    transaktion.abschliessen();
}

void Lernspeicher::leeren()
{
    m_nachrechnung.vorlesen(rechnungsschluessel(), {});
    Transaktion transaktion(m_db);
    Gelerntes(m_db).leeren();
    GelernteOrte(m_db).leeren();
    m_nachrechnung.rechnen({}, Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
}

void Lernspeicher::vergessen(const QString &schluessel)
{
    m_nachrechnung.vorlesen({schluessel}, {});
    Transaktion transaktion(m_db);
    Gelerntes(m_db).zuordnungStreichen(schluessel);
    GelernteOrte(m_db).streichen(schluessel);
    m_nachrechnung.rechnen({schluessel}, Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
}

void Lernspeicher::ortVergessen(const QString &schluessel, const Ort &ort)
{
    m_nachrechnung.vorlesen({schluessel}, {});
    Transaktion transaktion(m_db);
    GelernteOrte(m_db).streichen(schluessel, ort);
    // Also one that an earlier version has stored, which is counted nowhere else.
    eintragErneuern(schluessel);
    m_nachrechnung.rechnen({schluessel}, Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
}

void Lernspeicher::gleichungVergessen(const QString &von)
{
    Transaktion transaktion(m_db);
    const auto gleichung = Gelerntes(m_db).gleichung(von);
    const QString ende = gleichung ? gleichwertig(gleichung->nach).value_or(gleichung->nach) : QString();
    Gelerntes(m_db).gleichungStreichen(von);
    if (gleichung)
        m_nachrechnung.rechnen(schluesselVon({von, gleichung->nach, ende}), Urteiler::Anlass::Nachrechnen);
    transaktion.abschliessen();
}
} // namespace quillmar::lernen
