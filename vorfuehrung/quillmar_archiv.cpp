#include "archiv.h"
#include "beispielprofil.h"
#include "fehlschlag.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QCoreApplication programm(argc, argv);
    QCommandLineParser leser;
    leser.setApplicationDescription(u"Schreibt ein kleines Archiv mit deutschen Beispieldokumenten."_s);
    leser.addHelpOption();
    leser.addPositionalArgument(u"ORDNER"_s, u"Ordner für Scans, Ablage und erwartet.json"_s);
    leser.addOption({u"profil"_s, u"schreibt außerdem eine Profilliste für dieses Archiv"_s, u"DATEI"_s});
    leser.addOption({u"modell"_s, u"Modell des Profils (sonst das der Vorführung)"_s, u"NAME"_s});
    leser.process(programm);
    if (leser.positionalArguments().size() != 1)
        leser.showHelp(2);
    const QString ordner = leser.positionalArguments().constFirst();
    try {
        vorfuehrung::archivSchreiben(ordner);
        if (leser.isSet(u"profil"_s))
            vorfuehrung::profilSchreiben(leser.value(u"profil"_s), ordner, leser.value(u"modell"_s));
    } catch (const vorfuehrung::Fehlschlag &fehler) {
        std::fprintf(stderr, "%s\n", fehler.what());
        return 1;
    }
    return 0;
}
