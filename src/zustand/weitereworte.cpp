#include "weitereworte.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr int letzteSeite = 30; // more of them are searched for longer than a key may take
constexpr auto ruhe = 200ms;    // pages that one leafs over are not read
} // namespace

Weitereworte::Weitereworte(QObject *eltern) : QObject(eltern), m_frage(this)
{
    m_ruhe.setSingleShot(true);
    m_ruhe.setInterval(ruhe);
    connect(&m_ruhe, &QTimer::timeout, this, &Weitereworte::lesen);
}

void Weitereworte::beginnen(const Wortquelle &quelle)
{
    m_frage.verwerfen();
    m_liest.reset();
    m_worte.clear();
    m_quelle = quelle;
    m_ruhe.start();
}

void Weitereworte::vergessen()
{
    m_frage.verwerfen();
    m_liest.reset();
    m_worte.clear();
    m_quelle.reset();
}

void Weitereworte::imBlick(const Seitenspanne &gesehene, int seiten)
{
    m_gesehene = gesehene;
    m_seiten = seiten;
    m_ruhe.start();
}

/** What is to be read now. */
std::optional<Seitenspanne> Weitereworte::fehlende() const
{
    const int bekannte = m_quelle ? m_quelle->wie.seiten.letzte : 0;
    if (!m_quelle || m_seiten <= bekannte)
        return std::nullopt;
    if (!m_quelle->textebene)
        return naechsteGesehene();
    if (!m_worte.isEmpty() || bekannte >= letzteSeite)
        return std::nullopt;
    return Seitenspanne{.erste = bekannte + 1, .letzte = std::min(m_seiten, letzteSeite)};
}

/** Of the pages in sight the one in the middle first, then its neighbours. */
std::optional<Seitenspanne> Weitereworte::naechsteGesehene() const
{
    const int mitte = (m_gesehene.erste + m_gesehene.letzte) / 2;
    std::optional<int> naechste;
    for (int seite = m_gesehene.erste; seite <= std::min(m_gesehene.letzte, m_seiten); ++seite) {
        const bool fehlt = seite > m_quelle->wie.seiten.letzte && !m_worte.contains(seite);
        if (fehlt && (!naechste || std::abs(seite - mitte) < std::abs(*naechste - mitte)))
            naechste = seite;
    }
    return naechste ? std::optional(Seitenspanne{.erste = *naechste, .letzte = *naechste}) : std::nullopt;
}

void Weitereworte::lesen()
{
    const auto seiten = fehlende();
    if (seiten == m_liest)
        return;
    m_frage.verwerfen();
    m_liest = seiten;
    if (!seiten)
        return;
    Wortquelle quelle = *m_quelle;
    quelle.wie.seiten = *seiten;
    m_frage.stellen(
        [quelle, speicher = m_speicher](const std::stop_token &ende) { return quelle.lesen(speicher, ende); },
        [this, seiten = *seiten](const Ausgang<QList<Seitenworte>> &ausgang) {
            // A page that cannot be read has no words, and is not tried again.
            const QList<Seitenworte> worte = ausgang.wert.value_or(QList<Seitenworte>());
            for (int seite = seiten.erste; seite <= seiten.letzte; ++seite)
                m_worte.insert(seite, worte.value(seite - seiten.erste));
            m_liest.reset();
            lesen();
            Q_EMIT geaendert();
        });
}

QList<Seitenworte> Weitereworte::angehaengt(QList<Seitenworte> erste) const
{
    if (!m_worte.isEmpty())
        erste.resize(std::max<qsizetype>(erste.size(), m_worte.lastKey()));
    for (auto seite = m_worte.begin(); seite != m_worte.end(); ++seite)
        erste[seite.key() - 1] = *seite;
    return erste;
}
} // namespace quillmar::zustand
