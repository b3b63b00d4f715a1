#include "analyse.h"
#include "hintergrund.h"
#include "katalog.h"
#include "zustand.h"

#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace
{
constexpr auto merklich = 200ms; // what takes longer is named
}

void Zustand::analyseAnlegen()
{
    m_analyse = std::make_unique<Analyse>(m_db, *m_aktiv);
    m_laufbild = {};
    connect(m_analyse.get(), &Analyse::geaendert, this, [this] {
        m_laufbild.nehmen(m_analyse->stufenname(), m_analyse->meldung(), steady_clock::now());
        Q_EMIT laufGeaendert();
    });
    connect(m_analyse.get(), &Analyse::beendet, this, &Zustand::laufFertig);
    Q_EMIT laufGeaendert();
}

void Zustand::laufFertig()
{
    const bool abgeschlossen = !m_analyse->abbrechenGewuenscht() && m_analyse->anteil() >= 1;
    m_laufbild.enden(abgeschlossen, steady_clock::now());
    m_laufbild.offenLassen(m_analyse->fazit().behinderte);
    if (!m_analyse->hinweise().isEmpty())
        melden(m_analyse->hinweise().join(u", "_s));
    aktualisieren();
    Q_EMIT laufGeaendert();
    laufendeLesen({.dauer = m_laufbild.dauer(steady_clock::now()), .abgeschlossen = abgeschlossen});
}

void Zustand::laufendeLesen(Laufende ende)
{
    imHintergrund(
        this, [db = m_db] { return std::pair(Zaehlwerk::zaehlen(*db).bereit, Nacharbeit::lesen(*db)); },
        [this, ende, nummer = m_oeffnung](const Ausgang<std::pair<qint64, Nacharbeit>> &ausgang) {
            if (nummer != m_oeffnung || !ausgang.wert)
                return;
            nacharbeitSetzen(ausgang.wert->second);
            m_laufende = ende;
            m_laufende.bereit = ausgang.wert->first;
            m_laufende.gescheitert = m_nacharbeit.gescheiterte.size();
            Q_EMIT laufBeendet();
        });
}

/** A run of the former profile finishes the document in hand; nobody waits for it. */
void Zustand::analyseAbloesen()
{
    m_erbeten.reset();
    if (!m_analyse)
        return;
    m_analyse->disconnect(this);
    if (m_analyse->laeuft()) {
        m_analyse->abbrechen();
        const Analyse *alt = m_analyse.get();
        connect(
            alt, &Analyse::beendet, this,
            [this, alt] { std::erase_if(m_auslaufende, [alt](const auto &lauf) { return lauf.get() == alt; }); },
            Qt::QueuedConnection);
        m_auslaufende.push_back(std::move(m_analyse));
    }
    m_analyse.reset();
}

void Zustand::durchgangStarten(Durchgang art)
{
    if (!kannHandeln() || m_analyse->laeuft())
        return;
    m_laufbild.beginnen(steady_clock::now());
    m_analyse->profilSetzen(*m_aktiv);
    m_analyse->allesStarten({.erneut = art == Durchgang::erneut || art == Durchgang::erneutLesen,
                             .nurDies = std::exchange(m_erneutNur, std::nullopt),
                             .nurLesen = art == Durchgang::nurLesen || art == Durchgang::erneutLesen});
}

void Zustand::durchgangErbitten(Durchgang art) { durchgangErbitten(art, std::nullopt); }

void Zustand::durchgangErbitten(Durchgang art, std::optional<qint64> nurDies)
{
    if (!kannHandeln() || m_analyse->laeuft() || m_erbeten)
        return;
    m_erneutNur = nurDies;
    m_erbeten = art;
    m_startWartet = false;
    Q_EMIT laufGeaendert();
    modellPruefen();
    QTimer::singleShot(merklich, this, [this] {
        m_startWartet = m_erbeten.has_value();
        if (m_startWartet)
            Q_EMIT laufGeaendert();
    });
}

void Zustand::erbetenesStarten()
{
    const auto art = std::exchange(m_erbeten, std::nullopt);
    if (!art)
        return;
    if (modellBereit())
        durchgangStarten(*art);
    else
        Q_EMIT startFraglich(*art);
    Q_EMIT laufGeaendert();
}

void Zustand::durchgangAnhalten()
{
    if (m_analyse)
        m_analyse->abbrechen();
}

void Zustand::erneutVersuchen(qint64 id) { durchgangErbitten(Durchgang::erneut, id); }

void Zustand::nacharbeitLesen()
{
    if (!kannHandeln() || std::exchange(m_liestNacharbeit, true))
        return;
    imHintergrund(
        this, [db = m_db] { return Nacharbeit::lesen(*db); },
        [this, nummer = m_oeffnung](const Ausgang<Nacharbeit> &ausgang) {
            m_liestNacharbeit = false;
            if (nummer != m_oeffnung)
                return nacharbeitLesen();
            if (ausgang.wert)
                nacharbeitSetzen(*ausgang.wert);
        });
}

void Zustand::nacharbeitSetzen(const Nacharbeit &nacharbeit)
{
    if (nacharbeit == m_nacharbeit)
        return;
    m_nacharbeit = nacharbeit;
    Q_EMIT nacharbeitGeaendert();
}
