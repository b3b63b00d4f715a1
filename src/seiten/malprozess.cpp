#include "malprozess.h"

#include "briefkasten.h"

#include <QCoreApplication>
#include <QFile>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::seiten
{
using namespace Seitenprotokoll;

namespace
{
/** What the process gets of our surroundings: where its libraries are, and what a sanitizer is told. */
QList<QByteArray> umgebung()
{
    QList<QByteArray> liste{"LC_ALL=C.UTF-8"};
    for (const char *name : {"LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            liste << QByteArray(name) + '=' + qgetenv(name);
    }
    return liste;
}

/** Starts @p programm with @p kanal as its only open file beside the three channels. -1 when it cannot be started. */
pid_t gestartet(const QByteArray &programm, int kanal)
{
    posix_spawn_file_actions_t dateien;
    posix_spawnattr_t art;
    ::posix_spawn_file_actions_init(&dateien);
    ::posix_spawn_file_actions_adddup2(&dateien, kanal, Seitenprotokoll::kanal);
    ::posix_spawnattr_init(&art);
    sigset_t keine;
    sigset_t alle;
    ::sigemptyset(&keine);
    ::sigfillset(&alle);
    ::posix_spawnattr_setsigmask(&art, &keine);
    ::posix_spawnattr_setsigdefault(&art, &alle);
    ::posix_spawnattr_setflags(&art, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    QList<QByteArray> werte = umgebung();
    QList<char *> zeiger;
    for (QByteArray &wert : werte)
        zeiger << wert.data();
    zeiger << nullptr;
    QByteArray name = programm;
    std::array<char *, 2> argumente{name.data(), nullptr};
    pid_t pid = -1;
    if (::posix_spawn(&pid, programm.constData(), &dateien, &art, argumente.data(), zeiger.data()) != 0)
        pid = -1;
    ::posix_spawnattr_destroy(&art);
    ::posix_spawn_file_actions_destroy(&dateien);
    return pid;
}

Malfehler grund(const siginfo_t &ende)
{
    if (ende.si_code == CLD_EXITED)
        return ende.si_status == speicherVoll ? Malfehler::ZuVielSpeicher : Malfehler::Abgestuerzt;
    return ende.si_status == SIGXCPU ? Malfehler::ZuLange : Malfehler::Abgestuerzt;
}

/** One packet with @p bytes and the descriptor @p dazu, unless that is negative. */
bool paketSenden(int kanal, QByteArray bytes, int dazu)
{
    iovec stueck{bytes.data(), size_t(bytes.size())};
    msghdr paket = {};
    paket.msg_iov = &stueck;
    paket.msg_iovlen = 1;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> beilage = {};
    if (dazu >= 0) {
        paket.msg_control = beilage.data();
        paket.msg_controllen = beilage.size();
        cmsghdr *kopf = CMSG_FIRSTHDR(&paket);
        kopf->cmsg_level = SOL_SOCKET;
        kopf->cmsg_type = SCM_RIGHTS;
        kopf->cmsg_len = CMSG_LEN(sizeof(int));
        std::memcpy(CMSG_DATA(kopf), &dazu, sizeof(int));
    }
    ssize_t gesendet = -1;
    do {
        gesendet = ::sendmsg(kanal, &paket, MSG_DONTWAIT | MSG_NOSIGNAL);
    } while (gesendet < 0 && errno == EINTR);
    return gesendet == bytes.size();
}
} // namespace

/** Shared with the thread: the process may only be spoken of by its number until it is waited for. */
struct Malprozess::Kind {
    std::mutex sperre;
    pid_t pid = -1;
    bool gewollt = true;
};

QString Malprozess::programm() { return QCoreApplication::applicationDirPath() + u"/quillmar-seiten"_s; }

Malprozess::Malprozess(const QString &programm, QObject *eltern) : QObject(eltern), m_kind(std::make_shared<Kind>())
{
    const auto briefe = Briefkasten::fuer(this);
    const auto melden = [this, briefe](Malfehler grund) {
        briefe->einwerfen([this, grund] {
            hoeren(); // what it said before it ended
            schluss(grund);
        });
    };
    std::array<int, 2> enden = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, enden.data()) != 0) {
        melden(Malfehler::NichtGestartet);
        return;
    }
    m_kanal = Dateigriff(enden[0]);
    m_waechter = std::make_unique<QSocketNotifier>(m_kanal.nummer(), QSocketNotifier::Read);
    connect(m_waechter.get(), &QSocketNotifier::activated, this, &Malprozess::hoeren);
    try {
        std::thread([kind = m_kind, pfad = QFile::encodeName(programm), kanal = Dateigriff(enden[1]),
                     melden]() mutable {
            begleiten(kind, pfad, std::move(kanal), melden);
        }).detach();
    } catch (const std::system_error &) { // no thread to be had
        melden(Malfehler::NichtGestartet);
    }
}

Malprozess::~Malprozess() { toeten(); }

void Malprozess::toeten()
{
    m_aus = true;
    if (m_waechter)
        m_waechter->setEnabled(false);
    const std::lock_guard halter(m_kind->sperre);
    m_kind->gewollt = false;
    if (m_kind->pid > 0)
        ::kill(m_kind->pid, SIGKILL);
}

// The thread stays as long as the process: that one asks the kernel to be ended together with who has started it, which
// is a thread, not a program.
void Malprozess::begleiten(const std::shared_ptr<Kind> &kind, const QByteArray &programm, Dateigriff kanal,
                           const std::function<void(Malfehler)> &melden)
{
    const pid_t pid = gestartet(programm, kanal.nummer());
    kanal = Dateigriff();
    if (pid < 0)
        return melden(Malfehler::NichtGestartet);
    {
        const std::lock_guard halter(kind->sperre);
        kind->pid = pid;
        if (!kind->gewollt)
            ::kill(pid, SIGKILL);
    }
    siginfo_t ende = {};
    while (::waitid(P_PID, id_t(pid), &ende, WEXITED | WNOWAIT) != 0 && errno == EINTR) {}
    {
        const std::lock_guard halter(kind->sperre);
        kind->pid = -1;
    }
    ::waitpid(pid, nullptr, 0);
    melden(grund(ende));
}

bool Malprozess::senden(const Auftrag &auftrag, const Dateigriff *dazu)
{
    return paketSenden(m_kanal.nummer(), verpackt(auftrag), dazu ? dazu->nummer() : -1);
}

std::chrono::nanoseconds Malprozess::rechenzeit() const
{
    const std::lock_guard halter(m_kind->sperre);
    clockid_t uhr = 0;
    timespec stand = {};
    if (m_kind->pid <= 0 || ::clock_getcpuclockid(m_kind->pid, &uhr) != 0 || ::clock_gettime(uhr, &stand) != 0)
        return {};
    return std::chrono::seconds(stand.tv_sec) + std::chrono::nanoseconds(stand.tv_nsec);
}

void Malprozess::hoeren()
{
    QByteArray bytes(laengsteNachricht, Qt::Uninitialized);
    while (!m_aus && m_kanal.offen()) {
        const ssize_t laenge = ::recv(m_kanal.nummer(), bytes.data(), size_t(bytes.size()), MSG_DONTWAIT | MSG_TRUNC);
        if (laenge < 0 && errno == EINTR)
            continue;
        if (laenge <= 0) {
            // Closed: its end is told by the thread.
            if (laenge == 0 || errno != EAGAIN)
                m_waechter->setEnabled(false);
            return;
        }
        const auto antwort = laenge <= bytes.size() ? antwortAus(bytes.first(laenge)) : std::nullopt;
        if (!antwort)
            return schluss(Malfehler::Abgestuerzt);
        Q_EMIT gehoert(*antwort);
    }
}

void Malprozess::schluss(Malfehler grund)
{
    if (std::exchange(m_aus, true))
        return;
    if (m_waechter)
        m_waechter->setEnabled(false);
    Q_EMIT beendet(grund);
}
} // namespace quillmar::seiten
