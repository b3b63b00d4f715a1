#include "tastentakt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <utility>

namespace quillmar::bedienteile
{
Tastentakt::Tastentakt(QObject *anwendung) : QObject(anwendung) { anwendung->installEventFilter(this); }

Tastentakt *Tastentakt::derAnwendung()
{
    auto *vorhanden = qApp->findChild<Tastentakt *>(QString(), Qt::FindDirectChildrenOnly);
    return vorhanden ? vorhanden : new Tastentakt(qApp);
}

/**
 * Shortcuts are looked for below an open list or menu too. It gets the key first, as always; then none are looked for,
 * and where the key has closed it, nothing behind it hears of the same stroke.
 */
bool Tastentakt::aufgeklapptes(QObject *empfaenger, QEvent *ereignis)
{
    const int taste = static_cast<QKeyEvent *>(ereignis)->key();
    if (ereignis->type() == QEvent::KeyPress)
        return std::exchange(m_verbraucht, 0) == taste;
    if (m_reichtWeiter || !QApplication::activePopupWidget())
        return false;
    m_reichtWeiter = true;
    QCoreApplication::sendEvent(empfaenger, ereignis);
    m_reichtWeiter = false;
    m_verbraucht = QApplication::activePopupWidget() ? 0 : taste;
    ereignis->accept();
    return true;
}

bool Tastentakt::eventFilter(QObject *empfaenger, QEvent *ereignis)
{
    constexpr quint64 keineHand = 5; // ms from release to press that no finger is fast enough for
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
    return aufgeklapptes(empfaenger, ereignis);
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
} // namespace quillmar::bedienteile
