// Locks itself up as the program that draws pages does and then tries what must not succeed; one line for each.
#include "sandkasten.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quillmar::seitenmaler;

namespace
{
void sagen(const char *was, bool gelungen)
{
    std::array<char, 80> zeile = {};
    const int laenge = std::snprintf(zeile.data(), zeile.size(), "%s %s\n", was, gelungen ? "ja" : "nein");
    static_cast<void>(!::write(STDOUT_FILENO, zeile.data(), size_t(laenge)));
}

bool geoeffnet(const char *pfad, int art) { return ::open(pfad, art, 0600) >= 0; }

bool programmGestartet()
{
    std::array<char, 10> name{"/bin/true"};
    std::array<char *, 2> argumente{name.data(), nullptr};
    ::execve(name.data(), argumente.data(), nullptr);
    return false; // otherwise this line is not reached, and the list ends
}

bool ausfuehrbar()
{
    return ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED;
}

bool dateigrenzeErhoeht()
{
    const rlimit viel{1024, 1024};
    return ::setrlimit(RLIMIT_NOFILE, &viel) == 0;
}
} // namespace

/** Takes a file that may be read and two paths: one that can be written, one in a folder that can be. */
int main(int anzahl, char **argumente)
{
    if (anzahl != 4)
        return 2;
    const int offene = ::open(argumente[2], O_RDWR | O_CLOEXEC);
    Sandkasten::binden();
    Sandkasten::begrenzen(0, 77);
    sagen("geschlossen", Sandkasten::schliessen(3));
    Sandkasten::fristSetzen(std::chrono::seconds(10));
    sagen("Schrift lesen", geoeffnet(argumente[1], O_RDONLY));
    sagen("Brief lesen", geoeffnet(argumente[2], O_RDONLY));
    sagen("schreiben", geoeffnet(argumente[2], O_WRONLY));
    sagen("lesen und schreiben", geoeffnet(argumente[2], O_RDWR));
    sagen("leeren", geoeffnet(argumente[2], O_RDONLY | O_TRUNC));
    sagen("anlegen", geoeffnet(argumente[3], O_RDONLY | O_CREAT));
    sagen("verlaengern", ::ftruncate(offene, 1) == 0);
    sagen("Ordner anlegen", ::mkdir(argumente[3], 0700) == 0);
    sagen("umbenennen", ::rename(argumente[2], argumente[3]) == 0);
    sagen("entfernen", ::unlink(argumente[2]) == 0);
    sagen("Netz", ::socket(AF_INET, SOCK_STREAM, 0) >= 0);
    sagen("Sitzungsbus", ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0);
    sagen("Signal", ::kill(::getppid(), 0) == 0);
    sagen("fremder Speicher", ::ptrace(PTRACE_ATTACH, ::getppid(), nullptr, nullptr) == 0);
    sagen("Kind", ::fork() >= 0);
    sagen("Ausfuehrbares", ausfuehrbar());
    sagen("Grenze erhoehen", dateigrenzeErhoeht());
    sagen("Programm", programmGestartet());
    ::_exit(0);
}
