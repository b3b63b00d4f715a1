#include "vorauslesung.h"

#include "dokumente.h"
#include "seitenlagen.h"

#include <utility>

namespace quillmar::zustand
{
namespace
{
constexpr qsizetype dokumente = 3; // that are looked at

QList<Wortquelle> quellen(Datenbank &db, qint64 id, Wortlagen::Erkennung wie)
{
    QList<Wortquelle> quellen;
    auto naechstes = Dokumente(db).naechstes(id, Richtung::Weiter);
    for (qsizetype n = 0; n < dokumente && naechstes && naechstes->id != id; ++n) {
        wie.drehungen = Seitenlagen(db).drehungen(naechstes->id);
        if (!naechstes->hatTextebene)
            quellen << Wortquelle{.pfad = naechstes->pfad, .textebene = false, .wie = wie};
        naechstes = Dokumente(db).naechstes(naechstes->id, Richtung::Weiter);
    }
    return quellen;
}
} // namespace

void Vorauslesung::beginnen(const std::shared_ptr<Datenbank> &db, qint64 id, const Wortlagen::Erkennung &wie)
{
    abbrechen();
    m_frage.stellen([db, id, wie] { return quellen(*db, id, wie); },
                    [this](const Ausgang<QList<Wortquelle>> &ausgang) {
                        m_wartende = ausgang.wert.value_or(QList<Wortquelle>());
                        naechste();
                    });
}

void Vorauslesung::abbrechen()
{
    m_frage.verwerfen();
    m_wartende.clear();
    m_jetzige.reset();
}

void Vorauslesung::naechste()
{
    if (m_wartende.isEmpty())
        return;
    const Wortquelle quelle = m_wartende.takeFirst();
    m_jetzige = quelle;
    m_frage.stellen(
        [quelle, speicher = m_speicher](const std::stop_token &ende) { return quelle.lesen(speicher, ende).size(); },
        [this, quelle](const Ausgang<qsizetype> &) {
            m_jetzige.reset();
            naechste();
            Q_EMIT fertig(quelle);
        });
}
} // namespace quillmar::zustand
