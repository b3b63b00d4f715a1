// bewegungstreiber FOLDER TARGET (move|copy) ACTION: one action on a prepared bench, for faults from outside.
// Exit status 0 when it worked, 1 when it failed with a message, 3 when only the session log could not be written.
// Calls access("/beginn") when the action begins.
#include "fehler.h"
#include "protokollbuch.h"
#include "werkbank.h"

#include <QCoreApplication>
#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
int ausfuehren(Werkbank &bank, const QString &aktion)
{
    bool ohneProtokoll = false;
    if (aktion == u"uebernehmen"_s) {
        ohneProtokoll = bank.uebernehmen(1, u"Stadtwerke Nord"_s).ohneProtokoll;
    } else if (aktion == u"aussortieren"_s) {
        ohneProtokoll = bank.aussortieren(1).ohneProtokoll;
    } else if (aktion == u"rueckgaengig"_s) {
        bank.rueckgaengig();
    } else if (aktion == u"sitzung"_s) {
        const QStringList dateien = Protokollbuch::dateien(bank.profil().protokollOrdner);
        const Bilanz bilanz = Protokollbuch::zurueckdrehen(dateien.value(0), bank.db(), [](qint64, qint64) {});
        for (const Rueckbaubefund &befund : bilanz.fehler)
            std::fprintf(stderr, "%s\n", qPrintable(befund.grund));
        return bilanz.fehler.isEmpty() ? 0 : 1;
    }
    return ohneProtokoll ? 3 : 0;
}
} // namespace

int main(int anzahl, char **argumente)
{
    const QCoreApplication programm(anzahl, argumente);
    const QStringList liste = QCoreApplication::arguments();
    try {
        Werkbank bank(liste.at(1), liste.at(3) == u"copy"_s, liste.at(2));
        [[maybe_unused]] const int marke = ::access("/beginn", F_OK);
        return ausfuehren(bank, liste.at(4));
    } catch (const Fehler &f) {
        std::fprintf(stderr, "%s\n", f.what());
        return 1;
    }
}
