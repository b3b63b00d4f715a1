#include "paare.h"

#include "messung.h"
#include "probe.h"
#include "reihen.h"

#include <QFile>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int anzahl = 100000;
constexpr int umfang = 64;

/** Sketches that share nothing but the first @p gemeinsame values within each group of @p gruppe. */
QList<Paare::Abdruck> abdruecke(int gruppe, int gemeinsame)
{
    Probe::Zufall zufall{1};
    QList<Paare::Abdruck> liste;
    for (int i = 0; i < anzahl; ++i) {
        Probe::Zufall gleicher{quint64(1000000 + i / gruppe)};
        Paare::Abdruck a{.id = i + 1, .werte = {}};
        for (int j = 0; j < umfang; ++j)
            a.werte << (j < gemeinsame ? gleicher() : zufall());
        liste << std::move(a);
    }
    return liste;
}

double finden(int gruppe, int gemeinsame)
{
    QList<Paare::Abdruck> liste = abdruecke(gruppe, gemeinsame);
    return Messung::dauer([&] {
        if (!Paare::finden(std::move(liste)).isEmpty())
            throw std::runtime_error("pairs where there are none");
    });
}

/** Peak memory of this process so far, in MB. */
double hoechststand()
{
    QFile datei(u"/proc/self/status"_s);
    if (!datei.open(QFile::ReadOnly))
        throw std::runtime_error("no /proc");
    const QByteArray stand = datei.readAll();
    const qsizetype stelle = stand.indexOf("VmHWM:") + 6;
    return stand.mid(stelle, stand.indexOf("kB", stelle) - stelle).trimmed().toDouble() / 1024;
}
} // namespace

void Reihen::paare()
{
    const auto paar = Messung::paarweise(
        7, [] { return finden(5000, 20); }, [] { return finden(1, 0); });
    Messung::drucken("pairs of 100,000 sketches: bad, random", paar, 1.5);
}

void Reihen::paareSpeicher()
{
    static_cast<void>(finden(5000, 20));
    Messung::drucken("  peak memory, sketches included", hoechststand(), "MB", 400);
}
