#include "nachrechnung.h"

#include "lernregeln.h"
#include "texte.h"
#include "transaktion.h"
#include "vorschlaege.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::lernen
{
namespace
{
/** The reviewer has begun to decide where it goes, or who it is from. */
bool istAngefangen(const QString &entwurf)
{
    if (entwurf.isEmpty())
        return false;
    const QJsonObject felder = QJsonDocument::fromJson(entwurf.toUtf8()).object();
    const QStringList namen = {u"gegenueber"_s, u"zweig"_s, u"ablage"_s, u"rubrik"_s};
    return std::any_of(namen.begin(), namen.end(), [&](const QString &name) { return felder.contains(name); });
}
} // namespace

QStringList Nachrechnung::betroffene(const QStringList &schluessel) const
{
    QStringList namen = Vorschlaege(m_db).wartendeGegenueber();
    if (schluessel.isEmpty())
        return namen;
    namen.removeIf([&](const QString &name) {
        const QString eigener = Lernregeln::schluessel(name);
        return std::none_of(schluessel.begin(), schluessel.end(), [&](const QString &s) {
            return Lernregeln::passt(s, eigener) || Lernregeln::istVerlesen(eigener, s);
        });
    });
    return namen;
}

QSet<qint64> Nachrechnung::rechnen(const QStringList &schluessel, Urteiler::Anlass anlass, qint64 ausser)
{
    Transaktion transaktion(m_db);
    Urteiler urteiler(m_db, m_profil, m_regeln);
    QSet<qint64> geaenderte;
    for (const QString &gegenueber : betroffene(schluessel)) {
        for (const auto &wartendes : Modellantworten(m_db).wartendeVon(gegenueber)) {
            if (wartendes.id != ausser && !istAngefangen(wartendes.entwurf) && eines(urteiler, wartendes, anlass))
                geaenderte << wartendes.id;
        }
    }
    transaktion.abschliessen();
    return geaenderte;
}

/** What an earlier version has classified tells by its columns what the model said. */
Modellantwort Nachrechnung::antwortVon(const Urteiler &urteiler, const Modellantworten::Wartendes &w) const
{
    if (w.antwort && m_regeln.vomModellAus)
        return *w.antwort;
    const bool gelernt = w.ortQuelle == u"gelernt"_s;
    const bool hatModellort = !w.modellOrt.zweig.isEmpty();
    const Ort ort = gelernt && hatModellort ? w.modellOrt : w.ort;
    return {.gegenueber = w.gegenueber,
            .ort = ort,
            .konfidenz = w.konfidenz,
            .ortQuelle = gelernt ? u"modell"_s : w.ortQuelle,
            .sicher = !gelernt && urteiler.istSicher(ort, w.konfidenz)};
}

/** By the memory, then by the direction of invoices. */
Urteiler::Urteil Nachrechnung::urteil(Urteiler &urteiler, const Modellantworten::Wartendes &w,
                                      const Modellantwort &antwort, Urteiler::Anlass anlass) const
{
    const auto worte = [&] {
        return antwort.worte.isEmpty() ? Wortstimmen::worte(Texte(m_db).text(w.id).value_or(QString())) : antwort.worte;
    };
    Urteiler::Urteil urteil = urteiler.urteilen(antwort, anlass, worte);
    urteil.ort.rubrik = rubrikFuer(w, urteil.ort.rubrik);
    return urteil;
}

Nachrechnung::Vorschlag Nachrechnung::vorschlag(const Modellantworten::Wartendes &w) const
{
    Urteiler urteiler(m_db, m_profil, m_regeln);
    const auto u = urteil(urteiler, w, antwortVon(urteiler, w), Urteiler::Anlass::Nachrechnen);
    return {.gegenueber = u.gegenueber, .ort = u.ort};
}

bool Nachrechnung::eines(Urteiler &urteiler, const Modellantworten::Wartendes &w, Urteiler::Anlass anlass)
{
    Modellantwort antwort = antwortVon(urteiler, w);
    const Urteiler::Urteil urteil = this->urteil(urteiler, w, antwort, anlass);
    const Modellantworten::Werte werte{.gegenueber = urteil.gegenueber,
                                       .ort = urteil.ort,
                                       .konfidenz = urteil.konfidenz,
                                       .ortQuelle =
                                           urteil.ortGelernt || urteil.nameGelernt ? u"gelernt"_s : antwort.ortQuelle,
                                       .gelerntVon = urteil.von};
    const bool anders = werte.gegenueber != w.gegenueber || werte.ort != w.ort;
    const bool gleich = werte.ortQuelle == w.ortQuelle && werte.gelerntVon == w.gelerntVon &&
                        urteil.stimme.wort == w.stimmwort && qFuzzyCompare(1 + werte.konfidenz, 1 + w.konfidenz);
    if (!anders && gleich)
        return false;
    // One whose own certain place has come to its own again gives way to corrections only, as before.
    antwort.sicher = antwort.sicher || (!urteil.ortGelernt && urteiler.istSicher(antwort.ort, antwort.konfidenz));
    eintragen(w, antwort, werte, urteil);
    if (anlass == Urteiler::Anlass::Anwenden)
        Modellantworten(m_db).oeffnen(w.id);
    return anders;
}

void Nachrechnung::eintragen(const Modellantworten::Wartendes &w, const Modellantwort &antwort,
                             const Modellantworten::Werte &werte, const Urteiler::Urteil &urteil)
{
    Modellantworten antworten(m_db);
    if (!w.antwort || antwort.sicher != w.antwort->sicher)
        antworten.speichern(w.id, antwort);
    antworten.schreiben(w.id, werte);
    antworten.setzeStimme(w.id, urteil.stimme.wort, urteil.stimme.dokumente);
}

Rechnungsrichtung::Richtung Nachrechnung::richtungVon(qint64 dokument) const
{
    const auto text = Texte(m_db).text(dokument);
    return text ? m_richtung.erkennen(*text) : Rechnungsrichtung::Richtung::Unbekannt;
}

void Nachrechnung::vorlesen(const QStringList &schluessel, const QString &rubrik)
{
    if (m_richtung.istLeer())
        return;
    Urteiler urteiler(m_db, m_profil, m_regeln);
    const auto istRechnung = [this](const QString &r) { return Rechnungsrichtung::istRechnungsrubrik(r, m_profil); };
    const auto hatRechnung = [&](const QString &s) {
        const auto eintrag = urteiler.eintrag(s);
        const QList<Ortszahl> orte = eintrag ? urteiler.orte(*eintrag) : QList<Ortszahl>();
        return std::any_of(orte.begin(), orte.end(), [&](const Ortszahl &o) { return istRechnung(o.ort.rubrik); });
    };
    if (!istRechnung(rubrik) && std::none_of(schluessel.begin(), schluessel.end(), hatRechnung))
        return;
    for (const QString &gegenueber : betroffene(schluessel)) {
        // The hash is read first: a text that changes afterwards does not have it.
        for (const auto &w : Modellantworten(m_db).wartendeVon(gegenueber))
            m_erkannt.insert(w.id, {.textHash = w.textHash, .richtung = richtungVon(w.id)});
    }
}

QString Nachrechnung::rubrikFuer(const Modellantworten::Wartendes &w, const QString &gelernte) const
{
    if (m_richtung.istLeer() || !Rechnungsrichtung::istRechnungsrubrik(gelernte, m_profil))
        return gelernte;
    const auto erkannt = m_erkannt.constFind(w.id);
    const bool gueltig = erkannt != m_erkannt.constEnd() && erkannt->textHash == w.textHash;
    const auto richtung = gueltig ? erkannt->richtung : richtungVon(w.id);
    return Rechnungsrichtung::berichtigt(gelernte, richtung, m_profil).value_or(gelernte);
}
} // namespace quillmar::lernen
