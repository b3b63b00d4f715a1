#include "diagnose.h"
#include "quillmarapp.h"
#include "sprache.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
void sagen(std::FILE *ziel, const QString &text) { std::fputs((text + u'\n').toUtf8().constData(), ziel); }

QString hilfe()
{
    return Sprache::text(
        u"Aufruf: quillmar [--profil NAME]\n"
        "  Öffnet das Fenster.\n\n"
        "Ohne Fenster:\n"
        "  quillmar --analyse [--erneut]       Bestand aufnehmen, lesen, einordnen; danach der Bericht\n"
        "  quillmar --bericht                  Bestand (ohne Ausgenommenes) und Güte aller Vorschläge\n"
        "  quillmar --gelernt [--anwenden]     gelernte Zuordnungen\n"
        "  quillmar --gelernt --aus-ablage     was deine Ablage lehrt; mit --anwenden übernehmen\n"
        "  quillmar --gegenueber [--anwenden]  eigene Namen als Gegenüber berichtigen\n"
        "  quillmar --rechnungen [--anwenden]  Ein- und Ausgangsrechnungen berichtigen\n"
        "  quillmar --selbsttest               eingebaute Prüfung, nur für kleine Probeprofile\n"
        "  Mit --profil NAME für ein anderes als das erste Profil.\n\n"
        "  quillmar --version, quillmar --help"_s);
}

/** Qt ends the program when it finds no display; the user is told what else can be done. */
void beiMeldung(QtMsgType art, const QMessageLogContext &, const QString &text)
{
    sagen(stderr, text);
    if (art != QtFatalMsg)
        return;
    sagen(stderr, Sprache::text(u"Hier lässt sich kein Fenster öffnen. Ohne Bildschirm hilft die Konsole weiter:"_s));
    sagen(stderr, hilfe());
    ::_exit(1);
}

/** Answers what needs no window; false if nothing of the kind was asked. */
bool istBeantwortet(int anzahl, char **argumente)
{
    for (int i = 1; i < anzahl; ++i) {
        const QByteArrayView argument(argumente[i]);
        if (argument == "--version") {
            const QCoreApplication programm(anzahl, argumente);
            sagen(stdout, Diagnose::zeilen().join(u'\n'));
            return true;
        }
        if (argument == "--help") {
            sagen(stdout, hilfe());
            return true;
        }
    }
    return false;
}
} // namespace

int main(int anzahl, char **argumente)
{
    if (istBeantwortet(anzahl, argumente))
        return 0;
    qInstallMessageHandler(beiMeldung);
    int ende = 0;
    {
        QuillmarApp programm(anzahl, argumente);
        const QStringList liste = QuillmarApp::arguments();
        const qsizetype stelle = liste.indexOf("--profil"_L1);
        ende = programm.laufen(stelle < 0 ? QString() : liste.value(stelle + 1));
    }
    // Work that still waits for a disk or a server is left behind; what it leaves open is settled at the next start.
    std::fflush(nullptr);
    ::_exit(ende);
}
