#include "datenbank.h"
#include "kommando.h"
#include "messung.h"
#include "probe.h"
#include "profilspeicher.h"
#include "reihen.h"
#include "skizze.h"
#include "stapel.h"
#include "zaehlwerk.h"

#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int anzahl = 100000;
constexpr int bereite = 1000;
constexpr int wiederholungen = 10;

const QByteArray zaehlung = "SELECT status, COUNT(*) n FROM dokumente WHERE ausgenommen=0 GROUP BY status;\n";

QString statusVon(int nummer)
{
    static const QStringList andere = {u"erledigt"_s, u"neu"_s, u"dublette"_s, u"zurueckgestellt"_s, u"aussortiert"_s};
    return nummer % (anzahl / bereite) == 0 ? u"bereit"_s : andere.at(nummer % andere.size());
}

QString skizze(Probe::Zufall &zufall)
{
    QList<quint64> werte;
    for (int i = 0; i < Skizze::umfang; ++i)
        werte << zufall();
    return Skizze::json(werte);
}

void fuellen(Datenbank &db)
{
    Probe::Zufall zufall{1};
    const QStringList namen = Probe::namen(anzahl);
    Stapel stapel(db);
    for (int i = 0; i < anzahl; ++i) {
        const QString name = u"Rechnung %1.pdf"_s.arg(i);
        stapel.naechstes();
        db.schreiben(u"INSERT INTO dokumente (pfad, dateiname, alt_ordner, groesse, status, skizze, datum, "
                     "gegenueber, titel, zweig, ablage, rubrik, jahr, konfidenz, vorschlag, ort_quelle) "
                     "VALUES (?,?,'Eingang',1000,?,?,'2024-03-12',?,?,'Privat','Jahresablage','Rechnungen',"
                     "'2024',0.9,?,'modell')"_s,
                     {QString(u"/home/anna/Scans/Eingang/"_s + name), name, statusVon(i), skizze(zufall), namen.at(i),
                      QString(u"Rechnung über Öl "_s + QString::number(i)), name});
    }
    stapel.abschliessen();
}

double zaehlen(Datenbank &db)
{
    return Messung::dauer([&] {
        for (int i = 0; i < wiederholungen; ++i) {
            if (Zaehlwerk::zaehlen(db).bereit != bereite)
                throw std::runtime_error("miscounted");
        }
    });
}
} // namespace

void Reihen::bericht()
{
    const QTemporaryDir ordner;
    qputenv("XDG_DATA_HOME", ordner.path().toUtf8());
    const Profil profil;
    Profilspeicher::sichern({profil}, {});
    const QString datei = Profilspeicher::katalogDatei(profil);
    fuellen(*Probe::katalog(datei));

    Datenbank db(datei);
    Kommando::Gespraech konsole({"/usr/bin/sqlite3", "-batch", "-init", "/dev/null", datei.toUtf8()});
    const QByteArray frage = zaehlung.repeated(wiederholungen) + ".print ENDE\n";
    const auto paar = Messung::paarweise(
        15, [&] { return zaehlen(db); }, [&] { return Messung::dauer([&] { konsole.fragen(frage, "ENDE"); }); });
    Messung::drucken("counters over 100,000 rows, ten times", paar, 1.5);
    const auto lauf = Kommando::laufen({QUILLMAR_PROGRAMM, "--bericht"});
    if (!lauf.ausgabe.contains(" von 1000"))
        throw std::runtime_error("the report is not complete");
    Messung::drucken("  peak memory of quillmar --bericht", double(lauf.hoechstKb) / 1024, "MB", 150);
}
