#include "anordnung.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <utility>

namespace quillmar::bedienteile
{
void Kette::setzeAbstand(Abstand abstand)
{
    m_abstand = abstand;
    invalidate();
}

void Kette::anfuegen(const Teil &teil)
{
    if (teil.layout)
        addLayout(teil.layout, teil.dehnung);
    else if (teil.widget)
        addWidget(teil.widget, teil.dehnung, teil.wo);
    else
        addStretch(teil.dehnung);
}

Flussreihe::~Flussreihe() { qDeleteAll(m_teile); }

QLayoutItem *Flussreihe::takeAt(int stelle)
{
    return stelle >= 0 && stelle < m_teile.size() ? m_teile.takeAt(stelle) : nullptr;
}

/** Returns the height that the lines need. */
int Flussreihe::legen(const QRect &flaeche, bool setzen) const
{
    int x = flaeche.x();
    int y = flaeche.y();
    int hoehe = 0;
    for (QLayoutItem *teil : m_teile) {
        if (teil->isEmpty())
            continue;
        const QSize groesse = teil->sizeHint();
        if (x > flaeche.x() && x + groesse.width() > flaeche.right() + 1) {
            x = flaeche.x();
            y += hoehe + spacing();
            hoehe = 0;
        }
        if (setzen)
            teil->setGeometry(QRect(QPoint(x, y), groesse));
        x += groesse.width() + spacing();
        hoehe = std::max(hoehe, groesse.height());
    }
    return y + hoehe - flaeche.y();
}

void Flussreihe::setGeometry(const QRect &flaeche)
{
    QLayout::setGeometry(flaeche);
    legen(flaeche, true);
}

QSize Flussreihe::sizeHint() const
{
    int breite = 0;
    for (const QLayoutItem *teil : m_teile)
        breite += teil->sizeHint().width() + spacing();
    return {breite, minimumSize().height()};
}

QSize Flussreihe::minimumSize() const
{
    QSize groesse;
    for (const QLayoutItem *teil : m_teile)
        groesse = groesse.expandedTo(teil->sizeHint());
    return groesse;
}

Nachgeben::Nachgeben(QWidget *traeger, int letzte, std::function<void(int)> anwenden, std::function<bool()> passt,
                     Anlass anlass)
    : QObject(traeger), m_traeger(traeger), m_letzte(letzte), m_anwenden(std::move(anwenden)),
      m_passt(std::move(passt)), m_anlass(anlass)
{
    if (!m_passt)
        m_passt = [traeger] { return traeger->layout()->sizeHint().width() <= traeger->width(); };
    traeger->installEventFilter(this);
}

/** Calls @p tun for every row within @p layout and the widget that it fills, from the inside out. */
static void jedeReihe(const QLayout *layout, const std::function<void(QLayout *, QWidget *)> &tun)
{
    for (int n = 0; n < layout->count(); ++n) {
        QLayoutItem *teil = layout->itemAt(n);
        if (QLayout *innen = teil->widget() ? teil->widget()->layout() : teil->layout()) {
            jedeReihe(innen, tun);
            tun(innen, teil->widget());
        }
    }
}

/** Rows within rows remember what they asked for, and hear of nothing. */
static void vergessen(QLayout *reihe, QWidget *traeger)
{
    reihe->invalidate();
    if (traeger)
        traeger->updateGeometry();
}

void Nachgeben::versuchen(int ab)
{
    if (std::exchange(m_dabei, true))
        return;
    if (ab == 0)
        m_zuEng = {};
    for (m_stufe = ab;; ++m_stufe) {
        m_anwenden(m_stufe);
        jedeReihe(m_traeger->layout(), vergessen);
        m_traeger->layout()->invalidate();
        if (m_stufe == m_letzte || m_passt())
            break;
        m_zuEng = m_traeger->size();
    }
    // What the trying itself asked for must not lead here again, neither directly nor from the rows of what is within.
    jedeReihe(m_traeger->layout(), [](QLayout *reihe, const QWidget *traeger) {
        if (traeger)
            reihe->activate();
    });
    QCoreApplication::removePostedEvents(m_traeger, QEvent::LayoutRequest);
    m_traeger->layout()->activate();
    m_dabei = false;
}

bool Nachgeben::eventFilter(QObject *, QEvent *ereignis)
{
    const bool inhalt = ereignis->type() == QEvent::LayoutRequest && m_anlass == Anlass::Inhalt;
    const bool groesse = ereignis->type() == QEvent::Resize;
    if (groesse && m_traeger->width() <= m_zuEng.width() && m_traeger->height() <= m_zuEng.height())
        versuchen(m_stufe); // for more there was too little room before
    else if (inhalt || groesse)
        pruefen();
    else if (ereignis->type() == QEvent::FontChange) // what is within hears of it later
        QMetaObject::invokeMethod(this, &Nachgeben::pruefen, Qt::QueuedConnection);
    return false;
}
} // namespace quillmar::bedienteile
