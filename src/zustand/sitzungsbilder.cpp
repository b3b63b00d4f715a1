#include "sitzungsbilder.h"

#include "bewegungsstaende.h"
#include "hintergrund.h"
#include "protokollbuch.h"

#include <algorithm>

namespace quillmar::zustand
{
namespace
{
QDateTime ortszeit(const QString &iso) { return QDateTime::fromString(iso, Qt::ISODate).toLocalTime(); }
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

void Sitzungsbilder::lesen(const QStringList &dateien)
{
    m_offene = dateien;
    weiter();
}

std::optional<Sitzungsbild> Sitzungsbilder::bild(const QString &datei) const
{
    const auto stelle = m_bilder.constFind(datei);
    return stelle == m_bilder.constEnd() ? std::nullopt : std::optional(*stelle);
}

void Sitzungsbilder::weiter()
{
    if (m_unterwegs || m_offene.isEmpty())
        return;
    m_unterwegs = true;
    const QString datei = m_offene.takeFirst();
    imHintergrund(
        this, [datei] { return Sitzungsbild::von(datei); },
        [this, datei](const Ausgang<Sitzungsbild> &ausgang) {
            m_unterwegs = false;
            m_bilder[datei] = ausgang.wert.value_or(Sitzungsbild{});
            Q_EMIT gelesen(datei);
            weiter();
        });
}
} // namespace quillmar::zustand
