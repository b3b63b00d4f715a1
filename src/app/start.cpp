#include "ausgabe.h"
#include "kommandozeile.h"
#include "sprache.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::app;

namespace
{
/** Were one of the three channels closed, the next file to be opened would take its place and be printed into. */
void kanaeleOeffnen()
{
    int griff = 0;
    while (griff >= 0 && griff <= STDERR_FILENO)
        griff = ::open("/dev/null", O_RDWR); // NOLINT(android-cloexec-open): children need the channels too
    if (griff >= 0)
        ::close(griff);
}

/** Beside the program in the build tree, in its library folder once installed. */
QString fensterProgramm()
{
    const QString ort = QCoreApplication::applicationDirPath();
    for (const QString &relativ : {u"/quillmar-fenster"_s, u"/../lib/quillmar/quillmar-fenster"_s}) {
        if (QFileInfo(ort + relativ).isExecutable())
            return ort + relativ;
    }
    return {};
}

/** Lets the windowed program take this one's place. Returns only when that fails. */
int fensterOeffnen(char **argumente)
{
    const QByteArray programm = fensterProgramm().toUtf8();
    if (!programm.isEmpty())
        ::execv(programm.constData(), argumente);
    Ausgabe::melden(Sprache::text(u"Das Fenster lässt sich nicht öffnen: Die Installation ist unvollständig"_s));
    return 1;
}
} // namespace

int main(int anzahl, char **argumente)
{
    kanaeleOeffnen();
    const QCoreApplication programm(anzahl, argumente);
    Sprache::vorbereiten();
    const QStringList liste = QCoreApplication::arguments();
    if (!Kommandozeile::istGemeint(liste))
        return fensterOeffnen(argumente);
    Sprache::nurDeutsch();
    // A reader that has enough, such as head, must not end a command in the middle of its work.
    std::signal(SIGPIPE, SIG_IGN);
    // Each line reaches the terminal, or the program that reads, at once.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    Kommandozeile::laufen(liste);
    return 0;
}
