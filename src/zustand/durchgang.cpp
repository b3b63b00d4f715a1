#include "durchgang.h"

#include "analyse.h"
#include "fehlersatz.h"
#include "katalog.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "vorrang.h"

#include <QTimer>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
using std::chrono::steady_clock;

namespace
{
constexpr auto merklich = 200ms; // what takes longer is named
}

Durchgang::Durchgang(Profilwahl *profilwahl, Modelldienst *modelldienst, Pruefung *pruefung, Meldestelle *meldestelle)
    : m_profilwahl(profilwahl), m_modelldienst(modelldienst), m_pruefung(pruefung), m_meldestelle(meldestelle),
      m_nachlesen(this)
{
    connect(m_profilwahl, &Profilwahl::gewechselt, this, &Durchgang::wechseln);
    connect(m_profilwahl, &Profilwahl::eingetreten, this, &Durchgang::nacharbeitLesen);
    connect(m_modelldienst, &Modelldienst::modellGeprueft, this, &Durchgang::erbetenesStarten);
}

Durchgang::~Durchgang()
{
    if (OffenesProfil *offenes = m_profilwahl->offenes())
        m_auslaufende.push_back(offenes->analyseAbgeben());
    for (const auto &analyse : m_auslaufende)
        analyse->sofortBeenden();
}

void Durchgang::wechseln(OffenesProfil *verlassenes)
{
    if (verlassenes)
        auslaufenLassen(verlassenes->analyseAbgeben());
    m_nachlesen.verwerfen();
    m_lage = {};
    if (const Analyse *neue = analyse())
        folgen(neue);
    Q_EMIT laufGeaendert();
    Q_EMIT nacharbeitGeaendert();
}

/** The run finishes the document in hand; nobody waits for it. */
void Durchgang::auslaufenLassen(std::unique_ptr<Analyse> analyse)
{
    analyse->disconnect(this);
    if (!analyse->laeuft())
        return;
    analyse->abbrechen();
    const Analyse *alt = analyse.get();
    connect(
        alt, &Analyse::beendet, this,
        [this, alt] { std::erase_if(m_auslaufende, [alt](const auto &lauf) { return lauf.get() == alt; }); },
        Qt::QueuedConnection);
    m_auslaufende.push_back(std::move(analyse));
}

void Durchgang::folgen(const Analyse *analyse)
{
    connect(analyse, &Analyse::geaendert, this, [this, analyse] {
        m_lage.bild.nehmen(analyse->stufenname(), analyse->meldung(), steady_clock::now());
        Q_EMIT laufGeaendert();
    });
    connect(analyse, &Analyse::beendet, this, [this, analyse] { fertig(*analyse); });
}

const Analyse *Durchgang::analyse() const
{
    return m_profilwahl->offenes() ? m_profilwahl->offenes()->analyse() : nullptr;
}

bool Durchgang::laeuft() const { return analyse() && analyse()->laeuft(); }

void Durchgang::fertig(const Analyse &analyse)
{
    const bool abgeschlossen = !analyse.abbrechenGewuenscht() && analyse.anteil() >= 1;
    m_lage.bild.enden(abgeschlossen, steady_clock::now());
    m_lage.bild.offenLassen(analyse.fazit().behinderte);
    m_lage.bild.zusammenfassen(analyse.fazit().ergebnisse);
    if (!analyse.hinweise().isEmpty())
        m_meldestelle->melden(analyse.hinweise().join(u", "_s));
    m_pruefung->aktualisieren();
    Q_EMIT laufGeaendert();
    endeLesen({.dauer = m_lage.bild.dauer(steady_clock::now()), .abgeschlossen = abgeschlossen});
}

void Durchgang::endeLesen(Laufende ende)
{
    OffenesProfil *offenes = m_profilwahl->offenes();
    imHintergrund(
        offenes, [db = offenes->db()] { return std::pair(Zaehlwerk::zaehlen(*db).bereit, Nacharbeit::lesen(*db)); },
        [this, ende](const Ausgang<std::pair<qint64, Nacharbeit>> &ausgang) {
            m_lage.ende = ende;
            if (ausgang.wert) {
                setzeNacharbeit(ausgang.wert->second);
                m_lage.ende.bereit = ausgang.wert->first;
                m_lage.ende.gescheitert = m_lage.nacharbeit.gescheiterte.size();
            } else {
                m_meldestelle->melden(fehlersatz(ausgang.fehler));
            }
            Q_EMIT laufBeendet();
        });
}

void Durchgang::durchgangStarten(Art art) { starten(art, nullptr); }

/** @p vorrang if it has been taken already. */
void Durchgang::starten(Art art, const std::shared_ptr<Vorrang> &vorrang)
{
    if (!m_profilwahl->kannHandeln() || laeuft())
        return;
    m_lage.bild.beginnen(steady_clock::now());
    Analyse *analyse = m_profilwahl->offenes()->analyse();
    analyse->setzeProfil(*m_profilwahl->aktiv());
    analyse->allesStarten({.erneut = art == Art::Erneut || art == Art::ErneutLesen,
                           .nurDies = std::exchange(m_lage.nurDies, std::nullopt),
                           .nurLesen = art == Art::NurLesen || art == Art::ErneutLesen,
                           .vorrang = vorrang});
}

void Durchgang::durchgangErbitten(Art art, std::optional<qint64> nurDies)
{
    if (!m_profilwahl->kannHandeln() || laeuft() || startErbeten())
        return;
    m_lage.nurDies = nurDies;
    m_lage.erbeten = art;
    m_lage.wartet = false;
    m_lage.vonSelbst = false;
    Q_EMIT laufGeaendert();
    m_modelldienst->modellPruefen();
    QTimer::singleShot(merklich, m_profilwahl->offenes(), [this] {
        m_lage.wartet = startErbeten();
        if (m_lage.wartet)
            Q_EMIT laufGeaendert();
    });
}

void Durchgang::erbetenesStarten()
{
    const auto art = std::exchange(m_lage.erbeten, std::nullopt);
    const bool vonSelbst = std::exchange(m_lage.vonSelbst, false);
    if (!art)
        return;
    if (vonSelbst)
        return m_modelldienst->modellBereit() ? vonSelbstStarten() : Q_EMIT vonSelbstVerhindert(true);
    if (m_modelldienst->modellBereit())
        durchgangStarten(*art);
    else
        Q_EMIT startFraglich(*art);
    Q_EMIT laufGeaendert();
}

void Durchgang::vonSelbstErbitten()
{
    if (!m_profilwahl->kannHandeln() || laeuft() || m_lage.erbeten)
        return;
    m_lage.erbeten = Art::Ganz;
    m_lage.vonSelbst = true;
    m_modelldienst->modellPruefen();
}

/** Who has asked for nothing is not told that another program is at work: so the right comes first. */
void Durchgang::vonSelbstStarten()
{
    imHintergrund(
        m_profilwahl->offenes(),
        [db = m_profilwahl->offenes()->db()] { return Vorrang::versuchen(*db, Vorrang::Art::Durchgang); },
        [this](const Ausgang<std::shared_ptr<Vorrang>> &ausgang) {
            if (!m_profilwahl->kannHandeln() || laeuft() || m_lage.erbeten)
                return; // the user was faster
            const auto vorrang = ausgang.wert.value_or(nullptr);
            if (!vorrang)
                return Q_EMIT vonSelbstVerhindert(false);
            starten(Art::Ganz, vorrang);
            Q_EMIT vonSelbstBegonnen();
        });
}

void Durchgang::durchgangAnhalten()
{
    if (m_profilwahl->offenes())
        m_profilwahl->offenes()->analyse()->abbrechen();
}

void Durchgang::ausnahmenBeachten(const QStringList &ausnahmen)
{
    if (m_profilwahl->offenes())
        m_profilwahl->offenes()->analyse()->setzeAusnahmen(ausnahmen);
}

void Durchgang::nacharbeitLesen()
{
    if (!m_profilwahl->kannHandeln() || m_nachlesen.laeuft())
        return;
    m_nachlesen.stellen([db = m_profilwahl->offenes()->db()] { return Nacharbeit::lesen(*db); },
                        [this](const Ausgang<Nacharbeit> &ausgang) {
                            if (ausgang.wert)
                                setzeNacharbeit(*ausgang.wert);
                        });
}

void Durchgang::setzeNacharbeit(const Nacharbeit &nacharbeit)
{
    if (nacharbeit == m_lage.nacharbeit)
        return;
    m_lage.nacharbeit = nacharbeit;
    Q_EMIT nacharbeitGeaendert();
}
} // namespace quillmar::zustand
