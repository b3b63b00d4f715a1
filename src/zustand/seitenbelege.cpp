#include "seitenbelege.h"

#include "durchgang.h"
#include "offenesprofil.h"
#include "profilwahl.h"

namespace quillmar::zustand
{
namespace
{
Feld feldVon(Wert wert)
{
    switch (wert) {
    case Wert::Datum:
        return Feld::Datum;
    case Wert::Gegenueber:
        return Feld::Gegenueber;
    case Wert::Titel:
        break;
    }
    return Feld::Titel;
}
} // namespace

QString Seitenbelege::pfad() const { return m_gelesen ? m_gelesen->auftrag().quelle.pfad : QString(); }

QList<Seitenworte> Seitenbelege::worte() const
{
    return m_gelesen ? m_weitere.angehaengt(m_gelesen->worte()) : QList<Seitenworte>();
}

QString Seitenbelege::partnerPfad() const { return m_partner ? m_partner->auftrag().quelle.pfad : QString(); }

QList<Seitenworte> Seitenbelege::partnerWorte() const { return m_partner ? m_partner->worte() : QList<Seitenworte>(); }

Seitenbelege::Seitenbelege(Pruefung *pruefung, Profilwahl *profilwahl, const Durchgang *durchgang)
    : m_pruefung(pruefung), m_profilwahl(profilwahl), m_durchgang(durchgang), m_lesefrage(this), m_belegfrage(this),
      m_partnerfrage(this), m_voraus(this), m_weitere(this)
{
    connect(pruefung, &Pruefung::aktuellesGeaendert, this, [this] {
        dokumentPruefen();
        belegeRechnen();
    });
    connect(pruefung, &Pruefung::ungesehenGeaendert, this, &Seitenbelege::lesenWennGesehen);
    connect(pruefung, &Pruefung::vorausGeaendert, this, &Seitenbelege::dokumentPruefen);
    connect(pruefung, &Pruefung::angabenGeaendert, this, [this] {
        dokumentPruefen();
        belegeRechnen();
    });
    // A run goes first.
    connect(durchgang, &Durchgang::laufGeaendert, this, [this] {
        if (m_durchgang->laeuft())
            vorausAbbrechen();
    });
    connect(durchgang, &Durchgang::laufBeendet, this, &Seitenbelege::vorauslesen);
    connect(profilwahl, &Profilwahl::gewechselt, this, &Seitenbelege::vorausAbbrechen);
    connect(&m_voraus, &Vorauslesung::fertig, this, [this](const Leseauftrag &auftrag) {
        if (auftrag == m_auftrag)
            lesenWennGesehen(); // it came under review meanwhile
    });
    connect(&m_weitere, &Weitereworte::geaendert, this, &Seitenbelege::worteGeaendert);
    connect(pruefung, &Pruefung::partnerZeigenGeaendert, this, &Seitenbelege::partnerPruefen);
    connect(pruefung, &Pruefung::partnerZeigenGeaendert, this, &Seitenbelege::lesenWennGesehen);
}

std::optional<Leseauftrag> Seitenbelege::auftragFuer(const Dokument *dokument) const
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!dokument || !profil)
        return std::nullopt;
    const Wortlagen::Erkennung wie{.seiten = {.erste = 1, .letzte = profil->seiten},
                                   .sprache = profil->ocrSprache,
                                   .drehungen = m_pruefung->drehungen().value(dokument->pfad)};
    return Leseauftrag{.quelle = {.pfad = dokument->pfad, .textebene = dokument->hatTextebene, .wie = wie},
                       .eigene = profil->eigeneNamen};
}

/** Another document, another file for it, or pages that were turned. */
void Seitenbelege::dokumentPruefen()
{
    const auto auftrag = auftragFuer(m_pruefung->aktuelles());
    if (auftrag == m_auftrag)
        return;
    const bool andereDatei = !auftrag || !m_auftrag || auftrag->quelle.pfad != m_auftrag->quelle.pfad;
    m_auftrag = auftrag;
    m_lesefrage.verwerfen();
    if (andereDatei) {
        uebernehmen(nullptr);
        m_weitere.imBlick({}, 0);
    }
    m_ausstehend = auftrag.has_value();
    if (auftrag && m_voraus.liest(*auftrag))
        return; // to begin anew would take longer
    m_voraus.abbrechen();
    // The card has yet to say whether it has painted that page already.
    QMetaObject::invokeMethod(this, &Seitenbelege::lesenWennGesehen, Qt::QueuedConnection);
}

void Seitenbelege::lesenWennGesehen()
{
    const bool zuSehen = !m_pruefung->ungesehen() || m_pruefung->partnerZeigen();
    if (m_ausstehend && zuSehen && !m_voraus.liest(*m_auftrag))
        lesen();
}

void Seitenbelege::lesen()
{
    m_ausstehend = false;
    m_lesefrage.stellen(
        [auftrag = *m_auftrag, bereite = m_voraus.bereit(*m_auftrag),
         speicher = m_speicher](const std::stop_token &ende) {
            return bereite && bereite->istAktuell() ? bereite : std::make_shared<const Lesung>(auftrag, speicher, ende);
        },
        [this](const Ausgang<Lesungszeiger> &ausgang) {
            // A file that cannot be read has no words; the preview says why.
            uebernehmen(ausgang.wert.value_or(nullptr));
            vorauslesen();
        });
}

void Seitenbelege::uebernehmen(const Lesungszeiger &gelesen)
{
    m_gelesen = gelesen;
    if (gelesen)
        m_weitere.beginnen(m_auftrag->quelle);
    else
        m_weitere.vergessen();
    m_belege = {};
    m_belegfrage.verwerfen();
    // What differs is told by places among the words before.
    m_partnerfrage.verwerfen();
    partnerUebernehmen(nullptr, {});
    Q_EMIT worteGeaendert();
    Q_EMIT belegeGeaendert();
    belegeRechnen();
    partnerPruefen();
}

void Seitenbelege::belegeRechnen()
{
    const Dokument *dokument = m_pruefung->aktuelles();
    if (!dokument || !m_gelesen)
        return;
    m_belegfrage.stellen(
        [gelesen = m_gelesen, a = dokument->angaben] {
            return gelesen->istAktuell()
                       ? std::optional(belege(gelesen->folgen(), a.datum.trimmed(), a.gegenueber, a.titel))
                       : std::nullopt;
        },
        [this](const Ausgang<std::optional<Belege>> &ausgang) {
            if (!ausgang.wert || *ausgang.wert == m_belege)
                return;
            if (!*ausgang.wert)
                return neuLesen();
            m_belege = **ausgang.wert;
            Q_EMIT belegeGeaendert();
        });
}

/** Another file lies there now. */
void Seitenbelege::neuLesen()
{
    uebernehmen(nullptr);
    m_ausstehend = m_auftrag.has_value();
    lesenWennGesehen();
}

/** The words of the next documents whose text was recognised, so that they are there when these come. */
void Seitenbelege::vorauslesen()
{
    const Dokument *dokument = m_pruefung->aktuelles();
    if (dokument && m_profilwahl->kannHandeln())
        m_voraus.beginnen(m_profilwahl->offenes()->db(), dokument->id, *auftragFuer(dokument), m_durchgang->laeuft());
    lesenWennGesehen(); // what was waited for is not on its way any more
}

void Seitenbelege::vorausAbbrechen()
{
    m_voraus.abbrechen();
    lesenWennGesehen();
}

void Seitenbelege::imBlick(const QString &pfad, int erste, int letzte, int seiten)
{
    if (m_auftrag && pfad == m_auftrag->quelle.pfad)
        m_weitere.imBlick({.erste = erste, .letzte = letzte}, seiten);
}

QList<Seitenmarke> Seitenbelege::marken() const
{
    QList<Seitenmarke> marken;
    for (const Beleg &beleg : m_belege.stellen)
        marken << m_gelesen->marke(beleg.stelle, feldVon(beleg.wert));
    return marken;
}

QList<Feld> Seitenbelege::fehlende() const
{
    QList<Feld> felder;
    if (m_belege.datumFehlt)
        felder << Feld::Datum;
    if (m_belege.gegenueberFehlt)
        felder << Feld::Gegenueber;
    if (!m_belege.fehlendeZahlen.isEmpty())
        felder << Feld::Titel;
    return felder;
}

QList<Feldangebot> Seitenbelege::angebote(Feld feld) const
{
    if (!m_gelesen)
        return {};
    QList<Feldangebot> fuerFeld;
    for (const Angebot &angebot : m_gelesen->angebote(feld))
        fuerFeld << Feldangebot{.wert = angebot.wert,
                                .umfeld = angebot.umfeld,
                                .marke = m_gelesen->marke(angebot.stelle, feld),
                                .istZahl = angebot.istZahl};
    return fuerFeld;
}

QString Seitenbelege::uebernommen(Feld feld, const Wortgriff &griff) const
{
    switch (feld) {
    case Feld::Datum:
        return datumAus(griff);
    case Feld::Gegenueber:
        return Uebernahme::alsGegenueber(griff.text);
    case Feld::Jahr:
        return datumAus(griff).section(u'-', 0, 0);
    default:
        return griff.text.simplified();
    }
}

/** Of a word of a date all of it, as far as the words around are known. */
QString Seitenbelege::datumAus(const Wortgriff &griff) const
{
    const bool bekannt = griff.worte > 0 && m_gelesen && griff.seite < m_gelesen->folgen().size();
    const bool passt = bekannt && griff.wort + griff.worte <= m_gelesen->folgen().at(griff.seite).worte().size();
    return passt ? Uebernahme::alsDatum(m_gelesen->folgen().at(griff.seite), griff.wort, griff.worte)
                 : Uebernahme::alsDatum(griff.text);
}

QString Seitenbelege::gewaehlt(const Feldangebot &angebot) const
{
    const Dokument *dokument = m_pruefung->aktuelles();
    if (!angebot.istZahl || !dokument)
        return angebot.wert;
    return Uebernahme::zahlImTitel(dokument->angaben.titel, angebot.wert, m_belege.fehlendeZahlen);
}

void Seitenbelege::partnerPruefen()
{
    const auto auftrag = auftragFuer(m_pruefung->aehnliches());
    if (!auftrag || !m_gelesen) {
        m_partnerfrage.verwerfen();
        return partnerUebernehmen(nullptr, {});
    }
    if (!m_pruefung->partnerZeigen() || auftrag->quelle.pfad == partnerPfad())
        return;
    using Vergleich = std::pair<Lesungszeiger, Unterschiede>;
    m_partnerfrage.stellen(
        [auftrag = *auftrag, gelesen = m_gelesen, speicher = m_speicher](const std::stop_token &ende) {
            const auto partner = std::make_shared<const Lesung>(auftrag, speicher, ende);
            return Vergleich{partner, fundstellen::unterschiede(gelesen->folgen(), partner->folgen())};
        },
        [this](const Ausgang<Vergleich> &ausgang) {
            if (ausgang.wert)
                partnerUebernehmen(ausgang.wert->first, ausgang.wert->second);
        });
}

void Seitenbelege::partnerUebernehmen(const Lesungszeiger &gelesen, const Unterschiede &unterschiede)
{
    if (gelesen == m_partner)
        return;
    m_partner = gelesen;
    m_unterschiede = unterschiede;
    Q_EMIT partnerGeaendert();
}

QList<Seitenmarke> Seitenbelege::unterschiede(bool partner) const
{
    QList<Seitenmarke> marken;
    if (!m_partner || !m_gelesen)
        return marken;
    for (const Fundstelle &stelle : partner ? m_unterschiede.rechts : m_unterschiede.links)
        marken << (partner ? m_partner : m_gelesen)->marke(stelle, Feld::Titel);
    return marken;
}
} // namespace quillmar::zustand
