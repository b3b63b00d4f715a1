#include "seitenbelege.h"

#include "dokumente.h"
#include "durchgang.h"
#include "fehler.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "seitenlagen.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
constexpr int vorausDokumente = 3;

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

/** Pages as they are to be read: upright. */
QList<Wortfolge> aufrechte(QList<Seitenworte> worte, const QMap<int, int> &drehungen)
{
    for (int seite = 0; seite < worte.size(); ++seite)
        worte[seite] = gedreht(worte.at(seite), drehungen.value(seite + 1));
    return wortfolgen(worte);
}

QStringList eigeneWorte(const Profil &profil)
{
    QStringList worte;
    for (const QString &name : profil.eigeneNamen)
        worte << gefaltet(name, Faltung::Namen).split(u' ', Qt::SkipEmptyParts);
    return worte;
}

/** The documents that wait behind the one with @p id. */
QList<Dokument> naechste(Datenbank &db, qint64 id)
{
    QList<Dokument> liste;
    auto naechstes = Dokumente(db).naechstes(id, Richtung::Weiter);
    while (naechstes && naechstes->id != id && liste.size() < vorausDokumente) {
        liste << *naechstes;
        naechstes = Dokumente(db).naechstes(naechstes->id, Richtung::Weiter);
    }
    return liste;
}

/** Children that read for the eye give way to whatever else runs. */
Lesegrenzen nachrangig()
{
    Lesegrenzen grenzen;
    grenzen.nachrangig = true;
    return grenzen;
}

/** Recognised once, so that it is there when it comes under review; if it cannot be, that shows then. */
void merken(Datenbank &db, const Dokument &dokument, Wortlagen::Erkennung wie, const Wortspeicher &speicher,
            const std::stop_token &ende)
{
    wie.drehungen = Seitenlagen(db).drehungen(dokument.id);
    try {
        Q_UNUSED(Wortlagen::lesen(dokument.pfad, false, wie, speicher, nachrangig(), ende));
    } catch (const Fehler &) {
        return;
    }
}
} // namespace

/** What was read of a document, and what follows from it. */
struct Seitenbelege::Gelesen {
    QString pfad;
    QList<Seitenworte> worte; ///< as the pages lie
    QList<Wortfolge> folgen;  ///< upright

    /** Blocks. Throws as Wortlagen::lesen() does. */
    Gelesen(const Quelle &quelle, const Wortspeicher &speicher, const std::stop_token &ende)
        : pfad(quelle.pfad), worte(Wortlagen::lesen(quelle.pfad, quelle.textebene, quelle.wie, speicher,
                                                    quelle.textebene ? Lesegrenzen() : nachrangig(), ende)),
          folgen(aufrechte(worte, quelle.wie.drehungen))
    {
    }

    /** One box for each line of the passage. */
    [[nodiscard]] Seitenmarke marke(const Fundstelle &stelle, Feld feld) const
    {
        const Wortfolge &folge = folgen.at(stelle.seite);
        Seitenmarke marke{.seite = stelle.seite, .orte = {}, .feld = feld};
        for (qsizetype i = stelle.wort; i < stelle.wort + stelle.worte; ++i) {
            const QRectF &ort = worte.at(stelle.seite).at(i).ort;
            if (i > stelle.wort && folge.zeile(i) == folge.zeile(i - 1))
                marke.orte.last() |= ort;
            else
                marke.orte << ort;
        }
        return marke;
    }
    QList<Angebot> daten;
    QList<Angebot> namen;
    QList<Angebot> titel;
};

QString Seitenbelege::pfad() const { return m_gelesen ? m_gelesen->pfad : QString(); }

QList<Seitenworte> Seitenbelege::worte() const { return m_gelesen ? m_gelesen->worte : QList<Seitenworte>(); }

QString Seitenbelege::partnerPfad() const { return m_partner ? m_partner->pfad : QString(); }

QList<Seitenworte> Seitenbelege::partnerWorte() const { return m_partner ? m_partner->worte : QList<Seitenworte>(); }

Seitenbelege::Seitenbelege(Pruefung *pruefung, Profilwahl *profilwahl, const Durchgang *durchgang)
    : m_pruefung(pruefung), m_profilwahl(profilwahl), m_durchgang(durchgang), m_lesefrage(this), m_belegfrage(this),
      m_partnerfrage(this), m_vorausfrage(this)
{
    connect(pruefung, &Pruefung::aktuellesGeaendert, this, &Seitenbelege::dokumentPruefen);
    connect(pruefung, &Pruefung::vorausGeaendert, this, &Seitenbelege::dokumentPruefen);
    connect(pruefung, &Pruefung::angabenGeaendert, this, [this] {
        dokumentPruefen();
        belegeRechnen();
    });
    // A run goes first.
    connect(durchgang, &Durchgang::laufGeaendert, this, [this] {
        if (m_durchgang->laeuft())
            m_vorausfrage.verwerfen();
    });
    connect(durchgang, &Durchgang::laufBeendet, this, &Seitenbelege::vorauslesen);
    connect(profilwahl, &Profilwahl::gewechselt, this, [this] { m_vorausfrage.verwerfen(); });
    connect(pruefung, &Pruefung::partnerZeigenGeaendert, this, &Seitenbelege::partnerPruefen);
}

std::optional<Seitenbelege::Quelle> Seitenbelege::quelleVon(const Dokument *dokument) const
{
    const Profil *profil = m_profilwahl->aktiv();
    if (!dokument || !profil)
        return std::nullopt;
    return Quelle{.pfad = dokument->pfad,
                  .textebene = dokument->hatTextebene,
                  .wie = {.seiten = profil->seiten,
                          .sprache = profil->ocrSprache,
                          .drehungen = m_pruefung->drehungen().value(dokument->pfad)}};
}

/** Another document, another file for it, or pages that were turned. */
void Seitenbelege::dokumentPruefen()
{
    const auto quelle = quelleVon(m_pruefung->aktuelles());
    if (quelle == m_quelle)
        return;
    const bool andereDatei = !quelle || !m_quelle || quelle->pfad != m_quelle->pfad;
    m_quelle = quelle;
    m_lesefrage.verwerfen();
    m_vorausfrage.verwerfen();
    if (andereDatei)
        uebernehmen(nullptr);
    if (quelle)
        lesen(*quelle);
}

void Seitenbelege::lesen(const Quelle &quelle)
{
    m_lesefrage.stellen(
        [quelle, speicher = m_speicher, eigene = eigeneWorte(*m_profilwahl->aktiv())](const std::stop_token &ende) {
            auto gelesen = std::make_shared<Gelesen>(quelle, speicher, ende);
            gelesen->daten = Angebote::daten(gelesen->folgen);
            gelesen->namen = Angebote::namen(gelesen->folgen, eigene);
            gelesen->titel = Angebote::titel(gelesen->folgen);
            return Lesung(gelesen);
        },
        [this](const Ausgang<Lesung> &ausgang) {
            // A file that cannot be read has no words; the preview says why.
            uebernehmen(ausgang.wert.value_or(nullptr));
            vorauslesen();
        });
}

void Seitenbelege::uebernehmen(const Lesung &gelesen)
{
    m_gelesen = gelesen;
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
            return belege(gelesen->folgen, a.datum.trimmed(), a.gegenueber, a.titel);
        },
        [this](const Ausgang<Belege> &ausgang) {
            if (!ausgang.wert || *ausgang.wert == m_belege)
                return;
            m_belege = *ausgang.wert;
            Q_EMIT belegeGeaendert();
        });
}

/** The words of the next documents whose text was recognised, so that they are there when these come. */
void Seitenbelege::vorauslesen()
{
    const Dokument *dokument = m_pruefung->aktuelles();
    if (!dokument || !m_profilwahl->kannHandeln() || m_durchgang->laeuft())
        return;
    const auto vorlage = quelleVon(dokument);
    m_vorausfrage.stellen(
        [db = m_profilwahl->offenes()->db(), id = dokument->id, speicher = m_speicher,
         wie = vorlage->wie](const std::stop_token &ende) {
            for (const Dokument &naechstes : naechste(*db, id)) {
                if (!naechstes.hatTextebene && !ende.stop_requested())
                    merken(*db, naechstes, wie, speicher, ende);
            }
            return true;
        },
        [](const Ausgang<bool> &) {});
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
    QList<Angebot> angebote;
    if (feld == Feld::Datum)
        angebote = m_gelesen->daten;
    else if (feld == Feld::Gegenueber)
        angebote = m_gelesen->namen;
    else if (feld == Feld::Titel)
        angebote = m_gelesen->titel;
    QList<Feldangebot> fuerFeld;
    for (const Angebot &angebot : std::as_const(angebote))
        fuerFeld << Feldangebot{
            .wert = angebot.wert, .umfeld = angebot.umfeld, .marke = m_gelesen->marke(angebot.stelle, feld)};
    return fuerFeld;
}

QString Seitenbelege::uebernommen(Feld feld, const QString &text) const
{
    switch (feld) {
    case Feld::Datum:
        return Uebernahme::alsDatum(text);
    case Feld::Gegenueber:
        return Uebernahme::alsGegenueber(text);
    default:
        return text.simplified();
    }
}

QString Seitenbelege::gewaehlt(Feld feld, const Feldangebot &angebot) const
{
    const Dokument *dokument = m_pruefung->aktuelles();
    const bool istBetreff = angebot.umfeld == angebot.wert;
    if (feld != Feld::Titel || istBetreff || !dokument)
        return angebot.wert;
    return Uebernahme::zahlImTitel(dokument->angaben.titel, angebot.wert, m_belege.fehlendeZahlen);
}

void Seitenbelege::partnerPruefen()
{
    const auto quelle = quelleVon(m_pruefung->aehnliches());
    if (!quelle || !m_gelesen) {
        m_partnerfrage.verwerfen();
        return partnerUebernehmen(nullptr, {});
    }
    if (!m_pruefung->partnerZeigen() || quelle->pfad == partnerPfad())
        return;
    using Vergleich = std::pair<Lesung, Unterschiede>;
    m_partnerfrage.stellen(
        [quelle = *quelle, gelesen = m_gelesen, speicher = m_speicher](const std::stop_token &ende) {
            const auto partner = std::make_shared<const Gelesen>(quelle, speicher, ende);
            return Vergleich{partner, fundstellen::unterschiede(gelesen->folgen, partner->folgen)};
        },
        [this](const Ausgang<Vergleich> &ausgang) {
            if (ausgang.wert)
                partnerUebernehmen(ausgang.wert->first, ausgang.wert->second);
        });
}

void Seitenbelege::partnerUebernehmen(const Lesung &gelesen, const Unterschiede &unterschiede)
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
