#include "seitenwerk.h"

#include "hintergrund.h"

#include <utility>

namespace quillmar::seiten
{
namespace
{
constexpr qint64 groessteDatei = qint64(256) << 20;

Vorschaubefund befund(const Dateiinhalt &inhalt)
{
    switch (inhalt.befund) {
    case Dateiinhalt::Befund::Verschwunden:
        return Vorschaubefund::Verschwunden;
    case Dateiinhalt::Befund::ZuGross:
        return Vorschaubefund::ZuGross;
    default:
        return Vorschaubefund::Unlesbar;
    }
}

Vorschaubefund befund(Seitenprotokoll::Ergebnis ergebnis)
{
    switch (ergebnis) {
    case Seitenprotokoll::Ergebnis::Offen:
        return Vorschaubefund::Offen;
    case Seitenprotokoll::Ergebnis::Gesichert:
        return Vorschaubefund::Gesichert;
    default:
        return Vorschaubefund::Beschaedigt;
    }
}

Vorschaubefund befund(Malfehler grund)
{
    switch (grund) {
    case Malfehler::NichtGestartet:
        return Vorschaubefund::NichtGestartet;
    case Malfehler::ZuLange:
        return Vorschaubefund::ZuLange;
    case Malfehler::ZuVielSpeicher:
        return Vorschaubefund::ZuVielSpeicher;
    default:
        return Vorschaubefund::Abgestuerzt;
    }
}

/** One size a page; those that were not measured are as large as the last that was. */
QList<QSizeF> ergaenzt(QList<QSizeF> gemessene, int seiten)
{
    if (gemessene.isEmpty())
        return {};
    const QSizeF letzte = gemessene.last();
    gemessene.resize(seiten, letzte);
    return gemessene;
}
} // namespace

Seitenwerk::Seitenwerk(const Malgrenzen &grenzen, QObject *eltern) : QObject(eltern), m_betrieb(grenzen)
{
    connect(&m_betrieb, &Malbetrieb::geoeffnet, this, &Seitenwerk::oeffnenMelden);
    connect(&m_betrieb, &Malbetrieb::gescheitert, this, &Seitenwerk::scheiternMelden);
    connect(&m_betrieb, &Malbetrieb::gemalt, this, [this](quint64 kennung, int seite, const QImage &bild) {
        if (m_dokumente.contains(kennung))
            Q_EMIT gemalt(kennung, seite, bild, Vorschaubefund::Offen);
    });
}

quint64 Seitenwerk::oeffnen(const QString &pfad, const Dateistand &bekannt, Vorrang vorrang)
{
    const quint64 kennung = ++m_letzte;
    m_dokumente.insert(kennung, {{}, {}, vorrang});
    imHintergrund(
        this, [pfad, bekannt] { return dateiinhalt(pfad, groessteDatei, bekannt); },
        [this, kennung](const Ausgang<Dateiinhalt> &ausgang) {
            gelesen(kennung, ausgang.wert.value_or(Dateiinhalt()));
        });
    return kennung;
}

void Seitenwerk::gelesen(quint64 kennung, const Dateiinhalt &inhalt)
{
    const auto dokument = m_dokumente.find(kennung);
    if (dokument == m_dokumente.end() || inhalt.befund == Dateiinhalt::Befund::Unveraendert)
        return;
    if (inhalt.befund != Dateiinhalt::Befund::Gelesen)
        return Q_EMIT geoeffnet(kennung, {befund(inhalt), {}, {}, false});
    dokument->stand = inhalt.stand;
    dokument->inhalt = inhalt.bytes;
    m_betrieb.auftragen({.kennung = kennung, .vorrang = dokument->vorrang, .inhalt = inhalt.bytes});
}

void Seitenwerk::malen(quint64 kennung, int seite, const QSize &pixel, Vorrang vorrang)
{
    m_betrieb.auftragen({.kennung = kennung,
                         .seite = seite,
                         .pixel = pixel,
                         .vorrang = vorrang,
                         .inhalt = m_dokumente.value(kennung).inhalt});
}

void Seitenwerk::vorziehen(quint64 kennung, int seite, Vorrang vorrang)
{
    const auto dokument = m_dokumente.find(kennung);
    if (dokument == m_dokumente.end())
        return;
    if (seite < 0)
        dokument->vorrang = std::min(dokument->vorrang, vorrang);
    m_betrieb.vorziehen(kennung, seite, vorrang);
}

void Seitenwerk::abbestellen(quint64 kennung)
{
    const auto dokument = m_dokumente.find(kennung);
    if (dokument != m_dokumente.end())
        dokument->vorrang = Vorrang::Nachbar; // if its bytes are still to come
    m_betrieb.verwerfen(kennung, 0);
    m_betrieb.zuruecksetzen(kennung);
}

void Seitenwerk::schliessen(quint64 kennung)
{
    m_dokumente.remove(kennung);
    m_betrieb.schliessen(kennung);
}

void Seitenwerk::oeffnenMelden(const Seitenprotokoll::Geoeffnet &ergebnis)
{
    const auto dokument = m_dokumente.constFind(ergebnis.kennung);
    if (dokument == m_dokumente.constEnd())
        return;
    Q_EMIT geoeffnet(ergebnis.kennung, {befund(ergebnis.ergebnis), dokument->stand,
                                        ergaenzt(ergebnis.groessen, ergebnis.seiten), ergebnis.weitere});
}

void Seitenwerk::scheiternMelden(quint64 kennung, int seite, Malfehler grund)
{
    const auto dokument = m_dokumente.constFind(kennung);
    if (dokument == m_dokumente.constEnd())
        return;
    if (seite < 0)
        Q_EMIT geoeffnet(kennung, {befund(grund), dokument->stand, {}, false});
    else
        Q_EMIT gemalt(kennung, seite, {}, befund(grund));
}
} // namespace quillmar::seiten
