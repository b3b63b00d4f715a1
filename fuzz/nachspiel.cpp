#include "pruefziel.h"

#include <QDir>
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

/** Runs every file of the folder in the first argument through the target. Exit status 1 when there is none. */
int main(int anzahl, char **argumente)
{
    const QDir ordner(anzahl > 1 ? QFile::decodeName(argumente[1]) : QString());
    const QStringList namen = ordner.entryList(QDir::Files, QDir::Name);
    for (const QString &name : namen) {
        std::printf("%s\n", qPrintable(name)); // the last one is the one that broke
        std::fflush(stdout);
        QFile datei(ordner.filePath(name));
        if (!datei.open(QIODevice::ReadOnly))
            return 1;
        pruefen(datei.readAll());
    }
    return namen.isEmpty() ? 1 : 0;
}
