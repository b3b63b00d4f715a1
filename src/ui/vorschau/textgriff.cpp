#include "textgriff.h"

#include "pdfansicht.h"
#include "textebene.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

using namespace std::chrono_literals;

namespace quillmar::vorschau
{
namespace
{
// Depending on the desktop the press comes before the window is active, or right behind it.
constexpr auto aktivierungsweile = 250ms;
constexpr auto rolltakt = 30ms;
constexpr int schnellstesRollen = 40; // pixels a beat

Wortgriff griff(const QString &text, const Wortspanne &worte)
{
    const bool eineSeite = worte.von.seite == worte.bis.seite;
    return {.text = text,
            .seite = worte.von.seite,
            .wort = worte.von.wort,
            .worte = eineSeite ? worte.bis.wort - worte.von.wort + 1 : 0};
}
} // namespace

Textgriff::Textgriff(PDFAnsicht *ansicht, Textebene *text) : m_ansicht(ansicht), m_text(text)
{
    m_ebenAktiv.setSingleShot(true);
    m_ebenAktiv.setInterval(aktivierungsweile);
    m_nachrollen.setInterval(rolltakt);
    connect(&m_nachrollen, &QTimer::timeout, this, &Textgriff::nachrollen);
    ansicht->viewport()->setMouseTracking(true);
    ansicht->viewport()->installEventFilter(this);
}

void Textgriff::setzeNehmen(bool nehmen)
{
    m_nehmen = nehmen;
    zeigerStellen();
}

void Textgriff::abbrechen()
{
    m_tat = Tat::Keine;
    m_nachrollen.stop();
    zeigerStellen();
}

bool Textgriff::eventFilter(QObject *, QEvent *ereignis)
{
    switch (ereignis->type()) {
    case QEvent::WindowActivate:
        m_ebenAktiv.start();
        return false;
    case QEvent::MouseButtonPress:
        return druecken(*static_cast<QMouseEvent *>(ereignis));
    case QEvent::MouseButtonDblClick:
        return doppelt(*static_cast<QMouseEvent *>(ereignis));
    case QEvent::MouseMove:
        return bewegen(*static_cast<QMouseEvent *>(ereignis));
    case QEvent::MouseButtonRelease:
        return loslassen(*static_cast<QMouseEvent *>(ereignis));
    default:
        return false;
    }
}

std::optional<Wortort> Textgriff::wortBei(const QPoint &punkt) const
{
    const auto [seite, ort] = m_ansicht->seitenpunkt(punkt);
    const auto wort = m_text->karte().seite(seite).wortBei(ort);
    return wort ? std::optional(Wortort{seite, *wort}) : std::nullopt;
}

bool Textgriff::druecken(const QMouseEvent &ereignis)
{
    const bool mitte = ereignis.button() == Qt::MiddleButton;
    if (m_tat != Tat::Keine || (!mitte && ereignis.button() != Qt::LeftButton))
        return false;
    m_taste = ereignis.button();
    m_punkt = m_beginn = ereignis.pos();
    m_versatz = m_ansicht->versatz();
    m_gezogen = false;
    m_aktivierend = m_ebenAktiv.isActive() || !m_ansicht->isActiveWindow();
    m_anker = mitte ? std::nullopt : wortBei(m_beginn);
    const Tat aufWort = m_nehmen ? Tat::Nehmen : Tat::Waehlen;
    m_tat = m_anker ? aufWort : Tat::Schieben;
    zeigerStellen();
    return true;
}

bool Textgriff::doppelt(const QMouseEvent &ereignis)
{
    if (!druecken(ereignis) || !m_anker)
        return true;
    // The first press has taken the word already.
    if (m_tat == Tat::Nehmen)
        m_tat = Tat::Keine;
    else
        m_text->auswaehlen(spanne(*m_anker, *m_anker));
    m_gezogen = true;
    return true;
}

bool Textgriff::bewegen(const QMouseEvent &ereignis)
{
    m_punkt = ereignis.pos();
    m_gezogen = m_gezogen || (m_punkt - m_beginn).manhattanLength() >= QApplication::startDragDistance();
    if (m_tat == Tat::Keine)
        zeigerStellen();
    else if (m_gezogen)
        ziehen();
    return true;
}

void Textgriff::ziehen()
{
    if (m_tat == Tat::Schieben) {
        const QPoint ziel = m_versatz + m_beginn - m_punkt;
        m_ansicht->horizontalScrollBar()->setValue(ziel.x());
        m_ansicht->verticalScrollBar()->setValue(ziel.y());
        return;
    }
    if (m_tat == Tat::Nehmen && m_aktivierend)
        return;
    const auto [seite, ort] = m_ansicht->seitenpunkt(m_punkt);
    if (const auto wort = m_text->karte().naechstes(seite, ort))
        m_text->auswaehlen(spanne(*m_anker, *wort), m_tat == Tat::Nehmen);
    const bool draussen = m_punkt.y() < 0 || m_punkt.y() >= m_ansicht->viewport()->height();
    if (draussen && !m_nachrollen.isActive())
        m_nachrollen.start();
    else if (!draussen)
        m_nachrollen.stop();
}

/** The further beyond the edge, the faster. */
void Textgriff::nachrollen()
{
    const int weit = m_punkt.y() < 0 ? m_punkt.y() : m_punkt.y() - m_ansicht->viewport()->height() + 1;
    QScrollBar *leiste = m_ansicht->verticalScrollBar();
    leiste->setValue(leiste->value() + std::clamp(weit, -schnellstesRollen, schnellstesRollen));
    ziehen();
}

bool Textgriff::loslassen(const QMouseEvent &ereignis)
{
    if (ereignis.button() != m_taste)
        return false;
    const Tat tat = m_tat;
    abbrechen();
    const bool mitteGeklickt = m_taste == Qt::MiddleButton;
    if (tat == Tat::Keine || m_aktivierend || mitteGeklickt)
        return true;
    if (tat == Tat::Nehmen) {
        const Wortspanne genommenes = m_gezogen && m_text->auswahl() ? *m_text->auswahl() : spanne(*m_anker, *m_anker);
        m_text->auswaehlen({});
        // Other words may have come meanwhile.
        if (const QString text = m_text->karte().phrase(genommenes); !text.isEmpty())
            Q_EMIT genommen(griff(text, genommenes));
    } else if (!m_gezogen) {
        m_text->auswaehlen({});
    }
    return true;
}

void Textgriff::zeigerStellen()
{
    if (const Qt::CursorShape form = zeiger(); m_ansicht->viewport()->cursor().shape() != form)
        m_ansicht->viewport()->setCursor(form);
}

Qt::CursorShape Textgriff::zeiger() const
{
    const bool beweglich =
        m_ansicht->horizontalScrollBar()->maximum() > 0 || m_ansicht->verticalScrollBar()->maximum() > 0;
    if (m_tat == Tat::Schieben)
        return beweglich ? Qt::ClosedHandCursor : Qt::ArrowCursor;
    if (m_tat != Tat::Keine || wortBei(m_punkt))
        return m_tat == Tat::Nehmen || (m_tat == Tat::Keine && m_nehmen) ? Qt::PointingHandCursor : Qt::IBeamCursor;
    return beweglich ? Qt::OpenHandCursor : Qt::ArrowCursor;
}
} // namespace quillmar::vorschau
