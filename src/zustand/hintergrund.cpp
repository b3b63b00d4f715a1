#include "hintergrund.h"

#include "bewegungsgang.h"

namespace
{
constexpr int hoechstensFaeden = 16;
}

QThreadPool &Hintergrund::faeden()
{
    // Never destroyed: a thread that hangs in a network drive must not hold up the end of the program.
    static QThreadPool *const alle = [] {
        auto *neu = new QThreadPool;
        neu->setMaxThreadCount(hoechstensFaeden);
        return neu;
    }();
    return *alle;
}

bool Hintergrund::warten(std::chrono::milliseconds laengstens) { return faeden().waitForDone(int(laengstens.count())); }

QString Hintergrund::fehlersatz()
{
    try {
        throw;
    } catch (const Fehler &f) {
        return inSprache(f);
    } catch (const std::exception &f) {
        return QString::fromUtf8(f.what()); // out of memory, say: the program goes on
    }
}

void Briefkasten::einwerfen(std::function<void()> brief, const QString &sache)
{
    const std::lock_guard sperre(m_schloss);
    if (!m_briefe.isEmpty() && m_briefe.last().first == sache)
        m_briefe.removeLast();
    m_briefe.emplaceBack(sache, std::move(brief));
    if (!m_empfaenger || m_unterwegs)
        return;
    m_unterwegs = true;
    QMetaObject::invokeMethod(
        m_empfaenger, [selbst = shared_from_this()] { selbst->leeren(); }, Qt::QueuedConnection);
}

void Briefkasten::leeren()
{
    std::unique_lock sperre(m_schloss);
    m_unterwegs = false;
    const auto briefe = std::exchange(m_briefe, {});
    const bool zustellen = m_empfaenger;
    sperre.unlock();
    for (const auto &[sache, brief] : briefe) {
        if (zustellen)
            brief();
    }
}

void Briefkasten::schliessen()
{
    const std::lock_guard sperre(m_schloss);
    m_empfaenger = nullptr;
}
