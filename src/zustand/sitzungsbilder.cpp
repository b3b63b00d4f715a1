#include "sitzungsbilder.h"

#include "bewegungsstaende.h"
#include "hintergrund.h"
#include "protokollbuch.h"

#include <QSet>
#include <algorithm>
#include <utility>

namespace quillmar::zustand
{
namespace
{
QDateTime ortszeit(const QString &iso) { return QDateTime::fromString(iso, Qt::ISODate).toLocalTime(); }

qint64 minute(const Sitzungsbild &bild) { return bild.beginn.toSecsSinceEpoch() / 60; }
} // namespace

Sitzungsbild Sitzungsbild::von(const QString &datei)
{
    Sitzungsbild bild;
    if (const auto kopf = Protokollbuch::kopf(datei))
        bild.beginn = ortszeit(kopf->zeit);
    const QList<Protokollzeile> zeilen = Protokollbuch::lesen(datei);
    bild.bewegungen = zeilen.size();
    if (zeilen.isEmpty())
        return bild;
    bild.zuletzt = ortszeit(zeilen.last().zeit);
    // Of most sessions the first file already lies where it was put.
    bild.zurueckgedreht = std::all_of(zeilen.begin(), zeilen.end(), [](const Protokollzeile &zeile) {
        return bewegungsstand(zeile) == Bewegungsstand::Zurueck;
    });
    return bild;
}

void Sitzungsbilder::veralten(const QStringList &dateien)
{
    ++m_fassung;
    const QSet<QString> da(dateien.begin(), dateien.end());
    m_bilder.removeIf([&](const auto &eintrag) {
        const bool weg = !da.contains(eintrag.key());
        if (weg)
            --m_beginne[minute(eintrag.value().bild)];
        return weg;
    });
}

void Sitzungsbilder::ansehen(const QStringList &dateien)
{
    m_offene.clear();
    for (const QString &datei : dateien) {
        if (m_bilder.value(datei).fassung < m_fassung && datei != m_unterwegs)
            m_offene << datei;
    }
    weiter();
}

std::optional<Sitzungsbild> Sitzungsbilder::bild(const QString &datei) const
{
    const auto stelle = m_bilder.constFind(datei);
    return stelle == m_bilder.constEnd() ? std::nullopt : std::optional(stelle->bild);
}

bool Sitzungsbilder::teiltMinute(const Sitzungsbild &bild) const { return m_beginne.value(minute(bild)) > 1; }

void Sitzungsbilder::weiter()
{
    if (m_unterwegs || m_offene.isEmpty())
        return;
    m_unterwegs = m_offene.takeFirst();
    imHintergrund(
        this, [datei = *m_unterwegs] { return Sitzungsbild::von(datei); },
        [this, fassung = m_fassung](const Ausgang<Sitzungsbild> &ausgang) {
            const QString datei = *std::exchange(m_unterwegs, std::nullopt);
            if (const auto altes = bild(datei))
                --m_beginne[minute(*altes)];
            m_bilder[datei] = {ausgang.wert.value_or(Sitzungsbild{}), fassung};
            ++m_beginne[minute(m_bilder[datei].bild)];
            Q_EMIT gelesen(datei);
            weiter();
        });
}
} // namespace quillmar::zustand
