#include "hintergrund.h"

#include <QThreadPool>
#include <future>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quillmar::grundlage
{
namespace
{
// As good as no limit: what hangs on a drive must not keep others from theirs.
constexpr int hoechstensFaeden = 1000;
constexpr int nachrangig = 10; // nice

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

void Hintergrund::hintanstellen(const std::function<void()> &arbeit)
{
    std::async(std::launch::async, [&arbeit] {
        ::setpriority(PRIO_PROCESS, id_t(::syscall(SYS_gettid)), nachrangig);
        arbeit();
    }).get();
}

bool Hintergrund::warten(std::chrono::milliseconds laengstens) { return faeden().waitForDone(int(laengstens.count())); }
} // namespace quillmar::grundlage
