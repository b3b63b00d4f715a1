#include "beispielprofil.h"
#include "modellserver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication programm(argc, argv);
    QCommandLineParser leser;
    leser.setApplicationDescription(
        u"Modellserver der Vorführung: antwortet nach einfachen Regeln, ohne Sprachmodell."_s);
    leser.addHelpOption();
    leser.addOption({u"port"_s, u"Anschluss auf 127.0.0.1, 0 für einen freien"_s, u"N"_s, u"11434"_s});
    leser.addOption({u"modell"_s, u"Name des Modells"_s, u"NAME"_s, vorfuehrung::modellDerVorfuehrung()});
    leser.process(programm);

    bool lesbar = false;
    const quint16 port = leser.value(u"port"_s).toUShort(&lesbar);
    if (!lesbar)
        leser.showHelp(2);
    vorfuehrung::Modellserver server(leser.value(u"modell"_s));
    if (!server.lauschen(port)) {
        std::fprintf(stderr, "Anschluss %u auf 127.0.0.1 ist belegt.\n", port);
        return 1;
    }
    std::printf("Modellserver der Vorführung: antwortet nach einfachen Regeln, kein Sprachmodell.\n"
                "Modell: %s\nAdresse: 127.0.0.1:%u\n",
                qUtf8Printable(leser.value(u"modell"_s)), server.port());
    std::fflush(stdout);
    return QCoreApplication::exec();
}
