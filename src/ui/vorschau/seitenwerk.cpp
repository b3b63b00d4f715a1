#include "seitenwerk.h"

#include "hintergrund.h"
#include "malreihe.h"

#include <QPainter>
#include <utility>

namespace quillmar::vorschau
{
namespace
{
constexpr qint64 groessteDatei = qint64(256) << 20;
constexpr std::chrono::milliseconds geduldAmEnde(1000);

// A page without a usable size is shown as A4.
constexpr QSizeF a4(595, 842);

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

Vorschaubefund befund(const QPdfDocument &dokument)
{
    using Fehler = QPdfDocument::Error;
    if (dokument.status() == QPdfDocument::Status::Ready && dokument.pageCount() > 0)
        return Vorschaubefund::Offen;
    const bool gesichert =
        dokument.error() == Fehler::IncorrectPassword || dokument.error() == Fehler::UnsupportedSecurityScheme;
    return gesichert ? Vorschaubefund::Gesichert : Vorschaubefund::Beschaedigt;
}

QList<QSizeF> seitengroessen(QPdfDocument &dokument)
{
    QList<QSizeF> groessen;
    for (int seite = 0; seite < dokument.pageCount(); ++seite) {
        const QSizeF groesse = dokument.pagePointSize(seite);
        groessen << (groesse.width() >= 1 && groesse.height() >= 1 ? groesse : a4);
    }
    return groessen;
}

QImage aufWeiss(const QImage &seite)
{
    if (seite.isNull())
        return {};
    QImage bild(seite.size(), QImage::Format_RGB32);
    bild.fill(Qt::white);
    QPainter(&bild).drawImage(0, 0, seite);
    return bild;
}
} // namespace

Seitenwerk::Seitenwerk(QObject *eltern)
    : QObject(eltern), m_briefe(Briefkasten::fuer(this)), m_reihe(std::make_shared<Malreihe>())
{
    Malreihe::starten(m_reihe);
}

Seitenwerk::~Seitenwerk() { m_reihe->beenden(geduldAmEnde); }

quint64 Seitenwerk::oeffnen(const QString &pfad, const Dateistand &bekannt)
{
    const quint64 kennung = ++m_letzte;
    m_gewollte.insert(kennung);
    imHintergrund(
        this, [pfad, bekannt] { return dateiinhalt(pfad, groessteDatei, bekannt); },
        [this, kennung](const Ausgang<Dateiinhalt> &ausgang) {
            gelesen(kennung, ausgang.wert.value_or(Dateiinhalt()));
        });
    return kennung;
}

void Seitenwerk::gelesen(quint64 kennung, const Dateiinhalt &inhalt)
{
    if (!m_gewollte.contains(kennung) || inhalt.befund == Dateiinhalt::Befund::Unveraendert)
        return;
    if (inhalt.befund == Dateiinhalt::Befund::Gelesen)
        dokumentOeffnen(kennung, inhalt);
    else
        Q_EMIT geoeffnet(kennung, befund(inhalt), {}, {});
}

void Seitenwerk::dokumentOeffnen(quint64 kennung, const Dateiinhalt &inhalt)
{
    const auto oeffnen = [this, kennung, inhalt, briefe = m_briefe](OffeneDokumente &dokumente) {
        const auto offenes = std::make_shared<OffenesDokument>();
        offenes->bytes.setData(inhalt.bytes);
        offenes->bytes.open(QIODevice::ReadOnly);
        offenes->dokument.load(&offenes->bytes);
        const Vorschaubefund ergebnis = befund(offenes->dokument);
        QList<QSizeF> groessen;
        if (ergebnis == Vorschaubefund::Offen) {
            groessen = seitengroessen(offenes->dokument);
            dokumente.insert(kennung, offenes);
        }
        briefe->einwerfen([this, kennung, ergebnis, groessen, stand = inhalt.stand] {
            if (m_gewollte.contains(kennung))
                Q_EMIT geoeffnet(kennung, ergebnis, stand, groessen);
        });
    };
    m_reihe->auftragen({Sofort, kennung, -1, oeffnen});
}

void Seitenwerk::malen(quint64 kennung, int seite, const QSize &pixel, Vorrang vorrang)
{
    const auto malen = [this, kennung, seite, pixel, briefe = m_briefe](OffeneDokumente &dokumente) {
        const auto offenes = dokumente.value(kennung);
        const QImage bild = offenes ? aufWeiss(offenes->dokument.render(seite, pixel)) : QImage();
        briefe->einwerfen([this, kennung, seite, bild] {
            if (m_gewollte.contains(kennung))
                Q_EMIT gemalt(kennung, seite, bild);
        });
    };
    m_reihe->auftragen({vorrang, kennung, seite, malen});
}

void Seitenwerk::abbestellen(quint64 kennung) { m_reihe->seitenVerwerfen(kennung); }

void Seitenwerk::schliessen(quint64 kennung)
{
    m_gewollte.remove(kennung);
    m_reihe->verwerfen(kennung);
    m_reihe->auftragen({Sofort, kennung, -1, [kennung](OffeneDokumente &dokumente) { dokumente.remove(kennung); }});
}
} // namespace quillmar::vorschau
