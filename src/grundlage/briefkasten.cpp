#include "briefkasten.h"

#include <QObject>

namespace quillmar::grundlage
{
std::shared_ptr<Briefkasten> Briefkasten::fuer(QObject *empfaenger)
{
    const std::shared_ptr<Briefkasten> neuer(new Briefkasten(empfaenger));
    neuer->m_ende = QObject::connect(empfaenger, &QObject::destroyed, [kasten = std::weak_ptr(neuer)] {
        if (const auto da = kasten.lock())
            da->schliessen();
    });
    return neuer;
}

Briefkasten::~Briefkasten() { QObject::disconnect(m_ende); }

void Briefkasten::einwerfen(Brief brief) { einlegen(std::nullopt, std::move(brief)); }

void Briefkasten::fortschreiben(Brief brief, const QString &sache) { einlegen(sache, std::move(brief)); }

void Briefkasten::einlegen(std::optional<QString> sache, Brief brief)
{
    const std::lock_guard sperre(m_schloss);
    if (!m_empfaenger)
        return;
    if (sache && !m_briefe.isEmpty() && m_briefe.last().first == sache)
        m_briefe.removeLast();
    m_briefe.emplaceBack(std::move(sache), std::move(brief));
    if (std::exchange(m_unterwegs, true))
        return;
    QMetaObject::invokeMethod(
        m_empfaenger, [selbst = shared_from_this()] { selbst->leeren(); }, Qt::QueuedConnection);
}

/** Only what is there at the beginning: who throws in without a pause must not hold up the receiver's thread. */
void Briefkasten::leeren()
{
    std::unique_lock sperre(m_schloss);
    m_unterwegs = false;
    qsizetype rest = m_briefe.size();
    sperre.unlock();
    for (; rest > 0; --rest) {
        // One by one: a letter may run an event loop of its own, in which those behind it are delivered.
        if (const Brief brief = naechster())
            brief();
    }
}

Briefkasten::Brief Briefkasten::naechster()
{
    const std::lock_guard sperre(m_schloss);
    return m_briefe.isEmpty() ? Brief() : m_briefe.takeFirst().second;
}

void Briefkasten::schliessen()
{
    QList<std::pair<std::optional<QString>, Brief>> alte; // go when the lock is open again
    const std::lock_guard sperre(m_schloss);
    m_empfaenger = nullptr;
    alte.swap(m_briefe);
}
} // namespace quillmar::grundlage
