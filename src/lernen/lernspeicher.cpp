#include "lernspeicher.h"

#include "gelerntes.h"
#include "texte.h"
#include "transaktion.h"
#include "vorschlaege.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
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
} // namespace

QList<Eintrag> Lernspeicher::alle() const { return Gelerntes(m_db).zuordnungen(); }

QList<Gleichung> Lernspeicher::gleichungen() const { return Gelerntes(m_db).gleichungen(); }

std::optional<QString> Lernspeicher::gleichwertig(const QString &name) const
{
    const QString schluessel = Lernregeln::schluessel(name);
    if (schluessel.size() < Lernregeln::kuerzesterSchluessel)
        return std::nullopt;
    const auto gleichung = Gelerntes(m_db).gleichung(schluessel);
    return !gleichung || gleichung->nach == name ? std::nullopt : std::optional(gleichung->nach);
}

std::optional<Eintrag> Lernspeicher::vorschlag(const QString &gegenueber) const
{
    const QList<Eintrag> eintraege = alle();
    const Eintrag *bester = Lernregeln::vorschlag(eintraege, Lernregeln::schluessel(gegenueber));
    return bester ? std::optional(*bester) : std::nullopt;
}

qint64 Lernspeicher::merken(qint64 dokument, const Angaben &a, const QString &vorher)
{
    Transaktion transaktion(m_db);
    // The equation and the place may meet in one document.
    QSet<qint64> angepasst;
    const QString alt = Lernregeln::schluessel(vorher);
    const QString neu = Lernregeln::schluessel(a.gegenueber);
    if (!a.gegenueber.isEmpty() && alt.size() >= Lernregeln::kuerzesterSchluessel && alt != neu) {
        gleichungMerken(alt, a.gegenueber);
        angepasst += namenAngleichen(alt, a.gegenueber, dokument);
    }
    if (neu.size() >= Lernregeln::kuerzesterSchluessel && !a.ort.zweig.isEmpty()) {
        zuordnungMerken(neu, a);
        angepasst += anwenden(neu, a.gegenueber, a.ort, dokument);
    }
    transaktion.abschliessen();
    return angepasst.size();
}

void Lernspeicher::gleichungMerken(const QString &von, const QString &nach)
{
    Gelerntes gelerntes(m_db);
    // The opposite would turn every name back again.
    const QString gegen = Lernregeln::schluessel(nach);
    if (const auto gegenteil = gelerntes.gleichung(gegen); gegenteil && Lernregeln::schluessel(gegenteil->nach) == von)
        gelerntes.gleichungStreichen(gegen);
    const auto bisher = gelerntes.gleichung(von);
    const bool gleich = bisher && bisher->nach == nach;
    gelerntes.setzeGleichung({.von = von, .nach = nach, .anzahl = gleich ? bisher->anzahl + 1 : 1});
}

void Lernspeicher::zuordnungMerken(const QString &schluessel, const Angaben &a)
{
    const auto bisher = Gelerntes(m_db).zuordnung(schluessel);
    const bool gleich = bisher && bisher->ort == a.ort;
    Gelerntes(m_db).setzeZuordnung(
        {.schluessel = schluessel, .anzeige = a.gegenueber, .ort = a.ort, .anzahl = gleich ? bisher->anzahl + 1 : 1});
}

QSet<qint64> Lernspeicher::anwenden(const QString &schluessel, const QString &name, const Ort &ort, qint64 ausser)
{
    QList<Eintrag> eintraege = alle();
    const auto eigener =
        std::find_if(eintraege.begin(), eintraege.end(), [&](const Eintrag &e) { return e.schluessel == schluessel; });
    const Eintrag eintrag{.schluessel = schluessel,
                          .anzeige = name,
                          .ort = ort,
                          .anzahl = eigener == eintraege.end() ? 1 : eigener->anzahl};
    if (eigener == eintraege.end())
        eintraege << eintrag;
    else
        *eigener = eintrag;
    return aufWartende(eintraege, schluessel, ausser);
}

qint64 Lernspeicher::allesAnwenden()
{
    const QList<Eintrag> eintraege = alle();
    const auto istRechnung = [this](const Eintrag &e) {
        return Rechnungsrichtung::istRechnungsrubrik(e.ort.rubrik, m_profil);
    };
    const bool noetig = !m_richtung.istLeer() && std::any_of(eintraege.begin(), eintraege.end(), istRechnung);
    for (const QString &gegenueber : noetig ? Vorschlaege(m_db).wartendeGegenueber() : QStringList()) {
        const Eintrag *bester = Lernregeln::passender(eintraege, Lernregeln::schluessel(gegenueber));
        if (bester && istRechnung(*bester))
            vorlesen(gegenueber);
    }
    return aufWartende(eintraege, {}, 0).size();
}

/** @p nurSchluessel restricts to the counterparts that this key meets; empty means all. */
QSet<qint64> Lernspeicher::aufWartende(const QList<Eintrag> &eintraege, const QString &nurSchluessel, qint64 ausser)
{
    if (eintraege.isEmpty())
        return {};
    Transaktion transaktion(m_db);
    QSet<qint64> geaenderte;
    for (const QString &gegenueber : Vorschlaege(m_db).wartendeGegenueber()) {
        const QString schluessel = Lernregeln::schluessel(gegenueber);
        if (!nurSchluessel.isEmpty() && !Lernregeln::passt(nurSchluessel, schluessel))
            continue;
        if (const Eintrag *bester = Lernregeln::passender(eintraege, schluessel))
            geaenderte += eintragen(gegenueber, *bester, ausser);
    }
    transaktion.abschliessen();
    return geaenderte;
}

Rechnungsrichtung::Richtung Lernspeicher::richtungVon(qint64 dokument) const
{
    const auto text = Texte(m_db).text(dokument);
    return text ? m_richtung.erkennen(*text) : Rechnungsrichtung::Richtung::Unbekannt;
}

void Lernspeicher::vorlesen(const Angaben &angaben, const QString &vorher)
{
    const auto ohneRegel = [this](const Eintrag &e) {
        return !Rechnungsrichtung::istRechnungsrubrik(e.ort.rubrik, m_profil);
    };
    const QString alt = Lernregeln::schluessel(vorher);
    Eintrag neuer;
    neuer.schluessel = Lernregeln::schluessel(angaben.gegenueber);
    neuer.ort.rubrik = angaben.ort.rubrik;
    QList<Eintrag> rechnungen = m_richtung.istLeer() ? QList<Eintrag>() : alle() << neuer;
    rechnungen.removeIf(ohneRegel);
    for (const QString &gegenueber : rechnungen.isEmpty() ? QStringList() : Vorschlaege(m_db).wartendeGegenueber()) {
        QString schluessel = Lernregeln::schluessel(gegenueber);
        if (schluessel == alt)
            schluessel = neuer.schluessel; // which it will have by the time its place is looked for
        const auto gemeint = [&](const Eintrag &e) { return Lernregeln::passt(e.schluessel, schluessel); };
        if (Lernregeln::passt(neuer.schluessel, schluessel) &&
            std::any_of(rechnungen.begin(), rechnungen.end(), gemeint))
            vorlesen(gegenueber);
    }
}

/** The hash is read first: a text that changes afterwards does not have it. */
void Lernspeicher::vorlesen(const QString &gegenueber)
{
    for (const auto &wartendes : Vorschlaege(m_db).wartendeVon(gegenueber))
        m_erkannt.insert(wartendes.id, {.textHash = wartendes.textHash, .richtung = richtungVon(wartendes.id)});
}

/** The taught rubric, or the invoice rubric that the document's text proves in its stead. */
QString Lernspeicher::rubrikFuer(qint64 dokument, const QString &textHash, const QString &gelernte) const
{
    if (m_richtung.istLeer() || !Rechnungsrichtung::istRechnungsrubrik(gelernte, m_profil))
        return gelernte;
    const auto bekannt = m_erkannt.constFind(dokument);
    const bool gilt = bekannt != m_erkannt.constEnd() && bekannt->textHash == textHash;
    const auto richtung = gilt ? bekannt->richtung : richtungVon(dokument);
    return Rechnungsrichtung::berichtigt(gelernte, richtung, m_profil).value_or(gelernte);
}

/** Gives the waiting documents of @p gegenueber the place of @p eintrag; returns those that changed. */
QSet<qint64> Lernspeicher::eintragen(const QString &gegenueber, const Eintrag &eintrag, qint64 ausser)
{
    Vorschlaege vorschlaege(m_db);
    const QString name = Lernregeln::darfErsetzen(eintrag.anzeige, gegenueber) ? eintrag.anzeige : gegenueber;
    QSet<qint64> geaenderte;
    for (const auto &wartendes : vorschlaege.wartendeVon(gegenueber)) {
        if (wartendes.id == ausser)
            continue;
        Ort ort = eintrag.ort;
        ort.rubrik = rubrikFuer(wartendes.id, wartendes.textHash, eintrag.ort.rubrik);
        if (name == gegenueber && wartendes.ort == ort)
            continue;
        vorschlaege.setzeGelernt(wartendes.id, name, ort, eintrag.schluessel);
        geaenderte << wartendes.id;
    }
    return geaenderte;
}

QSet<qint64> Lernspeicher::namenAngleichen(const QString &von, const QString &nach, qint64 ausser)
{
    Transaktion transaktion(m_db);
    Vorschlaege vorschlaege(m_db);
    QSet<qint64> geaenderte;
    for (const QString &gegenueber : vorschlaege.wartendeGegenueber()) {
        if (gegenueber == nach || Lernregeln::schluessel(gegenueber) != von)
            continue;
        for (const auto &wartendes : vorschlaege.wartendeVon(gegenueber)) {
            if (wartendes.id == ausser)
                continue;
            vorschlaege.setzeGelerntenNamen(wartendes.id, nach, von);
            geaenderte << wartendes.id;
        }
    }
    transaktion.abschliessen();
    return geaenderte;
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

void Lernspeicher::leeren() { Gelerntes(m_db).leeren(); }

void Lernspeicher::vergessen(const QString &schluessel) { Gelerntes(m_db).zuordnungStreichen(schluessel); }

void Lernspeicher::gleichungVergessen(const QString &von) { Gelerntes(m_db).gleichungStreichen(von); }
} // namespace quillmar::lernen
