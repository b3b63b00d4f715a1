#include "malbetrieb.h"

#include <algorithm>
#include <utility>

namespace quillmar::seiten
{
using namespace Seitenprotokoll;

namespace
{
constexpr int meisteFruehtode = 3;
constexpr std::chrono::milliseconds kuerzesteFrist(20);

Auftrag nachricht(const Malauftrag &auftrag, bool malen)
{
    if (malen)
        return Malen{auftrag.kennung, auftrag.seite, auftrag.pixel};
    return Oeffnen{auftrag.kennung};
}
} // namespace

Malbetrieb::Malbetrieb(const Malgrenzen &grenzen, QObject *eltern) : QObject(eltern), m_grenzen(grenzen)
{
    if (m_grenzen.programm.isEmpty())
        m_grenzen.programm = Malprozess::programm();
    m_frist.setSingleShot(true);
    m_vortritt.setSingleShot(true);
    m_vortritt.setInterval(m_grenzen.geduld);
    connect(&m_frist, &QTimer::timeout, this, &Malbetrieb::fristPruefen);
    connect(&m_vortritt, &QTimer::timeout, this, &Malbetrieb::vorlassen);
    starten();
}

Malbetrieb::~Malbetrieb() = default;

void Malbetrieb::auftragen(const Malauftrag &auftrag)
{
    const bool dasselbe = m_laufendes && m_laufendes->auftrag.kennung == auftrag.kennung &&
                          m_laufendes->auftrag.seite == auftrag.seite && m_laufendes->auftrag.pixel == auftrag.pixel;
    if (dasselbe && std::exchange(m_laufendes->verworfen, false))
        m_laufendes->auftrag.vorrang = auftrag.vorrang; // left and come back to before it was done
    else
        m_reihe.auftragen(auftrag);
    weiter();
}

void Malbetrieb::vorziehen(quint64 kennung, int seite, Vorrang vorrang)
{
    m_reihe.vorziehen(kennung, seite, vorrang);
    if (m_laufendes && m_laufendes->auftrag.kennung == kennung && m_laufendes->auftrag.seite == seite)
        m_laufendes->auftrag.vorrang = std::min(m_laufendes->auftrag.vorrang, vorrang);
    weiter();
}

void Malbetrieb::zuruecksetzen(quint64 kennung)
{
    m_reihe.zuruecksetzen(kennung);
    if (m_laufendes && m_laufendes->auftrag.kennung == kennung && m_laufendes->auftrag.seite < 0)
        m_laufendes->auftrag.vorrang = std::max(m_laufendes->auftrag.vorrang, Vorrang::Nachbar);
    vortrittPruefen();
}

void Malbetrieb::verwerfen(quint64 kennung, int abSeite)
{
    m_reihe.verwerfen(kennung, abSeite);
    if (m_laufendes && m_laufendes->auftrag.kennung == kennung && m_laufendes->auftrag.seite >= abSeite) {
        m_laufendes->verworfen = true;
        m_laufendes->auftrag.vorrang = Vorrang::Ruht;
    }
    vortrittPruefen();
}

void Malbetrieb::schliessen(quint64 kennung)
{
    verwerfen(kennung, -1);
    const bool wirdGeoeffnet = m_laufendes && m_laufendes->auftrag.kennung == kennung;
    // If the process does not take it, the next order finds out.
    if (m_offene.remove(kennung) || wirdGeoeffnet)
        static_cast<void>(m_prozess->senden(Schliessen{kennung}));
}

void Malbetrieb::starten()
{
    m_geoeffnete = 0;
    m_prozess = std::make_unique<Malprozess>(m_grenzen.programm);
    connect(m_prozess.get(), &Malprozess::gehoert, this, &Malbetrieb::hoeren);
    connect(m_prozess.get(), &Malprozess::beendet, this, &Malbetrieb::verloren);
    m_frist.start(m_grenzen.wanduhr);
}

void Malbetrieb::weiter()
{
    if (!m_prozess && m_reihe.hoechster() != Vorrang::Ruht)
        starten();
    while (m_bereit && !m_laufendes && m_reihe.hoechster() != Vorrang::Ruht)
        beginnen(*m_reihe.naechster());
    vortrittPruefen();
}

void Malbetrieb::beginnen(const Malauftrag &auftrag)
{
    m_laufendes = Laufendes{};
    m_laufendes->auftrag = auftrag;
    if (auftrag.seite >= 0 && m_offene.contains(auftrag.kennung)) {
        m_laufendes->bild.emplace(auftrag.pixel);
        if (!m_laufendes->bild->offen())
            return scheitern(erledigt(), Malfehler::ZuVielSpeicher, false);
    }
    m_laufendes->uhr.start();
    m_laufendes->vorher = m_prozess->rechenzeit();
    if (!absenden())
        return verloren(Malfehler::Abgestuerzt);
    fristSetzen();
}

bool Malbetrieb::absenden()
{
    const Malauftrag &auftrag = m_laufendes->auftrag;
    if (m_laufendes->bild)
        return m_prozess->senden(nachricht(auftrag, true), &m_laufendes->bild->griff());
    ++m_geoeffnete;
    return m_prozess->senden(nachricht(auftrag, false), auftrag.inhalt.get());
}

void Malbetrieb::hoeren(const Antwort &antwort)
{
    if (!std::visit([this](const auto &a) { return verstehen(a); }, antwort))
        return verloren(Malfehler::Abgestuerzt);
    weiter();
}

bool Malbetrieb::verstehen(const Bereit &)
{
    if (std::exchange(m_bereit, true))
        return false;
    m_frist.stop();
    return true;
}

bool Malbetrieb::verstehen(const Geoeffnet &ergebnis)
{
    if (!m_laufendes || m_laufendes->bild || m_laufendes->auftrag.kennung != ergebnis.kennung)
        return false;
    const Laufendes fertig = erledigt();
    if (ergebnis.ergebnis == Ergebnis::Offen && !fertig.verworfen)
        m_offene.insert(ergebnis.kennung);
    if (fertig.auftrag.seite < 0)
        Q_EMIT geoeffnet(ergebnis);
    else if (fertig.verworfen)
        return true;
    else if (ergebnis.ergebnis == Ergebnis::Offen)
        m_reihe.nochmals(fertig.auftrag); // it had been opened for the sake of a page
    else
        Q_EMIT gemalt(fertig.auftrag.kennung, fertig.auftrag.seite, {});
    return true;
}

bool Malbetrieb::verstehen(const Gemalt &ergebnis)
{
    if (!m_laufendes || !m_laufendes->bild || m_laufendes->auftrag.kennung != ergebnis.kennung ||
        m_laufendes->auftrag.seite != ergebnis.seite)
        return false;
    const Laufendes fertig = erledigt();
    Q_EMIT gemalt(ergebnis.kennung, ergebnis.seite, ergebnis.gelungen ? fertig.bild->bild() : QImage());
    return true;
}

Malbetrieb::Laufendes Malbetrieb::erledigt()
{
    m_frist.stop();
    m_fruehtode = 0;
    Laufendes fertig = std::move(*m_laufendes);
    m_laufendes.reset();
    return fertig;
}

void Malbetrieb::verloren(Malfehler grund)
{
    const bool fremdeDabei = m_geoeffnete > 1;
    m_prozess->toeten();
    m_prozess.release()->deleteLater(); // the way here may lead through it
    m_bereit = false;
    m_offene.clear();
    m_frist.stop();
    if (m_laufendes)
        scheitern(erledigt(), grund, fremdeDabei && grund != Malfehler::ZuLange);
    else
        ++m_fruehtode;
    if (grund == Malfehler::NichtGestartet || m_fruehtode >= meisteFruehtode)
        return aufgeben();
    if (!m_prozess)
        starten();
    vortrittPruefen();
}

void Malbetrieb::scheitern(const Laufendes &laufendes, Malfehler grund, bool schuldFraglich)
{
    Malauftrag auftrag = laufendes.auftrag;
    if (laufendes.verworfen)
        return;
    if (schuldFraglich && !std::exchange(auftrag.wiederholt, true))
        m_reihe.nochmals(auftrag);
    else
        Q_EMIT gescheitert(auftrag.kennung, auftrag.seite, grund);
}

/** It is tried again with the next order. */
void Malbetrieb::aufgeben()
{
    m_fruehtode = 0;
    for (const Malauftrag &auftrag : m_reihe.alle())
        Q_EMIT gescheitert(auftrag.kennung, auftrag.seite, Malfehler::NichtGestartet);
}

void Malbetrieb::fristSetzen()
{
    const auto rest = m_grenzen.rechenzeit - std::chrono::duration_cast<std::chrono::milliseconds>(
                                                 m_prozess->rechenzeit() - m_laufendes->vorher);
    const auto uhrrest = m_grenzen.wanduhr - std::chrono::milliseconds(m_laufendes->uhr.elapsed());
    m_frist.start(std::max(kuerzesteFrist, std::min(rest, uhrrest)));
}

void Malbetrieb::fristPruefen()
{
    if (!m_laufendes)
        return verloren(Malfehler::NichtGestartet);
    const bool zuSpaet = m_laufendes->uhr.hasExpired(m_grenzen.wanduhr.count());
    if (zuSpaet || m_prozess->rechenzeit() - m_laufendes->vorher >= m_grenzen.rechenzeit)
        return verloren(Malfehler::ZuLange);
    fristSetzen();
}

void Malbetrieb::vortrittPruefen()
{
    const bool wartetWichtiges = m_laufendes && m_reihe.hoechster() < m_laufendes->auftrag.vorrang;
    if (!wartetWichtiges)
        m_vortritt.stop();
    else if (!m_vortritt.isActive())
        m_vortritt.start();
}

/** What is in hand has had its time: something more urgent goes first. */
void Malbetrieb::vorlassen()
{
    if (!m_laufendes)
        return;
    if (!std::exchange(m_laufendes->verworfen, true))
        m_reihe.spaeter(m_laufendes->auftrag);
    verloren(Malfehler::ZuLange);
}
} // namespace quillmar::seiten
