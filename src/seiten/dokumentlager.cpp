#include "dokumentlager.h"

namespace quillmar::seiten
{
namespace
{
constexpr int hoechstzahl = 4;
constexpr qint64 hoechsteBytes = qint64(320) << 20;
constexpr int nahe = 2; // pages
// A picture of more takes too much memory to be kept while it is not seen: A4 at 250 dots per inch.
constexpr qint64 meisteUngesehene = 6'000'000;

bool istGross(const QSize &pixel) { return qint64(pixel.width()) * pixel.height() > meisteUngesehene; }
} // namespace

Dokumentlager::Dokumentlager(const Malgrenzen &grenzen, QObject *eltern) : QObject(eltern), m_werk(grenzen)
{
    connect(&m_werk, &Seitenwerk::geoeffnet, this, &Dokumentlager::aufnehmen);
    connect(&m_werk, &Seitenwerk::gemalt, this, &Dokumentlager::bildAufnehmen);
}

void Dokumentlager::holen(const QString &pfad, Vorrang vorrang)
{
    vorziehen(pfad);
    const bool neu = !m_dokumente.contains(pfad);
    Vorschaudokument &dokument = m_dokumente[pfad];
    // A second number is told of only when the file is another than the one that is open.
    if (neu || dokument.befund != Vorschaubefund::Laedt) {
        const Dateistand bekannt = istGescheitert(dokument.befund) ? Dateistand() : dokument.datei;
        const quint64 kennung = m_werk.oeffnen(pfad, bekannt, vorrang);
        m_pfade.insert(kennung, pfad);
        if (neu)
            dokument.kennung = kennung;
    } else {
        m_werk.vorziehen(dokument.kennung, -1, vorrang);
    }
    aufraeumen();
}

void Dokumentlager::vorziehen(const QString &pfad)
{
    m_reihenfolge.removeAll(pfad);
    m_reihenfolge.prepend(pfad);
}

const Vorschaudokument *Dokumentlager::dokument(const QString &pfad) const
{
    const auto gefunden = m_dokumente.constFind(pfad);
    return gefunden == m_dokumente.constEnd() ? nullptr : &*gefunden;
}

bool Dokumentlager::istBereit(const QString &pfad) const
{
    const Vorschaudokument *da = dokument(pfad);
    if (!da || da->befund == Vorschaubefund::Laedt)
        return false;
    return da->befund != Vorschaubefund::Offen || da->bilder.contains(0);
}

bool Dokumentlager::bestellen(const QString &pfad, int seite, const QSize &pixel, Vorrang vorrang)
{
    const auto dokument = m_dokumente.find(pfad);
    if (dokument == m_dokumente.end() || dokument->befund != Vorschaubefund::Offen ||
        dokument->gescheitert.contains(seite) || (vorrang == Vorrang::Nachbar && istGross(pixel)))
        return false;
    if (dokument->bestellt.value(seite) == pixel) {
        m_werk.vorziehen(dokument->kennung, seite, vorrang);
        return false;
    }
    const bool neu = !dokument->bestellt.contains(seite);
    dokument->bestellt.insert(seite, pixel);
    m_werk.malen(dokument->kennung, seite, pixel, vorrang);
    return neu;
}

void Dokumentlager::ausduennen(const QString &pfad, int von, int bis)
{
    const auto dokument = m_dokumente.find(pfad);
    if (dokument == m_dokumente.end())
        return;
    for (const int seite : dokument->bilder.keys()) {
        const bool gross = istGross(dokument->bilder.value(seite).size());
        const int umkreis = gross ? 0 : nahe;
        const bool fern = seite < von - umkreis || seite > bis + umkreis;
        if (fern && (gross || seite > 0) && !dokument->gescheitert.contains(seite)) {
            dokument->bilder.remove(seite);
            dokument->bestellt.remove(seite);
        }
    }
}

void Dokumentlager::verlassen(const QString &pfad)
{
    const auto dokument = m_dokumente.find(pfad);
    if (dokument == m_dokumente.end())
        return;
    const QImage erste = dokument->bilder.value(0);
    const bool bleibt = dokument->bilder.contains(0) && !dokument->gescheitert.contains(0) && !istGross(erste.size());
    m_werk.abbestellen(dokument->kennung);
    dokument->gescheitert.clear();
    dokument->bilder.clear();
    dokument->bestellt.clear();
    if (bleibt) {
        dokument->bilder.insert(0, erste);
        dokument->bestellt.insert(0, erste.size());
    }
}

void Dokumentlager::aufraeumen()
{
    qint64 bytes = 0;
    for (int i = 0; i < m_reihenfolge.size(); ++i) {
        bytes += m_dokumente.value(m_reihenfolge.at(i)).datei.groesse;
        if (i < 2 || (i < hoechstzahl && bytes <= hoechsteBytes))
            continue;
        const QString pfad = m_reihenfolge.takeAt(i--);
        vergessen(pfad);
        m_dokumente.remove(pfad);
    }
}

void Dokumentlager::vergessen(const QString &pfad, quint64 ausser)
{
    for (const quint64 kennung : m_pfade.keys(pfad)) {
        if (kennung == ausser)
            continue;
        m_werk.schliessen(kennung);
        m_pfade.remove(kennung);
    }
}

void Dokumentlager::aufnehmen(quint64 kennung, const Dokumentstand &stand)
{
    const QString pfad = m_pfade.value(kennung);
    vergessen(pfad, kennung);
    m_dokumente.insert(pfad, {stand, kennung, {}, {}, {}});
    Q_EMIT geoeffnet(pfad);
}

void Dokumentlager::bildAufnehmen(quint64 kennung, int seite, const QImage &bild, Vorschaubefund befund)
{
    const QString pfad = m_pfade.value(kennung);
    const auto dokument = m_dokumente.find(pfad);
    if (dokument == m_dokumente.end() || dokument->kennung != kennung)
        return;
    dokument->bilder.insert(seite, bild);
    if (istGescheitert(befund))
        dokument->gescheitert.insert(seite, befund);
    Q_EMIT gemalt(pfad, seite);
}
} // namespace quillmar::seiten
