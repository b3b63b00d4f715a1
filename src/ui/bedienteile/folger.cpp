#include "folger.h"

#include "stil.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <utility>

namespace quillmar::bedienteile
{
Schriftmelder::Schriftmelder(QObject *anwendung) : QObject(anwendung) { anwendung->installEventFilter(this); }

Schriftmelder *Schriftmelder::derAnwendung()
{
    auto *vorhanden = qApp->findChild<Schriftmelder *>(QString(), Qt::FindDirectChildrenOnly);
    return vorhanden ? vorhanden : new Schriftmelder(qApp);
}

bool Schriftmelder::eventFilter(QObject *empfaenger, QEvent *ereignis)
{
    if (empfaenger != qApp)
        return false;
    if (ereignis->type() == QEvent::ApplicationFontChange)
        Q_EMIT schriftGeaendert();
    // A label with a colour of its own is not told; by then all others have the new palette.
    if (ereignis->type() == QEvent::ApplicationPaletteChange)
        QMetaObject::invokeMethod(this, &Schriftmelder::schriftGeaendert, Qt::QueuedConnection);
    return false;
}

Folger::Folger(QWidget *traeger, std::function<void()> anwenden) : QObject(traeger), m_anwenden(std::move(anwenden))
{
    traeger->installEventFilter(this);
    connect(Schriftmelder::derAnwendung(), &Schriftmelder::schriftGeaendert, this, &Folger::folgen);
    folgen();
}

bool Folger::eventFilter(QObject *, QEvent *ereignis)
{
    switch (ereignis->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        folgen();
        break;
    default:
        break;
    }
    return false;
}

void Folger::folgen()
{
    if (std::exchange(m_dabei, true))
        return;
    m_anwenden();
    m_dabei = false;
}

void Stil::folgen(QWidget *traeger, std::function<void()> anwenden) { new Folger(traeger, std::move(anwenden)); }
} // namespace quillmar::bedienteile
