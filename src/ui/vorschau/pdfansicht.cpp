#include "pdfansicht.h"

#include "einstellungen.h"
#include "farben.h"
#include "knopfmaler.h"
#include "sprache.h"
#include "stil.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
constexpr double punkteJeZoll = 72;
constexpr std::chrono::milliseconds geduld(200);
constexpr auto schluesselZoom = "vorschauZoom"_L1;

/** How far a key scrolls; none for a key that does not. */
std::optional<QScrollBar::SliderAction> rollschritt(const QKeyEvent *ereignis)
{
    static const QHash<int, QScrollBar::SliderAction> schritte = {
        {Qt::Key_PageUp, QScrollBar::SliderPageStepSub}, {Qt::Key_PageDown, QScrollBar::SliderPageStepAdd},
        {Qt::Key_Home, QScrollBar::SliderToMinimum},     {Qt::Key_End, QScrollBar::SliderToMaximum},
        {Qt::Key_Up, QScrollBar::SliderSingleStepSub},   {Qt::Key_Down, QScrollBar::SliderSingleStepAdd},
        {Qt::Key_Space, QScrollBar::SliderPageStepAdd},
    };
    if (ereignis->key() == Qt::Key_Space && ereignis->modifiers() & Qt::ShiftModifier)
        return QScrollBar::SliderPageStepSub;
    const auto schritt = schritte.constFind(ereignis->key());
    return schritt == schritte.constEnd() ? std::nullopt : std::optional(*schritt);
}

/** What stands in place of a page that cannot be drawn. */
QString satzFuerSeite(Vorschaubefund befund)
{
    switch (befund) {
    case Vorschaubefund::ZuLange:
        return Sprache::text(u"Diese Seite zu zeichnen dauert zu lange."_s);
    case Vorschaubefund::ZuVielSpeicher:
        return Sprache::text(u"Diese Seite zu zeichnen braucht zu viel Speicher."_s);
    case Vorschaubefund::Abgestuerzt:
        return Sprache::text(u"Beim Zeichnen dieser Seite ist die Vorschau abgestürzt."_s);
    case Vorschaubefund::NichtGestartet:
        return Sprache::text(u"Das Programm, das die Seiten zeichnet, lässt sich nicht starten."_s);
    default:
        return Sprache::text(u"Diese Seite lässt sich nicht darstellen."_s);
    }
}

/** The picture of a page as it lies, turned about the middle of @p flaeche. */
void bildMalen(QPainter &maler, const QRect &flaeche, const QImage &bild, int drehung)
{
    if (drehung == 0) {
        maler.drawImage(flaeche, bild);
        return;
    }
    const QSizeF groesse = drehung % 180 == 0 ? flaeche.size() : flaeche.size().transposed();
    maler.save();
    maler.translate(QRectF(flaeche).center());
    maler.rotate(drehung);
    maler.drawImage(QRectF(QPointF(-groesse.width() / 2, -groesse.height() / 2), groesse), bild);
    maler.restore();
}

void wartetext(QPainter &maler, const QRect &zuSehen, const QString &text)
{
    maler.setPen(QColor(Qt::darkGray).darker());
    maler.setFont(Stil::schrift(Schrift::Grund));
    maler.drawText(zuSehen.adjusted(0, 0, 0, -zuSehen.height() / 3), Qt::AlignCenter | Qt::TextWordWrap, text);
}
} // namespace

PDFAnsicht::PDFAnsicht(const Malgrenzen &grenzen, QWidget *eltern) : QAbstractScrollArea(eltern), m_lager(grenzen)
{
    if (Einstellungen::wert(schluesselZoom).toString() == u"seite")
        m_zoom = m_passung = {Zoom::Art::Seite};
    setFrameShape(QFrame::NoFrame);
    // Always there, so that the width to fit does not depend on what is fitted to it.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFocusPolicy(Qt::StrongFocus);
    m_geduld.setSingleShot(true);
    m_geduld.setInterval(geduld);
    connect(&m_geduld, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
    connect(&m_lager, &Dokumentlager::geoeffnet, this, &PDFAnsicht::geoeffnet);
    connect(&m_lager, &Dokumentlager::gemalt, this, [this](const QString &pfad, int seite) {
        if (pfad != m_pfad)
            return;
        viewport()->update(m_ordnung.seiten().value(seite).translated(-versatz()));
        if (m_lager.dokument(pfad)->istUndarstellbar(seite))
            Q_EMIT geaendert();
    });
    connect(&m_text, &Textebene::geaendert, viewport(), qOverload<>(&QWidget::update));
    connect(&m_text, &Textebene::geaendert, &m_griff, &Textgriff::zeigerStellen);
    connect(&m_text, &Textebene::trefferGeaendert, this, &PDFAnsicht::geaendert);
    connect(&m_griff, &Textgriff::genommen, this, &PDFAnsicht::genommen);
}

QUrl PDFAnsicht::url() const { return m_pfad.isEmpty() ? QUrl() : QUrl::fromLocalFile(m_pfad); }

void PDFAnsicht::setzeUrl(const QUrl &url)
{
    const QString pfad = url.toLocalFile();
    if (pfad == m_pfad)
        return;
    m_lager.verlassen(m_pfad);
    m_pfad = pfad;
    m_hinzusehen.reset();
    m_griff.abbrechen();
    m_gemeldet = pfad.isEmpty();
    m_zoom = m_passung;
    if (!pfad.isEmpty())
        m_lager.holen(pfad);
    m_geduld.start();
    geoeffnet(m_pfad);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void PDFAnsicht::vorausladen(const QString &pfad)
{
    m_voraus = pfad;
    if (pfad.isEmpty() || pfad == m_pfad)
        return;
    if (!m_lager.dokument(pfad))
        m_lager.holen(pfad, Vorrang::Voraus);
    if (!m_pfad.isEmpty())
        m_lager.vorziehen(m_pfad);
    ersteSeiteBestellen(pfad);
}

Vorschaubefund PDFAnsicht::befund() const
{
    const Vorschaudokument *dokument = m_lager.dokument(m_pfad);
    return dokument ? dokument->befund : Vorschaubefund::Keines;
}

int PDFAnsicht::seiten() const { return befund() == Vorschaubefund::Offen ? int(m_groessen.size()) : 0; }

bool PDFAnsicht::hatWeitere() const
{
    const Vorschaudokument *dokument = m_lager.dokument(m_pfad);
    return dokument && dokument->weitere;
}

int PDFAnsicht::seite() const { return 1 + m_ordnung.seiteBei(versatz().y() + viewport()->height() / 2); }

QString PDFAnsicht::seitensatz() const
{
    const Vorschaudokument *dokument = m_lager.dokument(m_pfad);
    const int nummer = seite() - 1;
    return dokument && dokument->istUndarstellbar(nummer) ? satzFuerSeite(dokument->gescheitert.value(nummer))
                                                          : QString();
}

double PDFAnsicht::massstab() const
{
    const int seite = this->seite() - 1;
    return m_ordnung.seiten().value(seite).width() / (m_groessen.value(seite, a4).width() * raum().pixelJePunkt);
}

void PDFAnsicht::setzeZoom(const Zoom &zoom)
{
    m_zoom = zoom;
    if (zoom.art != Zoom::Art::Stufe && zoom != std::exchange(m_passung, zoom))
        Einstellungen::setzen(schluesselZoom, zeigtGanzeSeite() ? u"seite"_s : u"breite"_s);
    ordnen();
    Q_EMIT geaendert();
}

void PDFAnsicht::standZeigen()
{
    const auto [erste, letzte] = sichtbare();
    const std::array stand{seite(), seiten(), erste, letzte};
    if (stand != std::exchange(m_stand, stand))
        Q_EMIT geaendert();
}

void PDFAnsicht::geoeffnet(const QString &pfad)
{
    if (pfad != m_pfad) {
        if (pfad == m_voraus)
            ersteSeiteBestellen(pfad);
        return;
    }
    groessenUebernehmen();
    ordnen();
    Q_EMIT befundGeaendert();
    if (seiten() > 0 && m_hinzusehen)
        hinsehen(*std::exchange(m_hinzusehen, std::nullopt));
}

void PDFAnsicht::groessenUebernehmen()
{
    const Vorschaudokument *dokument = m_lager.dokument(m_pfad);
    // Until the pages are known, one empty sheet as the last document had it.
    if (!dokument || dokument->groessen.isEmpty()) {
        m_groessen = m_groessen.mid(0, 1);
        m_text.zeigen(m_pfad, m_groessen, m_drehungen.value(m_pfad));
        return;
    }
    m_groessen = dokument->groessen;
    const QMap<int, int> drehungen = m_drehungen.value(m_pfad);
    for (auto d = drehungen.begin(); d != drehungen.end(); ++d) {
        if (d.value() % 180 != 0 && d.key() >= 1 && d.key() <= m_groessen.size())
            m_groessen[d.key() - 1].transpose();
    }
    m_text.zeigen(m_pfad, m_groessen, drehungen);
}

int PDFAnsicht::drehung(const QString &pfad, int seite) const { return m_drehungen.value(pfad).value(seite + 1); }

/** The size in which a page that takes @p flaeche as it is shown is drawn, which is as it lies. */
QSize PDFAnsicht::zeichengroesse(const QString &pfad, int seite, const QSize &flaeche) const
{
    const QSize groesse = bildgroesse(flaeche, devicePixelRatioF());
    return drehung(pfad, seite) % 180 == 0 ? groesse : groesse.transposed();
}

void PDFAnsicht::setzeDrehungen(const QHash<QString, QMap<int, int>> &drehungen)
{
    const bool gleich = m_drehungen.value(m_pfad) == drehungen.value(m_pfad);
    m_drehungen = drehungen;
    if (gleich)
        return;
    groessenUebernehmen();
    ordnen();
}

void PDFAnsicht::drehen(int grad)
{
    if (befund() != Vorschaubefund::Offen)
        return;
    constexpr int ganz = 360;
    const int seite = this->seite();
    const int neu = (drehung(m_pfad, seite - 1) + grad + ganz) % ganz;
    m_drehungen[m_pfad].insert(seite, neu);
    groessenUebernehmen();
    ordnen();
    Q_EMIT gedreht(m_pfad, seite, neu);
}

// The pages stay where they are seen: the point in the middle of the view is the same before and after.
void PDFAnsicht::ordnen()
{
    const QPoint mitte = viewport()->rect().center();
    const bool amAnfang = versatz().y() == 0;
    const Seitenordnung neue(m_groessen, m_zoom, raum());
    const QPoint ziel = m_ordnung.ortIn(neue, versatz() + mitte) - mitte;
    m_ordnung = neue;
    setzeLeisten();
    horizontalScrollBar()->setValue(ziel.x());
    verticalScrollBar()->setValue(amAnfang ? 0 : ziel.y());
    bestellen();
    viewport()->update();
    standZeigen();
}

void PDFAnsicht::setzeLeisten()
{
    const auto setzen = [](QScrollBar *leiste, int gesamt, int flaeche, int seite) {
        leiste->setPageStep(seite);
        leiste->setSingleStep(Stil::mass(48));
        leiste->setRange(0, std::max(0, gesamt - flaeche));
    };
    const QSize flaeche = viewport()->size();
    const QSize gesamt = m_ordnung.gesamt();
    // A page key turns exactly one page where a whole page is shown.
    setzen(verticalScrollBar(), gesamt.height(), flaeche.height(), flaeche.height() - 2 * raum().rand + raum().luecke);
    setzen(horizontalScrollBar(), gesamt.width(), flaeche.width(), flaeche.width());
}

void PDFAnsicht::bestellen()
{
    if (befund() != Vorschaubefund::Offen)
        return;
    const auto [erste, letzte] = sichtbare();
    m_lager.ausduennen(m_pfad, erste, letzte);
    for (int seite = std::max(0, erste - 1); seite <= std::min(seiten() - 1, letzte + 1); ++seite) {
        const bool zuSehen = seite >= erste && seite <= letzte;
        const bool neu =
            m_lager.bestellen(m_pfad, seite, zeichengroesse(m_pfad, seite, m_ordnung.seiten().at(seite).size()),
                              zuSehen ? Vorrang::Sofort : Vorrang::Nachbar);
        if (neu && zuSehen)
            m_geduld.start();
    }
}

void PDFAnsicht::ersteSeiteBestellen(const QString &pfad)
{
    const Vorschaudokument *dokument = m_lager.dokument(pfad);
    if (!dokument || dokument->groessen.isEmpty())
        return;
    const QSizeF groesse = dokument->groessen.first();
    const Seitenordnung ordnung({drehung(pfad, 0) % 180 == 0 ? groesse : groesse.transposed()}, m_zoom, raum());
    m_lager.bestellen(pfad, 0, zeichengroesse(pfad, 0, ordnung.seiten().first().size()), Vorrang::Voraus);
}

Seitenraum PDFAnsicht::raum() const
{
    // As much between two pages as around them: where a whole page is shown, nothing of the next one is.
    const int rand = Stil::mass(16);
    return {viewport()->size(), rand, rand, logicalDpiX() / punkteJeZoll};
}

QPoint PDFAnsicht::versatz() const { return {horizontalScrollBar()->value(), verticalScrollBar()->value()}; }

std::pair<int, int> PDFAnsicht::sichtbare() const
{
    return {m_ordnung.seiteBei(versatz().y()), m_ordnung.seiteBei(versatz().y() + viewport()->height())};
}

std::pair<int, QPointF> PDFAnsicht::seitenpunkt(const QPoint &punkt) const
{
    const QPoint ort = punkt + versatz();
    const int seite = m_ordnung.seiteBei(ort.y());
    const QRect flaeche = m_ordnung.seiten().value(seite);
    const QPointF innen = ort - flaeche.topLeft();
    return {seite, {innen.x() / std::max(1, flaeche.width()), innen.y() / std::max(1, flaeche.height())}};
}

void PDFAnsicht::hinsehen(const Marke &marke)
{
    if (befund() == Vorschaubefund::Laedt)
        m_hinzusehen = marke;
    else
        hinrollen(marke.seite, m_text.gesehen(marke.seite, marke.orte));
}

/** To the first of @p orte at least: into the upper third, where what follows is in sight as well. */
void PDFAnsicht::hinrollen(int seite, const QList<QRectF> &orte)
{
    if (orte.isEmpty() || seite < 0 || seite >= seiten())
        return;
    const QRect flaeche = m_ordnung.seiten().at(seite);
    QRectF ganz = orte.first();
    for (const QRectF &ort : orte)
        ganz |= ort;
    const QTransform aufSeite =
        QTransform::fromTranslate(flaeche.x(), flaeche.y()).scale(flaeche.width(), flaeche.height());
    const QRect sicht(versatz(), viewport()->size());
    QRect ziel = aufSeite.mapRect(ganz).toAlignedRect();
    if (ziel.width() > sicht.width() || ziel.height() > sicht.height())
        ziel = aufSeite.mapRect(orte.first()).toAlignedRect();
    if (ziel.top() < sicht.top() || ziel.bottom() > sicht.bottom())
        verticalScrollBar()->setValue(ziel.center().y() -
                                      std::max(ziel.height() / 2 + raum().rand, sicht.height() / 3));
    if (ziel.left() < sicht.left() || ziel.right() > sicht.right())
        horizontalScrollBar()->setValue(ziel.center().x() - sicht.width() / 2);
}

void PDFAnsicht::suchen(const QString &anfrage)
{
    m_text.suchen(anfrage, sichtbare().first);
    zumTreffer();
}

void PDFAnsicht::weitersuchen(int schritt)
{
    m_text.weitersuchen(schritt);
    zumTreffer();
}

void PDFAnsicht::zumTreffer()
{
    if (const auto treffer = m_text.treffer().jetziger())
        hinrollen(treffer->von.seite, m_text.karte().orte(*treffer, treffer->von.seite));
}

bool PDFAnsicht::texttaste(const QKeyEvent *ereignis)
{
    const auto auswahl = m_text.auswahl();
    if (ereignis->matches(QKeySequence::SelectAll)) {
        m_text.auswaehlen(m_text.karte().alles());
        return m_text.auswahl().has_value();
    }
    if (!auswahl)
        return false;
    if (ereignis->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(m_text.karte().text(*auswahl));
        return true;
    }
    if (ereignis->key() != Qt::Key_Escape)
        return false;
    m_griff.abbrechen();
    m_text.auswaehlen({});
    return true;
}

bool PDFAnsicht::taste(const QKeyEvent *ereignis)
{
    if (texttaste(ereignis))
        return true;
    const auto schritt = rollschritt(ereignis);
    if (schritt)
        verticalScrollBar()->triggerAction(*schritt);
    return schritt.has_value();
}

void PDFAnsicht::scrollContentsBy(int, int)
{
    bestellen();
    viewport()->update();
    standZeigen();
    m_griff.zeigerStellen();
}

// The arrows to the left and right belong to the card, which turns to another document with them.
void PDFAnsicht::keyPressEvent(QKeyEvent *ereignis)
{
    QScrollBar *leiste = horizontalScrollBar();
    if (taste(ereignis))
        return;
    if (ereignis->modifiers() == Qt::ShiftModifier && ereignis->key() == Qt::Key_Left)
        leiste->triggerAction(QScrollBar::SliderSingleStepSub);
    else if (ereignis->modifiers() == Qt::ShiftModifier && ereignis->key() == Qt::Key_Right)
        leiste->triggerAction(QScrollBar::SliderSingleStepAdd);
    else
        ereignis->ignore();
}

void PDFAnsicht::wheelEvent(QWheelEvent *ereignis)
{
    if (!(ereignis->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(ereignis);
        return;
    }
    // A touchpad turns the wheel in many small pieces.
    m_rad += ereignis->angleDelta().y();
    for (; m_rad >= QWheelEvent::DefaultDeltasPerStep; m_rad -= QWheelEvent::DefaultDeltasPerStep)
        groesser();
    for (; m_rad <= -QWheelEvent::DefaultDeltasPerStep; m_rad += QWheelEvent::DefaultDeltasPerStep)
        kleiner();
}

void PDFAnsicht::paintEvent(QPaintEvent *ereignis)
{
    QPainter maler(viewport());
    maler.fillRect(ereignis->rect(), Farben::unterlage(palette()));
    if (m_pfad.isEmpty())
        return;
    maler.setRenderHint(QPainter::SmoothPixmapTransform);
    const auto [erste, letzte] = sichtbare();
    for (int seite = erste; seite <= letzte && seite < m_ordnung.seiten().size(); ++seite)
        seiteMalen(maler, seite, m_ordnung.seiten().at(seite).translated(-versatz()));
    if (hasFocus())
        fokusrahmen(maler, palette(), viewport()->rect().adjusted(1, 1, -1, -1));
}

void PDFAnsicht::seiteMalen(QPainter &maler, int seite, const QRect &flaeche)
{
    maler.fillRect(flaeche.adjusted(-1, -1, 1, 1), Farben::linie(palette()));
    maler.fillRect(flaeche, Qt::white);
    const Vorschaudokument *dokument = m_lager.dokument(m_pfad);
    const bool fertig = dokument && dokument->bilder.contains(seite);
    const QImage bild = fertig ? dokument->bilder.value(seite) : QImage();
    if (!bild.isNull())
        bildMalen(maler, flaeche, bild, drehung(m_pfad, seite));
    else if (fertig)
        wartetext(maler, flaeche.intersected(viewport()->rect()), satzFuerSeite(dokument->gescheitert.value(seite)));
    else if (!m_geduld.isActive())
        wartetext(maler, flaeche.intersected(viewport()->rect()), Sprache::text(u"Wird geladen …"_s));
    if (!bild.isNull())
        auflagenMalen(maler, flaeche, m_text.auflagen(seite), m_text.karte().seite(seite), palette());
    if (fertig && seite == 0)
        sichtbarkeitMelden();
}

void PDFAnsicht::sichtbarkeitMelden()
{
    if (std::exchange(m_gemeldet, true))
        return;
    // After the painting, when the picture is on its way to the screen.
    QMetaObject::invokeMethod(
        this, [this, pfad = m_pfad] { Q_EMIT seiteSichtbar(pfad); }, Qt::QueuedConnection);
}
} // namespace quillmar::vorschau
