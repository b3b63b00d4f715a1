#include "reihe.h"
#include "reihen.h"

#include <QCoreApplication>
#include <array>

namespace
{
constexpr std::array<Reihe, 21> reihen = {{
    {"lesen", Reihen::lesen},
    {"portionen", Reihen::portionen},
    {"portionen-bekannte", Reihen::portionenBekannte},
    {"erkennung", Reihen::erkennung},
    {"lagen", Reihen::lagen},
    {"pruefsummen", Reihen::pruefsummen},
    {"bestand", Reihen::bestand},
    {"skizzen", Reihen::skizzen},
    {"paare", Reihen::paare},
    {"paare-speicher", Reihen::paareSpeicher},
    {"namen", Reihen::namen},
    {"gedaechtnis", Reihen::gedaechtnis},
    {"bericht", Reihen::bericht},
    {"start", Reihen::start},
    {"uebernehmen", Reihen::uebernehmen},
    {"datentraeger", Reihen::datentraeger},
    {"rueckbau", Reihen::rueckbau},
    {"protokolle", Reihen::protokolle},
    {"ablagelesung", Reihen::ablagelesung},
    {"fundstellen", Reihen::fundstellen},
    {"nebenher", Reihen::nebenher},
}};
} // namespace

/** Measures the row that is named; without a name lists them. One row per process, so that none inherits memory. */
int main(int anzahl, char **argumente)
{
    const QCoreApplication programm(anzahl, argumente);
    const std::string_view gesucht = anzahl > 1 ? argumente[1] : "";
    return reiheMessen(reihen, gesucht);
}
