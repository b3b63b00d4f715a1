#include "kindprozess.h"

#include "abbruch.h"
#include "sprache.h"
#include "text.h"

#include <QProcess>
#include <algorithm>
#include <csignal>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
using std::chrono::steady_clock;

namespace
{
constexpr qint64 mebi = 1024 * 1024;
constexpr qint64 hoechstensAusgabe = 64 * mebi;
constexpr qsizetype hoechstensBeschwerde = 65536;
constexpr auto scheibe = 50ms;

/** Whatever else wants to run goes first; the disk's turn goes by the same measure. */
void zuruecktreten()
{
    const struct sched_param keine = {};
    constexpr int letzter = 19;
    if (::sched_setscheduler(0, SCHED_IDLE, &keine) != 0)
        ::setpriority(PRIO_PROCESS, 0, letzter);
}

/** Runs in the child before the program: own group to be killed whole, death with this program, and its limits. */
void kindVorbereiten(pid_t eltern, const Grenzen &grenzen)
{
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != eltern)
        ::_exit(127);
    const struct rlimit speicher = {rlim_t(grenzen.speicher), rlim_t(grenzen.speicher)};
    ::setrlimit(RLIMIT_AS, &speicher);
    // First the signal that tells what it died of; a second later the one that nobody can hold off.
    const auto sekunden = rlim_t(grenzen.rechenzeit.count());
    const struct rlimit rechenzeit = {sekunden, sekunden + 1};
    ::setrlimit(RLIMIT_CPU, &rechenzeit);
    const struct rlimit keinAbbild = {0, 0};
    ::setrlimit(RLIMIT_CORE, &keinAbbild);
    if (grenzen.nachrangig)
        zuruecktreten();
}

void beenden(QProcess &prozess)
{
    if (const qint64 nummer = prozess.processId(); nummer > 0)
        ::kill(-pid_t(nummer), SIGKILL);
    prozess.kill();
    prozess.waitForFinished(1000);
}

QString zeitsatz(const QString &name, std::chrono::milliseconds grenze)
{
    const qint64 sekunden = std::chrono::ceil<std::chrono::seconds>(grenze).count();
    return gefuellt(Sprache::text(sekunden, u"%@ hat zu lange gebraucht (Grenze: %@ Sekunde)"_s,
                                  u"%@ hat zu lange gebraucht (Grenze: %@ Sekunden)"_s),
                    {name, QString::number(sekunden)});
}

QString rechenzeitsatz(const QString &name, std::chrono::seconds grenze)
{
    return gefuellt(Sprache::text(grenze.count(), u"%@ hat zu viel Rechenzeit gebraucht (Grenze: %@ Sekunde)"_s,
                                  u"%@ hat zu viel Rechenzeit gebraucht (Grenze: %@ Sekunden)"_s),
                    {name, QString::number(grenze.count())});
}

QString ausgabesatz(const QString &name)
{
    return gefuellt(Sprache::text(u"%@ hat zu viel ausgegeben (Grenze: %@ MB)"_s),
                    {name, QString::number(hoechstensAusgabe / mebi)});
}

/** Waits in slices for the end of the process, and ends it at a limit. Returns the beginning of its complaints. */
QByteArray abwarten(QProcess &prozess, const QString &name, std::chrono::milliseconds zeitgrenze,
                    const std::stop_token &ende)
{
    const auto schluss = steady_clock::now() + zeitgrenze;
    QByteArray beschwerde;
    while (prozess.state() != QProcess::NotRunning) {
        prozess.waitForFinished(int(scheibe.count()));
        // A broken file can make a tool complain without end.
        beschwerde = (beschwerde + prozess.readAllStandardError()).left(hoechstensBeschwerde);
        const bool zuViel = prozess.bytesAvailable() > hoechstensAusgabe;
        const bool zuSpaet = prozess.state() != QProcess::NotRunning && steady_clock::now() >= schluss;
        if (!ende.stop_requested() && !zuViel && !zuSpaet)
            continue;
        beenden(prozess);
        if (ende.stop_requested())
            throw Abbruch();
        throw Fehler(zuViel ? ausgabesatz(name) : zeitsatz(name, zeitgrenze));
    }
    return beschwerde;
}

/** The words with which the tools and their libraries fail for want of memory; the system itself has none. */
bool klagtUeberSpeicher(const QByteArray &beschwerde)
{
    const QList<QByteArray> klagen = {"Out of memory", "std::bad_alloc", "malloc fail"};
    return std::any_of(klagen.begin(), klagen.end(), [&](const QByteArray &k) { return beschwerde.contains(k); });
}

/** Looks at how the process ended. Throws unless it went well. */
void endePruefen(const QProcess &prozess, const QString &name, const Grenzen &grenzen, const QByteArray &beschwerde)
{
    const bool getoetet = prozess.exitStatus() != QProcess::NormalExit; // its exit code is the signal then
    if (!getoetet && prozess.exitCode() == 0)
        return;
    if (getoetet && prozess.exitCode() == SIGXCPU)
        throw Fehler(rechenzeitsatz(name, grenzen.rechenzeit));
    if (klagtUeberSpeicher(beschwerde))
        throw Fehler(Kindprozess::speichersatz(name, grenzen.speicher));
    throw Fehlschlag(gefuellt(Sprache::text(u"%@ ist gescheitert"_s), {name}), beschwerde);
}
} // namespace

QString Kindprozess::speichersatz(const QString &name, qint64 grenze)
{
    return gefuellt(Sprache::text(u"%@ hat zu viel Speicher gebraucht (Grenze: %@ MB)"_s),
                    {name, QString::number(grenze / mebi)});
}

QByteArray Kindprozess::ausfuehren(const Auftrag &auftrag, const Grenzen &grenzen, const std::stop_token &ende)
{
    QProcess prozess;
    prozess.setProcessEnvironment(auftrag.umgebung);
    prozess.setStandardInputFile(QProcess::nullDevice());
    prozess.setChildProcessModifier([eltern = ::getpid(), grenzen] { kindVorbereiten(eltern, grenzen); });
    prozess.start(auftrag.pfad, auftrag.argumente);
    if (!prozess.waitForStarted(int(grenzen.uhr.count())))
        throw Fehler(gefuellt(Sprache::text(u"Hilfsprogramm %@ lässt sich nicht starten"_s), {auftrag.name}));
    const QByteArray beschwerde = abwarten(prozess, auftrag.name, grenzen.uhr, ende);
    endePruefen(prozess, auftrag.name, grenzen, beschwerde);
    return prozess.readAllStandardOutput();
}
} // namespace quillmar::analyse
