#include "seitenwerk.h"

#include "hintergrund.h"
#include "seitenordnung.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <utility>

namespace quillmar::seiten
{
/** With the bytes that it is read from. */
struct OffenesDokument {
    QBuffer bytes;
    QPdfDocument dokument{nullptr};
};

namespace
{
constexpr qint64 groessteDatei = qint64(256) << 20;
constexpr std::chrono::milliseconds geduldAmEnde(1000);

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
    if (inhalt.befund != Dateiinhalt::Befund::Gelesen)
        return Q_EMIT geoeffnet(kennung, {befund(inhalt), {}, {}});
    auftragen(Sofort, kennung, -1, [this, kennung, inhalt](OffeneDokumente &dokumente) {
        const auto offenes = std::make_shared<OffenesDokument>();
        offenes->bytes.setData(inhalt.bytes);
        offenes->bytes.open(QIODevice::ReadOnly);
        offenes->dokument.load(&offenes->bytes);
        Dokumentstand stand{befund(offenes->dokument), inhalt.stand, {}};
        if (stand.befund == Vorschaubefund::Offen) {
            stand.groessen = seitengroessen(offenes->dokument);
            dokumente.insert(kennung, offenes);
        }
        return [this, kennung, stand] { Q_EMIT geoeffnet(kennung, stand); };
    });
}

void Seitenwerk::malen(quint64 kennung, int seite, const QSize &pixel, Vorrang vorrang)
{
    auftragen(vorrang, kennung, seite, [this, kennung, seite, pixel](OffeneDokumente &dokumente) {
        const auto offenes = dokumente.value(kennung);
        const QImage bild = offenes ? aufWeiss(offenes->dokument.render(seite, pixel)) : QImage();
        return [this, kennung, seite, bild] { Q_EMIT gemalt(kennung, seite, bild); };
    });
}

void Seitenwerk::auftragen(Vorrang vorrang, quint64 kennung, int seite,
                           std::function<Meldung(OffeneDokumente &)> arbeit)
{
    const auto tun = [this, kennung, briefe = m_briefe, arbeit = std::move(arbeit)](OffeneDokumente &dokumente) {
        briefe->einwerfen([this, kennung, melden = arbeit(dokumente)] {
            if (m_gewollte.contains(kennung))
                melden();
        });
    };
    m_reihe->auftragen({vorrang, kennung, seite, tun});
}

void Seitenwerk::abbestellen(quint64 kennung) { m_reihe->verwerfen(kennung, 0); }

void Seitenwerk::schliessen(quint64 kennung)
{
    m_gewollte.remove(kennung);
    m_reihe->verwerfen(kennung);
    m_reihe->auftragen({Sofort, kennung, -1, [kennung](OffeneDokumente &dokumente) { dokumente.remove(kennung); }});
}
} // namespace quillmar::seiten
