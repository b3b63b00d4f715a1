#include "tastentakt.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>

namespace
{
constexpr quint64 keineHand = 5; // ms from release to press that no finger is fast enough for
}

Tastentakt::Tastentakt(QObject *anwendung) : QObject(anwendung) { anwendung->installEventFilter(this); }

Tastentakt *Tastentakt::derAnwendung()
{
    auto *vorhanden = qApp->findChild<Tastentakt *>(QString(), Qt::FindDirectChildrenOnly);
    return vorhanden ? vorhanden : new Tastentakt(qApp);
}

bool Tastentakt::eventFilter(QObject *, QEvent *ereignis)
{
    const QEvent::Type art = ereignis->type();
    if (art != QEvent::KeyPress && art != QEvent::ShortcutOverride && art != QEvent::KeyRelease)
        return false;
    const auto *taste = static_cast<QKeyEvent *>(ereignis);
    const quint64 zeit = taste->timestamp();
    if (art == QEvent::KeyRelease) {
        m_losgelassen[taste->key()] = zeit;
        return false;
    }
    const quint64 vorher = m_losgelassen.value(taste->key());
    m_gehalten = taste->isAutoRepeat() || (vorher > 0 && zeit >= vorher && zeit - vorher < keineHand);
    return false;
}

void kurztaste(const QKeySequence &tasten, QWidget *karte, const std::function<void()> &tat)
{
    const Tastentakt *takt = Tastentakt::derAnwendung(); // has to see the keys from the first one on
    auto *kurz = new QShortcut(tasten, karte);
    kurz->setContext(Qt::WidgetWithChildrenShortcut);
    kurz->setAutoRepeat(false);
    QObject::connect(kurz, &QShortcut::activated, karte, [takt, tat] {
        if (!takt->gehalten())
            tat();
    });
}

QAbstractButton *knopfImFokus(const QWidget *teil)
{
    auto *knopf = qobject_cast<QAbstractButton *>(teil->focusWidget());
    return knopf && knopf->hasFocus() ? knopf : nullptr;
}
