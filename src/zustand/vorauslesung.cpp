#include "vorauslesung.h"

#include "dokumente.h"
#include "seitenlagen.h"

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr qsizetype dokumente = 3; // that are looked at
constexpr auto ruhe = 200ms;

QList<Leseauftrag> auftraege(Datenbank &db, qint64 id, Leseauftrag wie, bool nurTextebenen)
{
    QList<Leseauftrag> auftraege;
    auto naechstes = Dokumente(db).naechstes(id, Richtung::Weiter);
    for (qsizetype n = 0; n < dokumente && naechstes && naechstes->id != id; ++n) {
        wie.quelle.pfad = naechstes->pfad;
        wie.quelle.textebene = naechstes->hatTextebene;
        wie.quelle.wie.drehungen = Seitenlagen(db).drehungen(naechstes->id);
        if (naechstes->hatTextebene || !nurTextebenen)
            auftraege << wie;
        naechstes = Dokumente(db).naechstes(naechstes->id, Richtung::Weiter);
    }
    return auftraege;
}
} // namespace

Vorauslesung::Vorauslesung(QObject *eltern) : QObject(eltern), m_frage(this)
{
    m_ruhe.setSingleShot(true);
    m_ruhe.setInterval(ruhe);
    connect(&m_ruhe, &QTimer::timeout, this, &Vorauslesung::fragen);
}

void Vorauslesung::beginnen(const std::shared_ptr<Datenbank> &db, qint64 id, const Leseauftrag &wie, bool nurTextebenen)
{
    abbrechen();
    m_wunsch = {.db = db, .id = id, .wie = wie, .nurTextebenen = nurTextebenen};
    m_ruhe.start();
}

void Vorauslesung::fragen()
{
    m_frage.stellen([w = m_wunsch] { return auftraege(*w.db, w.id, w.wie, w.nurTextebenen); },
                    [this](const Ausgang<QList<Leseauftrag>> &ausgang) {
                        m_wunsch.db.reset();
                        m_wartende = ausgang.wert.value_or(QList<Leseauftrag>());
                        naechster();
                    });
}

void Vorauslesung::abbrechen()
{
    m_ruhe.stop();
    m_frage.verwerfen();
    m_wunsch.db.reset();
    m_wartende.clear();
    m_jetziger.reset();
}

Lesungszeiger Vorauslesung::bereit(const Leseauftrag &auftrag) const
{
    const auto lesung = std::find_if(m_bereite.begin(), m_bereite.end(),
                                     [&](const Lesungszeiger &l) { return l->auftrag() == auftrag; });
    return lesung == m_bereite.end() ? nullptr : *lesung;
}

void Vorauslesung::naechster()
{
    if (m_wartende.isEmpty())
        return;
    const Leseauftrag auftrag = m_wartende.takeFirst();
    m_jetziger = auftrag;
    m_frage.stellen(
        [auftrag, bereite = bereit(auftrag), speicher = m_speicher](const std::stop_token &ende) {
            return bereite && bereite->istAktuell() ? bereite : std::make_shared<const Lesung>(auftrag, speicher, ende);
        },
        [this, auftrag](const Ausgang<Lesungszeiger> &ausgang) {
            m_jetziger.reset();
            m_bereite.removeIf([&](const Lesungszeiger &l) { return l->auftrag().quelle.pfad == auftrag.quelle.pfad; });
            if (ausgang.wert)
                m_bereite << *ausgang.wert;
            if (m_bereite.size() > dokumente)
                m_bereite.removeFirst();
            naechster();
            Q_EMIT fertig(auftrag);
        });
}
} // namespace quillmar::zustand
