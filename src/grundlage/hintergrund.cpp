#include "hintergrund.h"

#include <QThreadPool>

namespace quillmar::grundlage
{
namespace
{
// As good as no limit: what hangs on a drive must not keep others from theirs.
constexpr int hoechstensFaeden = 1000;

QThreadPool &faeden()
{
    // Never destroyed: a thread that hangs in a network drive must not hold up the end of the program.
    static QThreadPool *const alle = [] {
        auto *neu = new QThreadPool;
        neu->setMaxThreadCount(hoechstensFaeden);
        return neu;
    }();
    return *alle;
}
} // namespace

void Hintergrund::starten(std::function<void()> arbeit)
{
    faeden().start([arbeit = std::move(arbeit)] {
        try {
            arbeit();
        } catch (...) { // out of memory, say: the program goes on
            return;
        }
    });
}

bool Hintergrund::warten(std::chrono::milliseconds laengstens) { return faeden().waitForDone(int(laengstens.count())); }
} // namespace quillmar::grundlage
