#include "pruefung.h"

#include "einordnung.h"
#include "meldestelle.h"
#include "oeffnung.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "seitenlagen.h"
#include "sprache.h"
#include "text.h"
#include "ziel.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
Pruefung::Pruefung(Profilwahl *profilwahl, Meldestelle *meldestelle)
    : m_profilwahl(profilwahl), m_meldestelle(meldestelle), m_blickfrage(this), m_bekanntenfrage(this)
{
    connect(m_profilwahl, &Profilwahl::gewechselt, this, &Pruefung::blickVerwerfen);
    connect(m_profilwahl, &Profilwahl::gewechselt, this, [this] {
        m_bekanntenfrage.verwerfen();
        m_bekannte.clear();
    });
    connect(m_profilwahl, &Profilwahl::eingetreten, this, &Pruefung::eintreten);
    connect(m_profilwahl, &Profilwahl::einstellungenGeaendert, this, [this] {
        if (m_stueck)
            Q_EMIT angabenGeaendert();
    });
}

Pruefung::~Pruefung() { m_entwuerfe.sichern(); }

void Pruefung::eintreten(const Oeffnung &gefunden)
{
    if (const OffenesProfil *offenes = m_profilwahl->offenes())
        m_entwuerfe.wechseln(offenes->profil().id, offenes->db(), gefunden.entwuerfe);
    else
        m_entwuerfe.schliessen();
    zeigen(gefunden.blick);
}

QList<Pruefhinweis> Pruefung::pruefhinweise() const
{
    const Profil *profil = m_profilwahl->aktiv();
    return m_stueck && profil ? zustand::pruefhinweise(*m_stueck, *profil) : QList<Pruefhinweis>();
}

const Dokument *Pruefung::aehnliches() const { return m_stueck && m_stueck->aehnlich ? &*m_stueck->aehnlich : nullptr; }

void Pruefung::setzePartnerZeigen(bool zeigen)
{
    const bool neu = zeigen && aehnliches();
    if (neu == m_partnerZeigen)
        return;
    m_partnerZeigen = neu;
    Q_EMIT partnerZeigenGeaendert();
}

void Pruefung::setzeFeld(Feld feld, const QString &wert)
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!m_stueck || !profil || feldwert(m_stueck->dokument.angaben, feld) == wert)
        return;
    if (!angabenFest())
        m_entwuerfe.aendern(m_stueck->dokument.id).setzen(m_stueck->dokument.angaben, feld, wert, *profil);
    Q_EMIT angabenGeaendert();
}

void Pruefung::seiteDrehen(int seite, int drehung)
{
    if (!m_stueck || !m_profilwahl->kannHandeln())
        return;
    m_blick.drehungen[m_stueck->dokument.pfad].insert(seite, drehung);
    blickVerwerfen(); // it knows nothing of it
    // A catalogue that cannot be written forgets it, and hinders nothing.
    Hintergrund::starten([db = m_profilwahl->offenes()->db(), id = m_stueck->dokument.id, seite, drehung] {
        Seitenlagen(*db).vonHand(id, seite, drehung);
    });
    Q_EMIT vorausGeaendert();
}

void Pruefung::altenOrtBehalten()
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!m_stueck || !profil || angabenFest())
        return;
    if (const auto ort = heutigerOrt(m_stueck->dokument, *profil)) {
        Dokument &dokument = m_stueck->dokument;
        m_entwuerfe.aendern(dokument.id).setzeOrt(dokument.angaben, *ort, profil->jahrIn(dokument.altOrdner));
        Q_EMIT angabenGeaendert();
    }
}

void Pruefung::bekannteLesen()
{
    if (!m_profilwahl->kannHandeln() || m_bekanntenfrage.laeuft())
        return;
    m_bekanntenfrage.stellen([db = m_profilwahl->offenes()->db()] { return bekannteGegenueber(*db); },
                             [this](const Ausgang<QList<Bekannter>> &ausgang) {
                                 if (!ausgang.wert || *ausgang.wert == m_bekannte)
                                     return;
                                 m_bekannte = *ausgang.wert;
                                 Q_EMIT bekannteGelesen();
                             });
}

void Pruefung::bekanntenWaehlen(const Bekannter &bekannter)
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!m_stueck || !profil || angabenFest())
        return;
    Angaben &angaben = m_stueck->dokument.angaben;
    const Entwurf *entwurf = m_entwuerfe.suchen(m_stueck->dokument.id);
    const bool selbstGesetzt = entwurf && entwurf->hatOrt() && m_mitgebracht != angaben.ort;
    Entwurf &neuer = m_entwuerfe.aendern(m_stueck->dokument.id);
    neuer.setzen(angaben, Feld::Gegenueber, bekannter.name, *profil);
    if (!selbstGesetzt && profil->kennt(bekannter.ort)) {
        neuer.setzeOrt(angaben, bekannter.ort, {});
        m_mitgebracht = bekannter.ort;
    }
    Q_EMIT angabenGeaendert();
}

QString Pruefung::neuerName() const
{
    const Profil *profil = m_profilwahl->aktiv();
    return m_stueck && profil ? Ziel::dateiname(m_stueck->dokument.angaben, m_stueck->dokument.dateiname, *profil)
                              : QString();
}

QStringList Pruefung::zielpfad() const
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!m_stueck || !profil || profil->zielWurzel.isEmpty())
        return {};
    const Angaben &a = m_stueck->dokument.angaben;
    const QString ordner = Ziel::ordner(a.ort, a.jahr.trimmed(), *profil);
    return ordner.mid(QDir::cleanPath(profil->zielWurzel).size()).split(u'/', Qt::SkipEmptyParts);
}

void Pruefung::aktualisieren()
{
    m_profilwahl->nachlesen();
    if (!m_profilwahl->kannHandeln() || m_arbeit != Arbeit::Keine || m_blickfrage.laeuft())
        return;
    const OffenesProfil &offenes = *m_profilwahl->offenes();
    const Wunsch wunsch = Wunsch::behalten(m_stueck ? std::optional(m_stueck->dokument.id) : std::nullopt);
    m_blickfrage.stellen([db = offenes.db(), wunsch] { return Blick::auf(db, wunsch); },
                         [this](const Ausgang<Blick> &ausgang) {
                             if (ausgang.wert)
                                 auffrischen(*ausgang.wert);
                         });
}

/** Nobody here did anything: when the document under review is gone all the same, that is said. */
void Pruefung::auffrischen(const Blick &blick)
{
    const auto vorher = m_stueck;
    const bool durchRegel = blick.ausgenommen > m_blick.ausgenommen; // has its own notice
    zeigen(blick);
    const bool gegangen = vorher && !(m_stueck && m_stueck->dokument.id == vorher->dokument.id);
    if (gegangen && !durchRegel)
        m_meldestelle->melden(
            gefuellt(Sprache::text(u"%@ wartet nicht mehr auf Prüfung"_s), {vorher->dokument.dateiname}),
            Meldestelle::Ton::Ruhig);
}

void Pruefung::zeigen(const Blick &blick)
{
    const Blick vorher = std::exchange(m_blick, blick);
    setzeStueck(blick.aktuelles);
    if (!(vorher.zaehlwerk == blick.zaehlwerk) || vorher.ausgenommen != blick.ausgenommen)
        Q_EMIT zaehlwerkGeaendert();
    if (vorher.voraus != blick.voraus || vorher.drehungen != blick.drehungen)
        Q_EMIT vorausGeaendert();
    if (vorher.ruecknehmbar != blick.ruecknehmbar || vorher.bewegt != blick.bewegt)
        Q_EMIT ruecknehmbarGeaendert();
}

void Pruefung::setzeStueck(std::optional<Pruefstueck> stueck)
{
    if (const Entwurf *entwurf = stueck ? m_entwuerfe.suchen(stueck->dokument.id) : nullptr)
        entwurf->anwenden(stueck->dokument.angaben);
    if (stueck == m_stueck)
        return;
    const bool dasselbe = stueck && m_stueck && stueck->dokument.id == m_stueck->dokument.id;
    m_stueck = std::move(stueck);
    if (dasselbe)
        return Q_EMIT angabenGeaendert();
    m_partnerZeigen = false;
    m_mitgebracht.reset();
    Q_EMIT aktuellesGeaendert();
}

void Pruefung::setzeUngesehen(bool ungesehen)
{
    if (ungesehen != std::exchange(m_ungesehen, ungesehen))
        Q_EMIT ungesehenGeaendert();
}

void Pruefung::setzeArbeit(Arbeit arbeit)
{
    const bool warFest = angabenFest();
    m_arbeit = arbeit;
    if (arbeit != Arbeit::Keine)
        blickVerwerfen();
    if (warFest != angabenFest())
        Q_EMIT angabenFestGeaendert();
}
} // namespace quillmar::zustand
