#include "kommando.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
void pruefen(bool gelungen, const QByteArray &was)
{
    if (!gelungen)
        throw std::runtime_error((was + " failed").toStdString());
}

std::vector<char *> zeiger(const QList<QByteArray> &texte)
{
    std::vector<char *> liste;
    for (const QByteArray &text : texte)
        liste.push_back(const_cast<char *>(text.constData()));
    liste.push_back(nullptr);
    return liste;
}

QList<QByteArray> umgebung()
{
    QList<QByteArray> liste = {"LC_ALL=C", "OMP_THREAD_LIMIT=1"};
    for (char **eintrag = environ; *eintrag != nullptr; ++eintrag) {
        const QByteArray text(*eintrag);
        if (!text.startsWith("LC_ALL=") && !text.startsWith("OMP_THREAD_LIMIT="))
            liste << text;
    }
    return liste;
}

/** Starts a command with @p ausgabe as standard output and @p eingabe as standard input (-1: nothing to read). */
pid_t starten(const QList<QByteArray> &argumente, int eingabe, int ausgabe)
{
    static const QList<QByteArray> werte = umgebung();
    static const std::vector<char *> env = zeiger(werte);
    posix_spawn_file_actions_t umleitung;
    posix_spawn_file_actions_init(&umleitung);
    if (eingabe < 0)
        posix_spawn_file_actions_addopen(&umleitung, 0, "/dev/null", O_RDONLY, 0);
    else
        posix_spawn_file_actions_adddup2(&umleitung, eingabe, 0);
    posix_spawn_file_actions_adddup2(&umleitung, ausgabe, 1);
    posix_spawn_file_actions_addopen(&umleitung, 2, "/dev/null", O_WRONLY, 0);
    const std::vector<char *> liste = zeiger(argumente);
    pid_t kind = -1;
    const int code = posix_spawn(&kind, argumente.first().constData(), &umleitung, nullptr, liste.data(), env.data());
    posix_spawn_file_actions_destroy(&umleitung);
    pruefen(code == 0, argumente.first());
    return kind;
}

/** Appends what comes next; false at the end. */
bool lesen(int griff, QByteArray &ziel)
{
    char puffer[65536];
    const ssize_t n = ::read(griff, puffer, sizeof puffer);
    if (n > 0)
        ziel.append(puffer, n);
    return n > 0;
}
} // namespace

Kommando::Ergebnis Kommando::laufen(const QList<QByteArray> &argumente)
{
    int leitung[2] = {-1, -1};
    pruefen(::pipe2(leitung, O_CLOEXEC) == 0, "pipe");
    const pid_t kind = starten(argumente, -1, leitung[1]);
    ::close(leitung[1]);
    Ergebnis ergebnis;
    while (lesen(leitung[0], ergebnis.ausgabe)) {}
    ::close(leitung[0]);
    int status = -1;
    struct rusage verbrauch = {};
    pruefen(::wait4(kind, &status, 0, &verbrauch) == kind && status == 0, argumente.first());
    ergebnis.hoechstKb = verbrauch.ru_maxrss;
    return ergebnis;
}

Kommando::Gespraech::Gespraech(const QList<QByteArray> &argumente)
{
    int hin[2] = {-1, -1};
    int her[2] = {-1, -1};
    pruefen(::pipe2(hin, O_CLOEXEC) == 0 && ::pipe2(her, O_CLOEXEC) == 0, "pipe");
    m_kind = starten(argumente, hin[0], her[1]);
    ::close(hin[0]);
    ::close(her[1]);
    m_hin = hin[1];
    m_her = her[0];
}

Kommando::Gespraech::~Gespraech()
{
    ::close(m_hin);
    ::close(m_her);
    ::waitpid(m_kind, nullptr, 0);
}

QByteArray Kommando::Gespraech::fragen(const QByteArray &frage, const QByteArray &schluss)
{
    pruefen(::write(m_hin, frage.constData(), size_t(frage.size())) == frage.size(), "write");
    QByteArray antwort;
    while (!antwort.contains(schluss))
        pruefen(lesen(m_her, antwort), "the command");
    return antwort;
}
