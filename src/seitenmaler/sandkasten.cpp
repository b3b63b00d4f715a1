#include "sandkasten.h"

#include "dateigriff.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/landlock.h>
#include <memory>
#include <new>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quillmar::seitenmaler
{
namespace
{
#ifndef __has_feature
#define __has_feature(was) 0 // clang's way to ask
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
constexpr bool mitSanitizer = true;
#else
constexpr bool mitSanitizer = false;
#endif

constexpr rlim_t meisteDateien = 64;

// What PDFium looks for fonts in.
constexpr std::array schriftordner{"/usr/share/fonts", "/usr/share/X11/fonts", "/usr/local/share/fonts"};

// Everything that the first Landlock knows; later additions are denied by the filter.
constexpr quint64 alleRechte = (quint64(LANDLOCK_ACCESS_FS_MAKE_SYM) << 1) - 1;

int ausgangOhneSpeicher = 1;
size_t kleinsterRest = 0;

void setzeGrenze(__rlimit_resource was, rlim_t wert)
{
    const rlimit grenze{wert, wert};
    ::setrlimit(was, &grenze);
}

// PDFium ends itself by one signal or another when memory is denied: tell that from other ends.
void beiAbsturz(int signal)
{
    if (::mmap(nullptr, kleinsterRest, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0) == MAP_FAILED)
        ::_exit(ausgangOhneSpeicher);
    ::raise(signal); // its own handling is back
}

void abstuerzeUnterscheiden()
{
    alignas(16) static std::array<std::byte, 16384> stapel; // the usual one may be what ran over
    const stack_t ort{stapel.data(), 0, stapel.size()};
    ::sigaltstack(&ort, nullptr);
    struct sigaction art = {};
    art.sa_handler = beiAbsturz;
    art.sa_flags = SA_ONSTACK | int(SA_RESETHAND) | SA_NODEFER;
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE})
        ::sigaction(signal, &art, nullptr);
}

struct Filterende {
    void operator()(void *filter) const noexcept { ::seccomp_release(filter); }
};
using Filter = std::unique_ptr<void, Filterende>;

// No program is started and none loaded, no socket made, nothing made executable.
constexpr std::array erlaubte{
    SCMP_SYS(read),
    SCMP_SYS(readv),
    SCMP_SYS(pread64),
    SCMP_SYS(write),
    SCMP_SYS(writev),
    SCMP_SYS(lseek),
    SCMP_SYS(close),
    SCMP_SYS(dup),
    SCMP_SYS(fstat),
    SCMP_SYS(stat),
    SCMP_SYS(lstat),
    SCMP_SYS(newfstatat),
    SCMP_SYS(statx),
    SCMP_SYS(fstatfs),
    SCMP_SYS(access),
    SCMP_SYS(faccessat),
    SCMP_SYS(faccessat2),
    SCMP_SYS(readlink),
    SCMP_SYS(readlinkat),
    SCMP_SYS(getdents64),
    SCMP_SYS(getcwd),
    SCMP_SYS(fcntl),
    SCMP_SYS(munmap),
    SCMP_SYS(mremap),
    SCMP_SYS(madvise),
    SCMP_SYS(brk),
    SCMP_SYS(futex),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_getres),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(time),
    SCMP_SYS(times),
    SCMP_SYS(getrusage),
    SCMP_SYS(getpid),
    SCMP_SYS(gettid),
    SCMP_SYS(getuid),
    SCMP_SYS(geteuid),
    SCMP_SYS(getgid),
    SCMP_SYS(getegid),
    SCMP_SYS(sched_yield),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(poll),
    SCMP_SYS(ppoll),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),
    SCMP_SYS(getrandom),
    SCMP_SYS(uname),
    SCMP_SYS(sysinfo),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
};

template <typename... Bedingungen>
bool erlauben(void *filter, int aufruf, Bedingungen... bedingungen)
{
    // What this kind of processor does not have cannot be called on it either.
    return aufruf < 0 ||
           ::seccomp_rule_add(filter, SCMP_ACT_ALLOW, aufruf, sizeof...(bedingungen), bedingungen...) == 0;
}

bool bedingtErlauben(void *filter, int kanal)
{
    constexpr scmp_datum_t schreibend = O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND | (O_TMPFILE & ~O_DIRECTORY);
    const auto self = scmp_datum_t(::getpid());
    return erlauben(filter, SCMP_SYS(openat), SCMP_A2(SCMP_CMP_MASKED_EQ, schreibend, O_RDONLY)) &&
           erlauben(filter, SCMP_SYS(open), SCMP_A1(SCMP_CMP_MASKED_EQ, schreibend, O_RDONLY)) &&
           erlauben(filter, SCMP_SYS(mmap), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0)) &&
           erlauben(filter, SCMP_SYS(mprotect), SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0)) &&
           erlauben(filter, SCMP_SYS(recvmsg), SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(kanal))) &&
           erlauben(filter, SCMP_SYS(sendmsg), SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(kanal))) &&
           erlauben(filter, SCMP_SYS(tgkill), SCMP_A0(SCMP_CMP_EQ, self)) &&
           erlauben(filter, SCMP_SYS(prlimit64), SCMP_A0(SCMP_CMP_EQ, 0), SCMP_A1(SCMP_CMP_EQ, RLIMIT_CPU));
}

bool filtern(int kanal)
{
    const Filter filter(::seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    if (!filter)
        return false;
    for (const int aufruf : erlaubte) {
        if (!erlauben(filter.get(), aufruf))
            return false;
    }
    // A sanitizer asks the kernel by a pipe whether memory can be read.
    const bool gelungen =
        !mitSanitizer || (erlauben(filter.get(), SCMP_SYS(pipe)) && erlauben(filter.get(), SCMP_SYS(pipe2)));
    return gelungen && bedingtErlauben(filter.get(), kanal) && ::seccomp_load(filter.get()) == 0;
}

/** Reading in the folders of the fonts alone. A kernel without it says no, which changes nothing. */
void leseorteBegrenzen()
{
    landlock_ruleset_attr alles = {};
    alles.handled_access_fs = alleRechte;
    const Dateigriff regeln(int(::syscall(SYS_landlock_create_ruleset, &alles, sizeof alles, 0)));
    if (!regeln.offen())
        return;
    for (const char *pfad : schriftordner) {
        const Dateigriff ordner(::open(pfad, O_PATH | O_CLOEXEC));
        landlock_path_beneath_attr regel = {};
        regel.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
        regel.parent_fd = ordner.nummer();
        if (ordner.offen())
            ::syscall(SYS_landlock_add_rule, regeln.nummer(), LANDLOCK_RULE_PATH_BENEATH, &regel, 0);
    }
    ::syscall(SYS_landlock_restrict_self, regeln.nummer(), 0);
}
} // namespace

void Sandkasten::dateienSchliessen(int bleibt)
{
    const int nirgends = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int griff : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (nirgends >= 0 && !(mitSanitizer && griff == STDERR_FILENO))
            ::dup2(nirgends, griff);
    }
    ::close_range(STDERR_FILENO + 1, unsigned(bleibt) - 1, 0);
    ::close_range(unsigned(bleibt) + 1, ~0U, 0);
}

void Sandkasten::binden()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_DUMPABLE, 0);
    setzeGrenze(RLIMIT_CORE, 0);
}

void Sandkasten::begrenzen(quint64 adressraum, int speicherVoll)
{
    setzeGrenze(RLIMIT_NOFILE, meisteDateien);
    setzeGrenze(RLIMIT_FSIZE, mitSanitizer ? RLIM_INFINITY : 0);
    ausgangOhneSpeicher = speicherVoll;
    std::set_new_handler([] { ::_exit(ausgangOhneSpeicher); });
    // A sanitizer takes terabytes of addresses, and the signals.
    if (mitSanitizer || adressraum == 0)
        return;
    rlimit bisher = {};
    ::getrlimit(RLIMIT_AS, &bisher);
    const rlim_t grenze = std::min<rlim_t>(adressraum, bisher.rlim_max);
    setzeGrenze(RLIMIT_AS, grenze);
    kleinsterRest = grenze / 4;
    abstuerzeUnterscheiden();
}

void Sandkasten::fristSetzen(std::chrono::seconds rechenzeit)
{
    rusage verbrauch = {};
    ::getrusage(RUSAGE_SELF, &verbrauch);
    const auto bisher = verbrauch.ru_utime.tv_sec + verbrauch.ru_stime.tv_sec + 2; // two parts, rounded up
    const rlimit grenze{rlim_t(bisher + rechenzeit.count()), RLIM_INFINITY};
    ::setrlimit(RLIMIT_CPU, &grenze);
}

bool Sandkasten::schliessen(int kanal)
{
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return false;
    leseorteBegrenzen();
    return filtern(kanal);
}
} // namespace quillmar::seitenmaler
