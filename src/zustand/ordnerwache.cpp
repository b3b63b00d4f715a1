#include "ordnerwache.h"

#include "briefkasten.h"

#include <QFileSystemWatcher>
#include <QThread>
#include <memory>

using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr qsizetype meisteOrdner = 4'000; // the system's limit is for all programs of the user
constexpr auto laengstesWarten = 900ms;
} // namespace

/** What lives on the thread. */
class Ordnerwache::Beobachter : public QObject
{
public:
    explicit Beobachter(std::function<void()> melden) : m_melden(std::move(melden)) {}

    void umstellen(const QStringList &ordner)
    {
        m_waechter = ordner.isEmpty() ? nullptr : std::make_unique<QFileSystemWatcher>(ordner);
        if (m_waechter)
            connect(m_waechter.get(), &QFileSystemWatcher::directoryChanged, this, m_melden);
    }

private:
    std::function<void()> m_melden;
    std::unique_ptr<QFileSystemWatcher> m_waechter;
};

Ordnerwache::Ordnerwache(QObject *vater) : QObject(vater) {}

Ordnerwache::~Ordnerwache()
{
    if (!m_faden)
        return;
    m_beobachter->deleteLater(); // there, at the thread's end
    m_faden->quit();
    if (m_faden->wait(laengstesWarten.count()))
        delete m_faden;
}

void Ordnerwache::beobachten(const QStringList &ordner)
{
    if (ordner == m_ordner)
        return;
    m_ordner = ordner;
    if (!m_faden) {
        m_faden = new QThread;
        m_beobachter = new Beobachter(
            [this, briefe = Briefkasten::fuer(this)] { briefe->fortschreiben([this] { Q_EMIT geaendert(); }); });
        m_beobachter->moveToThread(m_faden);
        m_faden->start();
    }
    QMetaObject::invokeMethod(
        m_beobachter,
        [b = m_beobachter, ordner = ordner.first(std::min(ordner.size(), meisteOrdner))] { b->umstellen(ordner); });
}
} // namespace quillmar::zustand
