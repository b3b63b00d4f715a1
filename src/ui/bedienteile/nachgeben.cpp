#include "nachgeben.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QWidget>
#include <utility>

namespace quillmar::bedienteile
{
Nachgeben::Nachgeben(QWidget *traeger, int letzte, std::function<void(int)> anwenden, std::function<bool()> passt,
                     Anlass anlass)
    : QObject(traeger), m_traeger(traeger), m_letzte(letzte), m_anwenden(std::move(anwenden)),
      m_passt(std::move(passt)), m_anlass(anlass)
{
    if (!m_passt)
        m_passt = [traeger] { return traeger->layout()->sizeHint().width() <= traeger->width(); };
    traeger->installEventFilter(this);
}

void Nachgeben::pruefen()
{
    if (std::exchange(m_dabei, true))
        return;
    for (m_stufe = 0;; ++m_stufe) {
        m_anwenden(m_stufe);
        m_traeger->layout()->invalidate();
        if (m_stufe == m_letzte || m_passt())
            break;
    }
    // What the trying itself asked for must not lead here again.
    QCoreApplication::removePostedEvents(m_traeger, QEvent::LayoutRequest);
    m_traeger->layout()->activate();
    m_dabei = false;
}

bool Nachgeben::eventFilter(QObject *, QEvent *ereignis)
{
    const bool inhalt = ereignis->type() == QEvent::LayoutRequest && m_anlass == Anlass::Inhalt;
    if (inhalt || ereignis->type() == QEvent::Resize || ereignis->type() == QEvent::FontChange)
        pruefen();
    return false;
}
} // namespace quillmar::bedienteile
