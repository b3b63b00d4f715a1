#include "pdfsteuerung.h"

#include "einstellungen.h"
#include "pdfansicht.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
constexpr double spielraum = 0.001;

QString schluessel() { return u"vorschauZoom"_s; }

Zoom gespeicherterZoom()
{
    const QVariant wert = Einstellungen::wert(schluessel());
    return wert.toString() == u"seite" ? Zoom{Zoom::Art::Seite, 1} : Zoom{};
}
} // namespace

PDFSteuerung::PDFSteuerung(QObject *eltern) : QObject(eltern), m_zoom(gespeicherterZoom()), m_passung(m_zoom) {}

double PDFSteuerung::stufeUeber(double massstab)
{
    const auto *stufe =
        std::find_if(stufen.begin(), stufen.end(), [massstab](double stufe) { return stufe > massstab + spielraum; });
    return stufe == stufen.end() ? stufen.back() : *stufe;
}

double PDFSteuerung::stufeUnter(double massstab)
{
    const auto stufe =
        std::find_if(stufen.rbegin(), stufen.rend(), [massstab](double stufe) { return stufe < massstab - spielraum; });
    return stufe == stufen.rend() ? stufen.front() : *stufe;
}

void PDFSteuerung::setzeAnsicht(PDFAnsicht *ansicht)
{
    m_ansicht = ansicht;
    setzeZoom(m_zoom);
    standZeigen();
}

PDFAnsicht *PDFSteuerung::ansicht() const { return m_ansicht; }

void PDFSteuerung::groesser()
{
    if (m_ansicht)
        setzeZoom({Zoom::Art::Stufe, stufeUeber(m_ansicht->massstab())});
}

void PDFSteuerung::kleiner()
{
    if (m_ansicht)
        setzeZoom({Zoom::Art::Stufe, stufeUnter(m_ansicht->massstab())});
}

void PDFSteuerung::anfangen()
{
    if (m_zoom != m_passung)
        setzeZoom(m_passung);
}

void PDFSteuerung::breiteSetzen() { setzeZoom({Zoom::Art::Breite, 1}); }

void PDFSteuerung::ganzeSeiteSetzen() { setzeZoom({Zoom::Art::Seite, 1}); }

void PDFSteuerung::standZeigen()
{
    const int seiten = m_ansicht ? m_ansicht->seiten() : 0;
    const int seite = m_ansicht ? m_ansicht->seite() : 1;
    if (seiten == m_seiten && seite == m_seite)
        return;
    m_seiten = seiten;
    m_seite = seite;
    Q_EMIT geaendert();
}

void PDFSteuerung::setzeZoom(const Zoom &zoom)
{
    if (m_ansicht)
        m_ansicht->setzeZoom(zoom);
    m_zoom = zoom;
    if (zoom.art != Zoom::Art::Stufe && zoom != m_passung) {
        m_passung = zoom;
        Einstellungen::setzen(schluessel(), zoom.art == Zoom::Art::Seite ? u"seite"_s : u"breite"_s);
    }
    // The buttons show the mode again even where it was chosen a second time.
    Q_EMIT geaendert();
}
} // namespace quillmar::vorschau
