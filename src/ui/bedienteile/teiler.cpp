#include "teiler.h"

#include "bau.h"
#include "farben.h"
#include "sprache.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr double kleinster = 0.25;
constexpr double groesster = 0.75;
constexpr double mitte = 0.5;
constexpr double schritt = 0.02; // of one press of an arrow key
constexpr int griffbreite = 11;
constexpr int mindestbreite = 280; // of a pane, at 10 pt
constexpr int zugweg = 10;         // pixels until a press becomes a drag

/** The last of @p teil and what is in it, by the Tab key. */
QWidget *letzterIn(QWidget *teil)
{
    QWidget *letzter = teil;
    for (QWidget *w = teil->nextInFocusChain(); teil->isAncestorOf(w); w = w->nextInFocusChain()) {
        if (w->focusPolicy() != Qt::NoFocus) // Qt puts nothing behind one that takes none
            letzter = w;
    }
    return letzter;
}
} // namespace

/** The strip to take hold of; it lies over the line, so that both panes reach it. */
class Teiler::Griff : public QWidget
{
public:
    explicit Griff(Teiler *teiler) : QWidget(teiler), m_teiler(teiler)
    {
        setCursor(Qt::SplitHCursor);
        setFocusPolicy(Qt::TabFocus);
        bezeichnen(
            this, u"teilung"_s, Sprache::text(u"Trennlinie"_s),
            Sprache::text(u"Ziehen verschiebt die Trennlinie, Doppelklick stellt zwei gleiche Hälften wieder her"_s));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter maler(this);
        maler.fillRect(width() / 2, 0, 1, height(), Farben::linie(palette()));
        maler.setRenderHint(QPainter::Antialiasing);
        maler.setPen(Qt::NoPen);
        maler.fillRect(width() / 2, height() / 2 - 14, 1, 28, palette().color(QPalette::Window));
        maler.setBrush(hasFocus() ? Farben::akzentmarke(palette()) : Farben::griff(palette()));
        for (int n = -1; n <= 1; ++n)
            maler.drawEllipse(QPointF(width() / 2.0, height() / 2.0 + 8 * n), hasFocus() ? 3 : 2, hasFocus() ? 3 : 2);
    }

    void mousePressEvent(QMouseEvent *ereignis) override
    {
        if (ereignis->button() == Qt::LeftButton) {
            m_beginn = m_teiler->m_gezeigter;
            m_druckpunkt = ereignis->globalPosition().x();
            m_zieht = false;
        }
    }

    void mouseMoveEvent(QMouseEvent *ereignis) override
    {
        if (!m_beginn)
            return;
        const double weg = ereignis->globalPosition().x() - m_druckpunkt;
        m_zieht = m_zieht || std::abs(weg) >= zugweg;
        if (m_zieht)
            m_teiler->waehlen(*m_beginn + weg / std::max(1, m_teiler->width()));
    }

    void mouseReleaseEvent(QMouseEvent *) override { m_beginn.reset(); }
    void mouseDoubleClickEvent(QMouseEvent *) override { m_teiler->waehlen(mitte); }

    void keyPressEvent(QKeyEvent *ereignis) override
    {
        if (ereignis->key() == Qt::Key_Left)
            m_teiler->waehlen(m_teiler->m_gezeigter - schritt);
        else if (ereignis->key() == Qt::Key_Right)
            m_teiler->waehlen(m_teiler->m_gezeigter + schritt);
        else
            QWidget::keyPressEvent(ereignis);
    }

    bool event(QEvent *ereignis) override
    {
        // The arrows move the line while it has the focus, whatever the card uses them for.
        if (ereignis->type() == QEvent::ShortcutOverride) {
            const int taste = static_cast<QKeyEvent *>(ereignis)->key();
            if (taste == Qt::Key_Left || taste == Qt::Key_Right)
                ereignis->accept();
        }
        return QWidget::event(ereignis);
    }

private:
    Teiler *m_teiler;
    std::optional<double> m_beginn; ///< the share when the drag began
    double m_druckpunkt = 0;
    bool m_zieht = false;
};

Teiler::Teiler(QWidget *links, QWidget *rechts, QWidget *eltern)
    : QWidget(eltern), m_links(links), m_rechts(rechts), m_griff(nullptr)
{
    links->setParent(this);
    rechts->setParent(this);
    m_griff = new Griff(this);
    setTabOrder(letzterIn(m_links), m_griff);
    Stil::folgen(this, [this] { anordnen(); });
}

void Teiler::setzeAnteil(double anteil)
{
    m_anteil = std::clamp(anteil, kleinster, groesster);
    anordnen();
}

void Teiler::waehlen(double anteil)
{
    setzeAnteil(anteil);
    Q_EMIT anteilGewaehlt(m_anteil);
}

void Teiler::anordnen()
{
    const double grenze = std::clamp(double(Stil::mass(mindestbreite)) / std::max(1, width()), kleinster, mitte);
    m_gezeigter = std::clamp(m_anteil, grenze, 1 - grenze);
    const int links = int(std::lround(width() * m_gezeigter));
    m_links->setGeometry(0, 0, links, height());
    m_rechts->setGeometry(links + 1, 0, width() - links - 1, height());
    m_griff->setGeometry(links - griffbreite / 2, 0, griffbreite, height());
    m_griff->raise();
    Q_EMIT angeordnet(m_gezeigter);
}

void Teiler::resizeEvent(QResizeEvent *) { anordnen(); }
} // namespace quillmar::bedienteile
